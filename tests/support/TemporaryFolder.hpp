#pragma once

#include "platform/system/TemporaryFolder.hpp"

#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <string_view>

namespace docparser_tests {

/// A temporary folder of a test, and the files that the test writes into it.
class TemporaryFolder : public platform::TemporaryFolder {
public:
    TemporaryFolder() : platform::TemporaryFolder("docparser-test-") {}

    /// Returns the folder in UTF-16.
    std::u16string u16() const { return path().u16string(); }

    /// Writes a file with exactly these bytes, replaces an existing one, and creates its folders.
    /// \param relative  path below this folder; a std::u16string for names beyond ASCII
    /// \returns         the absolute path of the file
    /// \throws std::runtime_error  the bytes could not be written
    std::filesystem::path write(const std::filesystem::path& relative,
                                std::string_view bytes) const {
        std::filesystem::path file = path() / relative;
        std::filesystem::create_directories(file.parent_path());
        std::ofstream stream(file, std::ios::binary | std::ios::trunc);
        stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        stream.close();
        if (!stream)
            throw std::runtime_error("could not write " + file.string());
        return file;
    }
};

} // namespace docparser_tests
