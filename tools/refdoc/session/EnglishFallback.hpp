#pragma once

#include "docparser/DocResourceParser.hpp"

#include <string>
#include <vector>

namespace refdoc {

/// Tells which of a product's records are English because its translation has none of their own.
///
/// It reads the file of the language alone and compares: records that this file has too come from
/// it, all others are English.
class EnglishFallback {
public:
    /// Does nothing when the documentation language is English. Nothing is logged.
    /// \throws whatever the host services throw
    explicit EnglishFallback(const std::u16string& product);

    /// What there is to say about a whole section; empty when it has a translation.
    std::u16string noteOn(const std::u16string& section) const;

    /// What there is to say about the records of one href; empty when they are translated, or when
    /// the note on their section says it.
    std::u16string noteOn(const std::u16string& section, const std::u16string& href,
                          const std::vector<reference::property::RefItem>& items) const;

private:
    std::u16string language_;
    bool isEnglish_; // the documentation language is English, and nothing falls back
    reference::docparser::ResourceMap<reference::property::RefItem> translation_;
};

} // namespace refdoc
