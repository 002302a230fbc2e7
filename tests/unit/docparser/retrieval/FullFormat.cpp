#include "tests/unit/docparser/retrieval/FullFormat.hpp"

#include <boost/json/parse.hpp>

#include <algorithm>
#include <stdexcept>

namespace docparser_tests {

using namespace reference::property;
using reference::docparser::ResourceMap;

namespace {

using Rules = FormatRules<RefItem>;
using enum Presence;
using enum Reading;

const std::string kItem = "/refItems/0";

// A field of the only item of the main section.
template <class Get>
Rules::Field ofItem(Get get) {
    return [get](const ResourceMap<RefItem>& sections) -> std::u16string {
        return get(sectionBut(sections, u"pack").items.begin()->second.front());
    };
}

template <class Record>
Rules::Field countOf(const std::vector<Record>& (RefItem::*list)() const noexcept) {
    return ofItem([list](const RefItem& item) { return numberText((item.*list)().size()); });
}

template <class Value>
std::u16string wordNumber(Value value) {
    return numberText(static_cast<std::size_t>(value));
}

std::u16string countPairs(const std::vector<Input>& inputs) {
    return numberText(static_cast<std::size_t>(std::ranges::count_if(
        inputs, [](const Input& input) { return input.getIsNameValuePair(); })));
}

// Adds the rules that inputs, outputs, parameters and properties share.
// \param get  the ObjectInfo of an item
template <class Get>
void addObjectInfoRules(Rules& rules, const std::string& parent, Reading nameReading, Get get) {
    rules.text(parent, "name", Required, nameReading,
               ofItem([get](const RefItem& item) { return get(item).getName(); }));
    rules.text(parent, "purpose", Required, Utf8,
               ofItem([get](const RefItem& item) { return get(item).getPurpose(); }));
    rules.other(parent, "value", ValueType::Array, Optional, ofItem([get](const RefItem& item) {
                    return numberText(get(item).getValues().size());
                }));
    rules.text(parent + "/value", "0", Element, Utf8,
               ofItem([get](const RefItem& item) { return get(item).getValues().at(0); }));
}

// \param get  the record of an item that has the ObjectInfo
template <class Get>
void addArgumentRules(Rules& rules, const std::string& parent, Reading nameReading, Get get) {
    addObjectInfoRules(rules, parent, nameReading,
                       [get](const RefItem& item) { return get(item).getObjectInfo(); });
    rules.text(parent, "htmlid", Optional, Ascii, ofItem([get](const RefItem& item) {
                   const std::u16string href = get(item).getObjectInfo().getHref();
                   return href.substr(href.find(u'#') + 1);
               }));
}

template <class Get>
void addDefaultValueRule(Rules& rules, const std::string& parent, Get get) {
    rules.text(parent, "defaultvalue", Optional, Utf8,
               ofItem([get](const RefItem& item) { return get(item).getDefaultValue(); }));
}

template <class Get>
void addSyntaxTypeRule(Rules& rules, const std::string& parent, Get get) {
    rules.word(parent, "syntaxtype", ofItem([get](const RefItem& item) {
                   return wordNumber(get(item).getSyntaxType());
               }));
}

template <class Get>
void addInputRules(Rules& rules, const std::string& list, Get get) {
    rules.element(list, "0");
    addArgumentRules(rules, list + "/0", Name, get);
    addDefaultValueRule(rules, list + "/0", get);
    addSyntaxTypeRule(rules, list + "/0", get);
}

void addTextRules(Rules& rules) {
    const auto text = [&](const char* key, Presence presence, Reading reading,
                          const std::u16string& (RefItem::*get)() const noexcept) {
        rules.text(kItem, key, presence, reading,
                   ofItem([get](const RefItem& item) { return (item.*get)(); }));
    };
    text("href", Required, Ascii, &RefItem::getHref);
    text("refpurpose", Required, Utf8, &RefItem::getRefPurpose);
    text("packagename", Optional, Ascii, &RefItem::getPackageName);
    text("introduced", Optional, Ascii, &RefItem::getIntroduced);
    text("description", Optional, Utf8, &RefItem::getDescription);
    rules.word(kItem, "deprecationstatus",
               ofItem([](const RefItem& item) { return wordNumber(item.getDeprecationStatus()); }));
}

void addThumbnailRules(Rules& rules) {
    const Rules::Field fileRef =
        ofItem([](const RefItem& item) { return item.getAppThumbnail().getFileRef(); });
    rules.other(kItem, "appthumbnail", ValueType::Object, Optional, fileRef);
    rules.text(kItem + "/appthumbnail", "fileref", Required, Ascii, fileRef);
    rules.text(kItem + "/appthumbnail", "alt", Required, Utf8,
               ofItem([](const RefItem& item) { return item.getAppThumbnail().getAlt(); }));
}

void addEntityRules(Rules& rules) {
    const std::string list = kItem + "/refentity";
    const auto entity = [](const RefItem& item) { return item.getRefEntities().at(0); };
    rules.other(kItem, "refentity", ValueType::Array, Optional, countOf(&RefItem::getRefEntities));
    rules.element(list, "0");
    rules.word(list + "/0", "type", ofItem([=](const RefItem& item) {
                   return wordNumber(entity(item).getEntityType());
               }));
    rules.word(list + "/0", "fcntype", ofItem([=](const RefItem& item) {
                   return wordNumber(entity(item).getFunctionType());
               }));
    rules.text(list + "/0", "name", Required, Utf8,
               ofItem([=](const RefItem& item) { return entity(item).getName(); }));
}

void addSyntaxRules(Rules& rules) {
    const std::string list = kItem + "/syntaxgroup";
    const auto group = [](const RefItem& item) { return item.getSyntaxGroups().at(0); };
    rules.other(kItem, "syntaxgroup", ValueType::Array, Optional,
                countOf(&RefItem::getSyntaxGroups));
    rules.element(list, "0");
    addSyntaxTypeRule(rules, list + "/0", group);
    rules.text(list + "/0", "title", Required, Utf8,
               ofItem([=](const RefItem& item) { return group(item).getTitle(); }));
    rules.other(list + "/0", "syntax", ValueType::Array, Optional, ofItem([=](const RefItem& item) {
                    return numberText(group(item).getSyntaxes().size());
                }));
    rules.text(list + "/0/syntax", "0", Element, Ascii,
               ofItem([=](const RefItem& item) { return group(item).getSyntaxes().at(0); }));
}

void addInputsRules(Rules& rules) {
    const std::string list = kItem + "/inputs";
    rules.other(kItem, "inputs", ValueType::Array, Optional, countOf(&RefItem::getInputs));
    addInputRules(rules, list, [](const RefItem& item) { return item.getInputs().at(0); });
    rules.element(list, "1");
    rules.other(list + "/1", "namevaluepairs", ValueType::Array, Optional,
                ofItem([](const RefItem& item) { return countPairs(item.getInputs()); }));
    addInputRules(rules, list + "/1/namevaluepairs",
                  [](const RefItem& item) { return item.getInputs().at(1); });
}

template <class Get>
void addInputGroupRules(Rules& rules, const std::string& group, Get get) {
    rules.text(group, "title", Required, Utf8,
               ofItem([get](const RefItem& item) { return get(item).getTitle(); }));
    rules.other(group, "inputs", ValueType::Array, Optional, ofItem([get](const RefItem& item) {
                    return numberText(get(item).getInputs().size());
                }));
    addInputRules(rules, group + "/inputs",
                  [get](const RefItem& item) { return get(item).getInputs().at(0); });
}

void addInputGroupsRules(Rules& rules) {
    const std::string list = kItem + "/inputgroup";
    rules.other(kItem, "inputgroup", ValueType::Array, Optional, countOf(&RefItem::getInputGroups));
    rules.element(list, "0");
    addInputGroupRules(rules, list + "/0",
                       [](const RefItem& item) { return item.getInputGroups().at(0); });
    rules.element(list, "1");
    rules.other(
        list + "/1", "namevaluepairs", ValueType::Array, Optional, ofItem([](const RefItem& item) {
            std::vector<Input> inputs;
            for (const InputGroup& group : item.getInputGroups())
                inputs.insert(inputs.end(), group.getInputs().begin(), group.getInputs().end());
            return countPairs(inputs);
        }));
    rules.element(list + "/1/namevaluepairs", "0");
    addInputGroupRules(rules, list + "/1/namevaluepairs/0",
                       [](const RefItem& item) { return item.getInputGroups().at(1); });
}

void addOutputRules(Rules& rules) {
    const std::string list = kItem + "/outputs";
    const auto output = [](const RefItem& item) { return item.getOutputs().at(0); };
    rules.other(kItem, "outputs", ValueType::Array, Optional, countOf(&RefItem::getOutputs));
    rules.element(list, "0");
    addArgumentRules(rules, list + "/0", Utf8, output);
    addSyntaxTypeRule(rules, list + "/0", output);
}

void addParameterRules(Rules& rules) {
    const std::string list = kItem + "/parameters";
    const auto parameter = [](const RefItem& item) { return item.getParameters().at(0); };
    rules.other(kItem, "parameters", ValueType::Array, Optional, countOf(&RefItem::getParameters));
    rules.element(list, "0");
    addArgumentRules(rules, list + "/0", Utf8, parameter);
    addDefaultValueRule(rules, list + "/0", parameter);
}

void addPropertyRules(Rules& rules) {
    const std::string list = kItem + "/classpropertygroup";
    const auto group = [](const RefItem& item) { return item.getClassPropertyGroups().at(0); };
    const auto property = [=](const RefItem& item) { return group(item).getProperties().at(0); };
    rules.other(kItem, "classpropertygroup", ValueType::Array, Optional,
                countOf(&RefItem::getClassPropertyGroups));
    rules.element(list, "0");
    rules.text(list + "/0", "title", Optional, Utf8,
               ofItem([=](const RefItem& item) { return group(item).getTitle(); }));
    rules.other(list + "/0", "classproperty", ValueType::Array, Optional,
                ofItem([=](const RefItem& item) {
                    return numberText(group(item).getProperties().size());
                }));
    rules.element(list + "/0/classproperty", "0");
    addObjectInfoRules(rules, list + "/0/classproperty/0", Name,
                       [=](const RefItem& item) { return property(item).getObjectInfo(); });
    addDefaultValueRule(rules, list + "/0/classproperty/0", property);
}

void addLinkRules(Rules& rules) {
    const std::string list = kItem + "/seealso";
    const auto link = [](const RefItem& item) { return item.getSeeAlso().at(0); };
    rules.other(kItem, "seealso", ValueType::Array, Optional, countOf(&RefItem::getSeeAlso));
    rules.element(list, "0");
    rules.text(list + "/0", "url", Required, Ascii,
               ofItem([=](const RefItem& item) { return link(item).getUrl(); }));
    rules.text(list + "/0", "name", Required, Utf8,
               ofItem([=](const RefItem& item) { return link(item).getName(); }));
}

void addExampleRules(Rules& rules) {
    const std::string list = kItem + "/examples";
    const auto example = [](const RefItem& item) { return item.getExamples().at(0); };
    rules.other(kItem, "examples", ValueType::Array, Optional, countOf(&RefItem::getExamples));
    rules.element(list, "0");
    rules.text(list + "/0", "url", Required, Ascii,
               ofItem([=](const RefItem& item) { return example(item).getUrl(); }));
    rules.text(list + "/0", "open_command", Required, Ascii,
               ofItem([=](const RefItem& item) { return example(item).getOpenCommand(); }));
    rules.text(list + "/0", "title", Required, Utf8,
               ofItem([=](const RefItem& item) { return example(item).getTitle(); }));
}

constexpr char kSample[] = R"({
  "schema": "s", "schemaVersion": "1", "productName": "n", "baseCode": "code",
  "helpFolder": "folder", "helpLocation": "l",
  "refItems": [{
    "href": "f.html", "refpurpose": "p",
    "refentity": [{"type": "class", "fcntype": "method", "name": "n"}],
    "packagename": "k", "introduced": "i", "description": "d",
    "appthumbnail": {"fileref": "f", "alt": "a"}, "deprecationstatus": "removed",
    "syntaxgroup": [{"syntaxtype": "command", "title": "t", "syntax": ["s"]}],
    "inputs": [
      {"name": "n", "purpose": "p", "value": ["v"], "htmlid": "h", "defaultvalue": "d",
       "syntaxtype": "command"},
      {"name": "unread", "purpose": "unread", "namevaluepairs": [
        {"name": "n", "purpose": "p", "value": ["v"], "htmlid": "h", "defaultvalue": "d",
         "syntaxtype": "command"}]}],
    "inputgroup": [
      {"title": "t", "inputs": [
        {"name": "n", "purpose": "p", "value": ["v"], "htmlid": "h", "defaultvalue": "d",
         "syntaxtype": "command"}]},
      {"title": "unread", "namevaluepairs": [
        {"title": "t", "inputs": [
          {"name": "n", "purpose": "p", "value": ["v"], "htmlid": "h", "defaultvalue": "d",
           "syntaxtype": "command"}]}]}],
    "outputs": [{"name": "n", "purpose": "p", "value": ["v"], "htmlid": "h",
                 "syntaxtype": "command"}],
    "classpropertygroup": [{"title": "t", "classproperty": [
      {"name": "n", "purpose": "p", "value": ["v"], "defaultvalue": "d"}]}],
    "seealso": [{"url": "u", "name": "n"}],
    "examples": [{"url": "u", "open_command": "o", "title": "t"}],
    "parameters": [{"name": "n", "purpose": "p", "value": ["v"], "htmlid": "h",
                    "defaultvalue": "d"}]}],
  "supportPackages": [{
    "schema": "s", "schemaVersion": "1", "productName": "n", "baseCode": "pack",
    "helpFolder": "other", "helpLocation": "l",
    "refItems": [{"href": "g.html", "refpurpose": "p"}]}]
})";

} // namespace

