#include "tools/refdoc/index/words/Words.hpp"

#include <algorithm>

namespace refdoc::site {

namespace {

std::u16string_view copyOf(std::u16string_view text, std::pmr::memory_resource& memory) {
    char16_t* characters = std::pmr::polymorphic_allocator<char16_t>(&memory).allocate(text.size());
    std::ranges::copy(text, characters);
    return {characters, text.size()};
}

} // namespace

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
    const std::u16string_view ownText = copyOf(text, *memory_);
    positions_.emplace(ownText, static_cast<std::uint32_t>(words_.size()));
    return words_.emplace_back(Word{ownText, isOfLetters});
}

} // namespace refdoc::site
