#include "HelpIndex.hpp"

#include <docparser/DocParserException.hpp>

#include <set>
#include <utility>

using reference::docparser::DocParserException;
using reference::docparser::DocResourceParser;
using reference::docparser::Fate;
using reference::docparser::FileAccount;
using reference::docparser::findItem;
using reference::docparser::findNames;
using reference::docparser::IndexEntry;
using reference::docparser::LoadAccount;
using reference::docparser::NameMatch;
using reference::docparser::toPath;
using reference::docparser::toUtf8;

namespace {

// Adds the page of an entry. Three names lead to it: the section key, "orchard", says whether the
// product is installed; the file name, "Orchard", is the argument of getResourceFile(); and the
// link identifies the item. Only the header of the section has the file name.
void addPage(const IndexEntry& entry, std::vector<Page>& pages) {
    try {
        const auto resources = DocResourceParser::getResourceFile(entry.header->getProduct());
        if (const auto* record = findItem(resources, entry.record->getHref()))
            pages.push_back({entry.header->getProductName(), entry.isInstalled, *record});
    } catch (const DocParserException&) {
        // The product has an index but no full records: there is no page to show.
    }
}

} // namespace

HelpIndex HelpIndex::read() {
    HelpIndex index;
    const LoadAccount::Scope scope(index.account_);
    index.index_ = DocResourceParser::getResourceLookupFiles();
    return index;
}

std::vector<Page> HelpIndex::pagesFor(const std::u16string& name) const {
    std::vector<Page> pages;
    std::set<std::pair<std::u16string, std::u16string>> seen;
    for (const IndexEntry& entry : findNames(index_, name, NameMatch::Exact)) {
        // One page may document a class and its constructor.
        if (seen.emplace(*entry.section, entry.record->getHref()).second)
            addPage(entry, pages);
    }
    return pages;
}

std::vector<std::string> HelpIndex::problems() const {
    std::vector<std::string> lines;
    for (const FileAccount& file : account_.files) {
        if (file.reason.empty())
            continue;
        std::string line = toUtf8(toPath(file.path).filename().u16string()) + ": " + file.reason;
        if (file.place)
            line += " (line " + std::to_string(file.place->line) + ")";
        lines.push_back(line);
    }
    return lines;
}
