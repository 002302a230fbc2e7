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
                             const EntryStyle& style) {
    const bool isDeprecated = entry.getDeprecated();
    const Paint caution = isDeprecated ? Paint::Caution : Paint::Plain;
    return {{entry.getName(), caution},
            {typeText(entry.getEntityType(), entry.getFunctionType())},
            {.text = entry.getRefPurpose(), .mayBeCut = true},
            {product},
            {style.withLink ? entry.getHref() : u"", Paint::Dim},
            {isDeprecated ? u"deprecated" : u"", caution},
            {style.isEnglish ? u"English" : u"", Paint::Dim}};
}

Table groupedEntries(std::vector<std::vector<Cell>> installed,
                     std::vector<std::vector<Cell>> notInstalled) {
    Table table;
    const bool hasGroups = !notInstalled.empty();
    const auto addGroup = [&](std::u16string heading, std::vector<std::vector<Cell>> rows) {
        if (hasGroups && !rows.empty())
            table.addHeading({{std::move(heading), Paint::Heading}});
        for (std::vector<Cell>& cells : rows)
            table.addRow(std::move(cells));
    };
    addGroup(u"Installed", std::move(installed));
    addGroup(u"Not installed", std::move(notInstalled));
    return table;
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
