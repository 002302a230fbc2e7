#include "tools/refdoc/index/RecordRows.hpp"

#include "tools/refdoc/html/Urls.hpp"
#include "tools/refdoc/index/JsonStrings.hpp"
#include "tools/refdoc/search/CodePoints.hpp"
#include "tools/refdoc/terminal/Words.hpp"

#include <boost/json/serialize.hpp>
#include <fmt/format.h>

namespace refdoc::site {

namespace {

constexpr std::size_t kMostRowsInPart = 32; // also in search.js

// Small parts, because a search loads one for nearly each of its results.
constexpr std::size_t kUsualSize = 2'500;

// A row has four strings of any length, and a link that is not longer than this.
constexpr std::size_t kLongestString = 1'500;

constexpr std::size_t kMostBytesOfUnit = 6; // sizeInJson()

void appendString(std::u16string_view text, std::string& row) {
    row += '"';
    appendJson(text, row);
    row += "\",";
}

std::string rowOf(const reference::docparser::IndexEntry& entry, const std::string& page) {
    const reference::property::RefItemLookup& record = *entry.record;
    std::string row = "[";
    appendString(searchedPart(record.getName()), row);
    appendString(searchedPart(record.getHref()), row);
    appendString(searchedPart(record.getRefPurpose()), row);
    appendString(typeText(record.getEntityType(), record.getFunctionType()), row);
    appendString(searchedPart(entry.header->getProductName()), row);
    return row + boost::json::serialize(html::relativeUrl({}, page)) + ']';
}

} // namespace

std::u16string_view searchedPart(std::u16string_view text) noexcept {
    if (text.size() <= kLongestString / kMostBytesOfUnit)
        return text;
    std::size_t size = 0;
    for (std::size_t at = 0; at < text.size(); ++at) {
        size += sizeInJson(text[at]);
        if (size > kLongestString)
            return text.substr(0, at - (isLowSurrogate(text[at]) ? 1 : 0));
    }
    return text;
}

std::uint32_t RecordRows::add(const reference::docparser::IndexEntry& entry,
                              const std::string& page) {
    const std::string row = rowOf(entry, page);
    if (count_ == kMostRowsInPart || (count_ > 0 && rows_.size() + row.size() > kUsualSize))
        finish();
    rows_ += (count_ == 0 ? "" : ",\n") + row;
    return static_cast<std::uint32_t>(partCount_ * kMostRowsInPart + count_++);
}

void RecordRows::finish() {
    if (count_ == 0)
        return;
    addPart(addFile_, fmt::format("row{}", partCount_++), '[' + rows_ + ']');
    rows_.clear();
    count_ = 0;
}

} // namespace refdoc::site
