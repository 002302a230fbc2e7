#include "tools/refdoc/pages/SearchIndex.hpp"

#include "platform/i18n/Converter.hpp"
#include "tools/refdoc/html/Urls.hpp"
#include "tools/refdoc/json/JsonText.hpp"
#include "tools/refdoc/terminal/Words.hpp"

#include <boost/json/array.hpp>
#include <fmt/format.h>

#include <utility>

namespace refdoc::site {

using fl::i18n::to_string;
using reference::docparser::IndexEntry;
using reference::docparser::LookupIndex;

namespace {

constexpr std::string_view kPartStart = "refdocIndex([\n";
constexpr std::string_view kPartEnd = "]);\n";

// The bits of a row's last element.
constexpr unsigned kNotInstalled = 1;
constexpr unsigned kDeprecated = 2;

std::string rowOf(const IndexEntry& entry, const std::string& page) {
    const reference::property::RefItemLookup& record = *entry.record;
    const unsigned flags =
        (entry.isInstalled ? 0 : kNotInstalled) | (record.getDeprecated() ? kDeprecated : 0);
    std::string row = toJsonLine(boost::json::array{
        to_string(record.getName()), to_string(record.getHref()), to_string(record.getRefPurpose()),
        to_string(typeText(record.getEntityType(), record.getFunctionType())),
        to_string(entry.header->getProductName()), html::relativeUrl({}, page), flags});
    row.insert(row.size() - 1, 1, ','); // before the line feed
    return row;
}

class Parts {
public:
    explicit Parts(const AddFile& addFile) : addFile_(addFile) {}

    void add(const std::string& row) {
        if (!rows_.empty() &&
            kPartStart.size() + rows_.size() + row.size() + kPartEnd.size() > kLargestPart)
            finishPart();
        rows_ += row;
    }

    void finish() {
        if (!rows_.empty())
            finishPart();
        addFile_("parts.js", fmt::format("refdocIndex({});\n", count_));
    }

private:
    void finishPart() {
        addFile_(fmt::format("{}.js", ++count_),
                 fmt::format("{}{}{}", kPartStart, std::exchange(rows_, {}), kPartEnd));
    }

    const AddFile& addFile_;
    std::string rows_;
    std::size_t count_ = 0;
};

} // namespace

void makeSearchIndex(const LookupIndex& index, const FindPage& findPage, const AddFile& addFile) {
    Parts parts(addFile);
    forEachEntry(index, [&](const IndexEntry& entry) { parts.add(rowOf(entry, findPage(entry))); });
    parts.finish();
}

} // namespace refdoc::site
