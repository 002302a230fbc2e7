#include "tools/refdoc/show/ItemText.hpp"

#include "platform/i18n/Converter.hpp"
#include "tools/refdoc/session/ArgumentFields.hpp"
#include "tools/refdoc/terminal/Words.hpp"

#include <boost/algorithm/string/case_conv.hpp>
#include <boost/algorithm/string/join.hpp>

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

namespace refdoc {

using namespace reference::property;
using fl::i18n::to_ustring;

namespace {

constexpr std::size_t kBody = 2;    // indent of an item's text
constexpr std::size_t kSection = 4; // indent of the text below a heading in an item

// A table of labels and texts, without empty texts.
class Facts {
public:
    void add(std::u16string label, const std::u16string& text, Paint paint = Paint::Plain) {
        if (!text.empty())
            table_.addRow({{std::move(label), Paint::Dim}, {text, paint}});
    }

    const Table& table() const { return table_; }

private:
    Table table_;
};

// One or more names, and their types in words.
struct TypedNames {
    std::vector<std::u16string> names;
    std::vector<std::u16string> types;
};

// Names that follow each other in the item are grouped if they have the same types.
std::vector<TypedNames> groupedByTypes(const std::vector<RefEntity>& entities) {
    std::vector<TypedNames> typed;
    for (const RefEntity& entity : entities) {
        const std::u16string type = typeText(entity.getEntityType(), entity.getFunctionType());
        if (!typed.empty() && typed.back().names.front() == entity.getName())
            typed.back().types.push_back(type);
        else
            typed.push_back({{entity.getName()}, {type}});
    }
    std::vector<TypedNames> groups;
    for (TypedNames& next : typed) {
        if (!groups.empty() && groups.back().types == next.types)
            groups.back().names.push_back(std::move(next.names.front()));
        else
            groups.push_back(std::move(next));
    }
    return groups;
}

// "series (class, constructor method), shift, lag (functions)". A name is not separated from the
// types after it at the end of a line.
std::u16string titleOf(const RefItem& item) {
    if (item.getRefEntities().empty())
        return item.getHref();
    std::vector<std::u16string> parts;
    for (TypedNames& group : groupedByTypes(item.getRefEntities())) {
        if (group.names.size() > 1)
            std::ranges::transform(group.types, group.types.begin(), pluralOf);
        const std::u16string names = boost::join(group.names, u", ");
        const std::u16string gap(names.empty() ? 0 : 1, Page::kNoBreakSpace);
        parts.push_back(names + gap + u"(" + boost::join(group.types, u", ") + u")");
    }
    return boost::join(parts, u", ");
}

void addDeprecation(Page& page, DeprecationStatus::Value status) {
    if (status == DeprecationStatus::None)
        return;
    const std::string word(DeprecationStatus::enumToString(status));
    page.text(kBody,
              to_ustring(boost::to_upper_copy(word)) + u": " + std::u16string(meaningOf(status)),
              status == DeprecationStatus::Removed ? Paint::Alarm : Paint::Caution);
}

// Adds the heading "Inputs" or "Inputs: title".
void addHeading(Page& page, std::u16string_view what, const std::u16string& title = {}) {
    std::u16string heading(what);
    if (!title.empty())
        heading += u": " + title;
    page.heading(kBody, heading);
}

void addSyntaxes(Page& page, const std::vector<SyntaxGroup>& groups) {
    for (const SyntaxGroup& group : groups) {
        std::u16string what = u"Syntax";
        if (group.getSyntaxType() != SyntaxType::getDefaultValue())
            what += u" (" + syntaxTypeOf(group) + u")";
        addHeading(page, what, group.getTitle());
        for (const std::u16string& syntax : group.getSyntaxes())
            page.text(kSection, syntax);
    }
}

// Adds a table of inputs, outputs, parameters or properties.
template <class Argument>
void addArguments(Page& page, std::u16string_view what, const std::u16string& title,
                  const std::vector<Argument>& arguments) {
    addHeading(page, what, title);
    Table table({u"Name", u"Purpose", u"Syntax", u"Default", u"Values"});
    const bool differInSyntax = std::ranges::any_of(arguments, [&](const Argument& argument) {
        return syntaxTypeOf(argument) != syntaxTypeOf(arguments.front());
    });
    for (const Argument& argument : arguments) {
        const ObjectInfo& info = argument.getObjectInfo();
        table.addRow({{info.getName() + (isNameValuePair(argument) ? u"*" : u"")},
                      {info.getPurpose()},
                      {differInSyntax ? syntaxTypeOf(argument) : u""},
                      {defaultOf(argument)},
                      {boost::join(info.getValues(), u", ")}});
    }
    page.table(kSection, table);
    if (std::ranges::any_of(arguments, isNameValuePair<Argument>))
        page.text(kSection, u"* given as a pair of name and value", Paint::Dim);
}

void addExamples(Page& page, const std::vector<Example>& examples) {
    addHeading(page, u"Examples");
    for (const Example& example : examples) {
        if (!example.getTitle().empty())
            page.text(kSection, example.getTitle());
        Facts facts;
        facts.add(u"open with", example.getOpenCommand());
        facts.add(u"link", example.getUrl(), Paint::Dim);
        page.table(kSection + 2, facts.table());
    }
}

void addLinks(Page& page, const std::vector<SeeAlso>& links) {
    addHeading(page, u"See also");
    Table table;
    for (const SeeAlso& link : links)
        table.addRow({{link.getName()}, {link.getUrl(), Paint::Dim}});
    page.table(kSection, table);
}

void addFacts(Page& page, const RefItem& item) {
    const AppThumbnail& thumbnail = item.getAppThumbnail();
    Facts facts;
    facts.add(u"link", item.getHref(), Paint::Dim);
    facts.add(u"package", item.getPackageName());
    facts.add(u"introduced", item.getIntroduced());
    facts.add(u"picture", thumbnail.getFileRef(), Paint::Dim);
    facts.add(u"shows", thumbnail.getAlt());
    page.table(kBody, facts.table());
}

} // namespace

void addHeader(Page& page, const HeaderInfo& header, const std::u16string& note) {
    page.title(header.getProductName(), '=');
    Facts facts;
    facts.add(u"help folder", header.getHelpFolder());
    facts.add(u"base code", header.getBaseCode());
    facts.add(u"help location", header.getHelpLocation());
    facts.add(u"format", header.getSchemaVersion().empty()
                             ? header.getSchema()
                             : header.getSchema() + u" " + header.getSchemaVersion());
    page.table(0, facts.table());
    if (!note.empty())
        page.text(0, note, Paint::Dim);
}

void addItem(Page& page, const RefItem& item, const std::u16string& note) {
    page.title(titleOf(item), '-');
    if (!note.empty())
        page.text(kBody, note, Paint::Dim);
    addDeprecation(page, item.getDeprecationStatus());
    if (!item.getRefPurpose().empty())
        page.text(kBody, item.getRefPurpose());
    addFacts(page, item);
    if (!item.getDescription().empty()) {
        page.emptyLine();
        page.text(kBody, item.getDescription());
    }
    addSyntaxes(page, item.getSyntaxGroups());
    if (!item.getInputs().empty())
        addArguments(page, u"Inputs", {}, item.getInputs());
    for (const InputGroup& group : item.getInputGroups())
        addArguments(page, u"Inputs", group.getTitle(), group.getInputs());
    if (!item.getOutputs().empty())
        addArguments(page, u"Outputs", {}, item.getOutputs());
    if (!item.getParameters().empty())
        addArguments(page, u"Parameters", {}, item.getParameters());
    for (const ClassPropertyGroup& group : item.getClassPropertyGroups())
        addArguments(page, u"Properties", group.getTitle(), group.getProperties());
    if (!item.getExamples().empty())
        addExamples(page, item.getExamples());
    if (!item.getSeeAlso().empty())
        addLinks(page, item.getSeeAlso());
}

} // namespace refdoc