boost::json::value FullFormat::sample() {
    return boost::json::parse(kSample);
}

FormatRules<RefItem> FullFormat::rules() {
    Rules rules;
    addSectionRules(rules, "", u"pack");
    addTextRules(rules);
    addThumbnailRules(rules);
    addEntityRules(rules);
    addSyntaxRules(rules);
    addInputsRules(rules);
    addInputGroupsRules(rules);
    addOutputRules(rules);
    addPropertyRules(rules);
    addLinkRules(rules);
    addExampleRules(rules);
    addParameterRules(rules);
    addSupportPackageRules(rules);
    return rules;
}

std::vector<std::string> FullFormat::unread() {
    return {"/unknown",
            "/refpurpose",
            kItem + "/unknown",
            kItem + "/name",
            kItem + "/title",
            kItem + "/type",
            kItem + "/deprecated",
            kItem + "/HREF",
            kItem + "/refentity/0/title",
            kItem + "/appthumbnail/title",
            kItem + "/syntaxgroup/0/inputs",
            kItem + "/inputs/0/title",
            kItem + "/inputs/1/name",
            kItem + "/inputs/1/purpose",
            kItem + "/inputs/1/value",
            kItem + "/inputs/1/namevaluepairs/0/namevaluepairs",
            kItem + "/inputgroup/0/inputs/0/namevaluepairs",
            kItem + "/inputgroup/1/title",
            kItem + "/inputgroup/1/inputs",
            kItem + "/inputgroup/1/namevaluepairs/0/namevaluepairs",
            kItem + "/outputs/0/defaultvalue",
            kItem + "/outputs/0/namevaluepairs",
            kItem + "/parameters/0/syntaxtype",
            kItem + "/classpropertygroup/0/classproperty/0/htmlid",
            kItem + "/classpropertygroup/0/classproperty/0/syntaxtype",
            kItem + "/seealso/0/title",
            kItem + "/examples/0/name",
            "/supportPackages/0/supportPackages"};
}

void FullFormat::addComponent(boost::json::value& sample) {
    sample.at_pointer(kItem + "/refentity")
        .as_array()
        .push_back({{"type", "component"}, {"name", "c"}});
}

} // namespace docparser_tests
