#pragma once

#include "docparser/Export.hpp"

#include <string>
#include <utility>

namespace reference::docparser {

/// What is known of any product file: the name it goes by and whether it is a translation.
///
/// The fields never change; moving a record copies it, and records are not assigned.
class DOCPARSER_EXPORT ProductData {
public:
    /// \param name              stem of the file's name, a locale suffix included: "P_ja"
    /// \param nonEnglishLocale  whether the stem ends with the suffix of a language but English
    ProductData(std::u16string name, bool nonEnglishLocale)
        : name_(std::move(name)), nonEnglishLocale_(nonEnglishLocale) {}

    /// The stem of the file's name, a locale suffix included.
    const std::u16string& getName() const noexcept { return name_; }
    /// Whether the file is a translation, told by its name alone.
    bool isNonEnglishLocale() const noexcept { return nonEnglishLocale_; }

private:
    const std::u16string name_;
    const bool nonEnglishLocale_;
};

/// A product file that lies in a folder.
class DOCPARSER_EXPORT ProductPathData : public ProductData {
public:
    /// \param fullPath  the file's path, as the walk over its folder reports it
    ProductPathData(std::u16string name, bool nonEnglishLocale, std::u16string fullPath)
        : ProductData(std::move(name), nonEnglishLocale), fullPath_(std::move(fullPath)) {}

    /// The folder as it was given, one separator and the file's name, UTF-16.
    const std::u16string& getFullPath() const noexcept { return fullPath_; }

private:
    const std::u16string fullPath_;
};

} // namespace reference::docparser
