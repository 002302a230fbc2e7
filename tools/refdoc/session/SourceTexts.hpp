#pragma once

#include "docparser/account/LoadAccount.hpp"

#include <compare>
#include <cstddef>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

namespace refdoc {

/// A file, or an entry of a package.
struct SourceFile {
    std::u16string path{};
    std::u16string entry{};     ///< empty for the file itself
    std::size_t occurrence = 0; ///< the index among the package's entries of this name

    auto operator<=>(const SourceFile&) const = default;
};

/// Returns the files of an account, in its order. Entries of one package with the same name are
/// numbered in the order of the account, which is that of the package.
std::vector<SourceFile> sourceFiles(const reference::docparser::LoadAccount& account);

/// Reads the contents of files and of package entries, on several threads at a time. Keeps the last
/// package open, so that reading its entries one after the other is cheap.
class SourceTexts {
public:
    SourceTexts();
    ~SourceTexts();
    SourceTexts(const SourceTexts&) = delete;
    SourceTexts& operator=(const SourceTexts&) = delete;

    /// Returns the whole content; empty if it cannot be read. There is no limit on the size: meant
    /// for files that the library has read within its own limits.
    std::string read(const SourceFile& file) { return read(file, std::nullopt); }

    /// Returns the first 512 bytes, which show the type of a file; empty if they cannot be read.
    std::string readStart(const SourceFile& file) { return read(file, 512); }

private:
    struct OpenPackage;

    std::string read(const SourceFile& file, std::optional<std::size_t> length);
    std::string readEntry(const SourceFile& file, std::optional<std::size_t> length);
    OpenPackage& open(const std::u16string& path);

    std::mutex mutex_; // guards package_ and what is read from it
    std::unique_ptr<OpenPackage> package_;
};

} // namespace refdoc
