#include "tools/refdoc/lookup/EntryCells.hpp"

#include "tools/refdoc/terminal/Words.hpp"

namespace refdoc {

using reference::property::RefItemLookup;

namespace {

std::u16string yesOrNo(bool answer) {
    return answer ? u"yes" : u"no";
}

} // namespace

std::vector<Cell> entryCells(const RefItemLookup& entry, const std::u16string& product,
                             bool isInstalled, bool withLink) {
    std::u16string marks = entry.getDeprecated() ? u"deprecated" : u"";
    if (!isInstalled)
        marks += marks.empty() ? u"not installed" : u", not installed";
    return {{entry.getName(), entry.getDeprecated() ? Paint::Caution : Paint::Plain},
            {typeText(entry.getEntityType(), entry.getFunctionType())},
            {entry.getRefPurpose()},
            {product},
            {withLink ? entry.getHref() : std::u16string(), Paint::Dim},
            {marks, entry.getDeprecated() ? Paint::Caution : Paint::Dim}};
}

std::vector<std::u16string> plainFields(const RefItemLookup& entry, const std::u16string& section,
                                        const std::u16string& product, bool isInstalled) {
    return {entry.getName(),
            typeText(entry.getEntityType(), entry.getFunctionType()),
            entry.getRefPurpose(),
            product,
            section,
            entry.getHref(),
            yesOrNo(isInstalled),
            yesOrNo(entry.getDeprecated())};
}

} // namespace refdoc
