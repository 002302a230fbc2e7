// Runs a target on inputs from files, with any compiler. The arguments are files and folders of
// files. The process aborts at the first broken promise.

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
        throw std::runtime_error("cannot read " + file.string());
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

// Returns the number of inputs.
std::size_t replay(const std::vector<std::string>& places) {
    std::size_t count = 0;
    for (const std::string& place : places) {
        for (const std::filesystem::path& file : filesBelow(place)) {
            std::cout << file.string() << std::endl; // the last line names the input that failed
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
