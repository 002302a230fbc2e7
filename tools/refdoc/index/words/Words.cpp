#include "tools/refdoc/index/words/Words.hpp"

namespace refdoc::site {

void Words::add(std::u16string_view text, bool isOfLetters, std::uint32_t record, SearchField field,
                Occurrence occurrence) {
    std::vector<Posting>& postings = wordOf(text, isOfLetters).postings;
    if (postings.empty() || postings.back().record != record)
        postings.push_back({record, {}});
    postings.back().occurrences.add(field, occurrence);
}

Word& Words::wordOf(std::u16string_view text, bool isOfLetters) {
    if (const auto found = positions_.find(text); found != positions_.end())
        return words_[found->second];
    const std::u16string_view ownText = texts_.emplace_back(text);
    positions_.emplace(ownText, static_cast<std::uint32_t>(words_.size()));
    return words_.emplace_back(Word{ownText, isOfLetters});
}

} // namespace refdoc::site
