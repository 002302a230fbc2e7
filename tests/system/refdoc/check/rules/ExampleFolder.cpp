#include "tests/system/refdoc/check/rules/ExampleFolder.hpp"

#include "tests/support/NativeText.hpp"
#include "tests/support/ZipBytes.hpp"

#include <cstdint>
#include <fstream>
#include <map>
#include <stdexcept>

namespace refdoc_tests {

namespace fs = std::filesystem;

using docparser_tests::pathOf;
using docparser_tests::ZipBytes;
using docparser_tests::ZipEntryBytes;

namespace {

constexpr std::uint64_t kMostBytes = std::uint64_t{1} << 30;

ZipEntryBytes entryOf(const ExampleFile& file, const std::string& name) {
    ZipEntryBytes entry{.name = name, .content = file.content};
    if (file.form == Form::ByteOrderMark)
        entry.content.insert(0, "\xEF\xBB\xBF");
    if (file.form == Form::Encrypted)
        entry.flags = docparser_tests::kEncryptedFlag;
    if (file.form == Form::AtLimit || file.form == Form::OverLimit)
        entry.size = kMostBytes + (file.form == Form::OverLimit ? 1 : 0);
    return entry;
}

} // namespace

ExampleFolder::ExampleFolder(const fs::path& folder, const std::vector<ExampleFile>& files)
    : folder_(folder) {
    for (const char* name : {"referenceapi", "referenceapi_lookup"})
        fs::create_directories(folder_ / "help/docCatalog" / name);
    std::map<std::string, ZipBytes> packages;
    for (const ExampleFile& file : files) {
        const std::size_t separator = file.path.find('!');
        if (separator == file.path.npos)
            write(file);
        else
            packages[file.path.substr(0, separator)].entries.push_back(
                entryOf(file, file.path.substr(separator + 1)));
    }
    for (const auto& [path, package] : packages)
        write(path, package.build());
}

void ExampleFolder::write(const ExampleFile& file) {
    const fs::path path = folder_ / pathOf(file.path);
    switch (file.form) {
    case Form::Plain: write(file.path, file.content); break;
    case Form::ByteOrderMark: write(file.path, "\xEF\xBB\xBF" + file.content); break;
    case Form::OverLimit:
        write(file.path, "");
        fs::resize_file(path, kMostBytes + 1);
        break;
    case Form::Folder: fs::create_directories(path); break;
    case Form::Missing: fs::remove(path.parent_path()); break;
    case Form::Unopenable:
        fs::create_directories(path.parent_path());
        unopenable_.emplace_back(path);
        break;
    case Form::AtLimit:
    case Form::Encrypted: throw std::invalid_argument("only entries have this form");
    }
}

void ExampleFolder::write(const std::string& path, const std::string& content) const {
    const fs::path file = folder_ / pathOf(path);
    fs::create_directories(file.parent_path());
    std::ofstream stream(file, std::ios::binary);
    stream << content;
    if (!stream.flush())
        throw std::runtime_error("can't write " + path);
}

} // namespace refdoc_tests
