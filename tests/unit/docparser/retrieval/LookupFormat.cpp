#include "tests/unit/docparser/retrieval/LookupFormat.hpp"

#include <boost/json/parse.hpp>

namespace docparser_tests {

using namespace reference::property;
using reference::docparser::ResourceMap;

namespace {

using Rules = FormatRules<RefItemLookup>;
using enum Presence;
using enum Reading;

const std::string kItem = "/refItems/0";

// A field of the only item of the main section.
template <class Get>
Rules::Field ofItem(Get get) {
    return [get](const ResourceMap<RefItemLookup>& sections) -> std::u16string {
        return get(sectionBut(sections, u"pack").items.begin()->second.front());
    };
}

void addItemRules(Rules& rules) {
    rules.text(kItem, "name", Required, Utf8,
               ofItem([](const RefItemLookup& item) { return item.getName(); }));
    rules.text(kItem, "refpurpose", Required, Utf8,
               ofItem([](const RefItemLookup& item) { return item.getRefPurpose(); }));
    rules.text(kItem, "href", Required, Ascii,
               ofItem([](const RefItemLookup& item) { return item.getHref(); }));
    rules.word(kItem, "type", ofItem([](const RefItemLookup& item) {
                   return numberText(static_cast<std::size_t>(item.getEntityType()));
               }));
    rules.word(kItem, "fcntype", ofItem([](const RefItemLookup& item) {
                   return numberText(static_cast<std::size_t>(item.getFunctionType()));
               }));
    rules.other(
        kItem, "deprecated", ValueType::Anything, Optional,
        ofItem([](const RefItemLookup& item) { return numberText(item.getDeprecated() ? 1 : 0); }));
}

constexpr char kSample[] = R"({
  "schema": "s", "schemaVersion": "1", "productName": "n", "baseCode": "code",
  "helpFolder": "folder", "helpLocation": "l",
  "refItems": [{"name": "n", "refpurpose": "p", "href": "f.html", "type": "class",
                "fcntype": "method", "deprecated": false}],
  "supportPackages": [{
    "schema": "s", "schemaVersion": "1", "productName": "n", "baseCode": "pack",
    "helpFolder": "other", "helpLocation": "l",
    "refItems": [{"name": "n", "refpurpose": "p", "href": "g.html"}]}]
})";

} // namespace

boost::json::value LookupFormat::sample() {
    return boost::json::parse(kSample);
}

FormatRules<RefItemLookup> LookupFormat::rules() {
    Rules rules;
    addSectionRules(rules, "", u"pack");
    addItemRules(rules);
    addSupportPackageRules(rules);
    return rules;
}

std::vector<std::string> LookupFormat::unread() {
    return {"/unknown",
            "/name",
            kItem + "/refentity",
            kItem + "/inputs",
            kItem + "/deprecationstatus",
            kItem + "/description",
            kItem + "/Name",
            "/supportPackages/0/supportPackages"};
}

void LookupFormat::addComponent(boost::json::value& sample) {
    sample.at_pointer(kItem + "/type") = "component";
}

} // namespace docparser_tests
