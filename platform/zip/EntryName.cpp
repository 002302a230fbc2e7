#include "platform/zip/EntryName.hpp"

namespace platform::zip {

namespace {

constexpr std::u16string_view kSeparators = u"/\\";

} // namespace

std::u16string_view baseNameOf(std::u16string_view entryName) noexcept {
    // Without a separator the search returns npos; npos + 1 is 0, the start of the name.
    return entryName.substr(entryName.find_last_of(kSeparators) + 1);
}

bool isFolderName(std::u16string_view entryName) noexcept {
    return !entryName.empty() && kSeparators.find(entryName.back()) != std::u16string_view::npos;
}

bool isPackagingMetadata(std::u16string_view entryName) noexcept {
    if (entryName == u"[Content_Types].xml")
        return true;
    const std::u16string_view base = baseNameOf(entryName);
    if (!base.ends_with(u".rels") || base.size() == entryName.size())
        return false;
    const std::u16string_view folder = entryName.substr(0, entryName.size() - base.size() - 1);
    return baseNameOf(folder) == u"_rels";
}

} // namespace platform::zip
