#pragma once

#include <compare>
#include <cstddef>
#include <memory>
#include <optional>
#include <string>

namespace refdoc {

/// A file, or an entry of a package.
struct SourceFile {
    std::u16string path{};
    std::u16string entry{};     ///< empty: the file itself
    std::size_t occurrence = 0; ///< which of the package's entries of this name

    auto operator<=>(const SourceFile&) const = default;
};

/// Reads the texts of files and of package entries. Keeps the package that was read last open.
class SourceTexts {
public:
    SourceTexts();
    ~SourceTexts();
    SourceTexts(const SourceTexts&) = delete;
    SourceTexts& operator=(const SourceTexts&) = delete;

    /// The whole text; empty when it can't be read. Meant for what the library has read, and so
    /// within its limits.
    std::string read(const SourceFile& file);

    /// The first bytes, for a look at what kind of file it is; empty when they can't be read.
    std::string readStart(const SourceFile& file);

private:
    struct OpenPackage;

    std::string readEntry(const SourceFile& file, std::optional<std::size_t> length);
    OpenPackage& open(const std::u16string& path);

    std::unique_ptr<OpenPackage> package_;
};

} // namespace refdoc
