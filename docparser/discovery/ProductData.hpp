#pragma once

#include "docparser/Export.hpp"

#include <string>
#include <utility>

namespace reference::docparser {

/// Describes a product file: its name, and whether it is a translation.
///
/// The fields are const: moving a record copies it, and records cannot be assigned.
class DOCPARSER_EXPORT ProductData {
public:
    /// \param name              the stem of the file name, with its locale suffix: "P_ja"
    /// \param nonEnglishLocale  whether the name is that of a translation
    ProductData(std::u16string name, bool nonEnglishLocale)
        : name_(std::move(name)), nonEnglishLocale_(nonEnglishLocale) {}

    /// Returns the stem of the file name, with its locale suffix.
    const std::u16string& getName() const noexcept { return name_; }
    /// Returns whether the file is a translation, as determined by its name.
    bool isNonEnglishLocale() const noexcept { return nonEnglishLocale_; }

private:
    const std::u16string name_;
    const bool nonEnglishLocale_;
};

/// A product file in a folder.
class DOCPARSER_EXPORT ProductPathData : public ProductData {
public:
    /// \param fullPath  the file's path, as reported by the directory iterator
    ProductPathData(std::u16string name, bool nonEnglishLocale, std::u16string fullPath)
        : ProductData(std::move(name), nonEnglishLocale), fullPath_(std::move(fullPath)) {}

    /// Returns the folder as it was given, one separator and the file name, in UTF-16.
    const std::u16string& getFullPath() const noexcept { return fullPath_; }

private:
    const std::u16string fullPath_;
};

} // namespace reference::docparser
