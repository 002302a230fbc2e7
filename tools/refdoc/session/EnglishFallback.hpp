#pragma once

#include "docparser/DocResourceParser.hpp"

#include <string>
#include <vector>

namespace refdoc {

/// Tells which records of a product are English because its translation lacks them.
///
/// It reads the translation alone and compares: records that the translation also has come from it,
/// all others are English.
class EnglishFallback {
public:
    /// Reads the translation into the documentation language, unless that is English. Logs nothing.
    /// \throws whatever the host services throw
    explicit EnglishFallback(const std::u16string& product);

    /// Returns the note on a whole section; empty if the section is translated.
    std::u16string noteOn(const std::u16string& section) const;

    /// Returns the note on the records of one href; empty if they are translated, or if the note on
    /// the section covers them.
    std::u16string noteOn(const std::u16string& section, const std::u16string& href,
                          const std::vector<reference::property::RefItem>& items) const;

private:
    std::u16string quotedLanguage() const;

    std::u16string language_;
    bool isEnglish_; // nothing falls back
    reference::docparser::ResourceMap<reference::property::RefItem> translation_;
};

} // namespace refdoc
