// Runs a target over inputs that lie in files, with any compiler: the arguments are files and
// folders of files. The process ends at the first promise that is broken.

#include "fuzz/support/Target.hpp"

#include <cstdint>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

std::string readInput(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    if (!stream)
        throw std::runtime_error(file.string() + " cannot be read");
    return {std::istreambuf_iterator<char>(stream), {}};
}

std::vector<std::filesystem::path> filesBelow(const std::filesystem::path& place) {
    if (!std::filesystem::is_directory(place))
        return {place};
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(place)) {
        if (entry.is_regular_file())
            files.push_back(entry.path());
    }
    return files;
}

// How many inputs there were.
std::size_t replay(const std::vector<std::string>& places) {
    std::size_t count = 0;
    for (const std::string& place : places) {
        for (const std::filesystem::path& file : filesBelow(place)) {
            std::cout << file.string() << std::endl; // the last line names what ends the process
            const std::string input = readInput(file);
            LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(input.data()),
                                   input.size());
            ++count;
        }
    }
    return count;
}

} // namespace

int main(int argc, char** argv) {
    try {
        const std::size_t count = replay({argv + 1, argv + argc});
        std::cout << count << " inputs replayed\n";
        return count > 0 ? 0 : 1;
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return 1;
    }
}
