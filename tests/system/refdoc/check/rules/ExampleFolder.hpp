#pragma once

#include "tests/support/UnopenableFile.hpp"

#include <filesystem>
#include <list>
#include <string>
#include <vector>

namespace refdoc_tests {

/// How a file of an example is written.
enum class Form {
    Plain,
    ByteOrderMark, ///< with a byte-order mark before the content
    AtLimit,       ///< an entry of a package that states the most bytes that an entry may have
    OverLimit,     ///< one byte more than a file or entry may have; without content
    Folder,
    Missing,    ///< a folder of resource files that does not exist; otherwise both do
    Unopenable, ///< a link to a file that does not exist or, on Windows, a locked file
    Encrypted   ///< an encrypted entry of a package
};

/// A file of an example. Files of the same package have paths like "Orchard.zip!in/Orchard.json".
struct ExampleFile {
    std::string path;
    std::string content{};
    Form form = Form::Plain;
};

/// An install folder with the files of an example. The files that cannot be opened can be removed
/// at the end of the object's life.
class ExampleFolder {
public:
    explicit ExampleFolder(const std::filesystem::path& folder,
                           const std::vector<ExampleFile>& files);

private:
    void write(const ExampleFile& file);
    void write(const std::string& path, const std::string& content) const;

    std::filesystem::path folder_;
    std::list<docparser_tests::UnopenableFile> unopenable_;
};

} // namespace refdoc_tests
