#pragma once

#include "tools/refdoc/check/Finding.hpp"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace refdoc::check {

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

} // namespace refdoc::check
