#include "tests/faults/FaultTest.hpp"

#include "tests/support/ZipBytes.hpp"

#include <algorithm>
#include <filesystem>
#include <span>

namespace docparser_tests {

namespace {

const std::u16string kLanguage = u"zh_Hant_TW";
const std::string kSuffix = "_zh_Hant_TW";

ResourceText englishText() {
    ResourceText text("orchard");
    text.add(item("graft/young/trees.html", "Join a scion to a rootstock"));
    text.add(item("prune/old/trees.html", "Cut back what grew last year"));
    return text.addSupportPackage(
        ResourceText("meadow").add(item("mow/in/june.html", "Cut the grass below the trees")));
}

// The key "willow" sorts last, so the overlay inserts its section last.
ResourceText translatedText(bool hasOwnSection) {
    ResourceText text("orchard");
    text.add(item("prune/old/trees.html", "修剪去年長出的枝條"));
    text.add(item("water/in/summer.html", "在夏天為果樹澆水"));
    if (hasOwnSection)
        text.addSupportPackage(
            ResourceText("willow").add(item("weave/a/basket.html", "用柳條編織一個籃子")));
    return text;
}

ResourceText supportText() {
    return ResourceText("robots").add(item("pick/ripe/apples.html", "Let a robot do the picking"));
}

ResourceText lookupText(std::string_view helpFolder, std::string_view own,
                        std::string_view purpose) {
    ResourceText text(helpFolder);
    const std::string page = std::string(own) + "/reference/page.html";
    text.add(lookupItem(own, page, purpose));
    text.add(lookupItem("shared name", page, purpose));
    return text;
}

// The texts of two plain files, of two entries of one package and of one entry of another.
std::vector<std::string> lookupTexts() {
    ResourceText plain = lookupText("orchard", "graft trees", "Join a scion to a rootstock");
    plain.add(lookupItem("shared name", "another/page.html", "A second record of the same name"));
    plain.addSupportPackage(lookupText("meadow", "mow the grass", "Cut the grass in June"));
    ResourceText translated = lookupText("orchard", "graft trees", "將接穗接到砧木上");
    return {plain.str(), translated.str(),
            lookupText("orchard", "count apples", "Number of apples on a tree").str(),
            lookupText("orchard", "count apples", "一棵樹上的蘋果數量").str(),
            lookupText("robot toolkit", "move the robot", "Go to the next tree").str()};
}

const std::vector<std::string> kLookupNames = {"Orchard.json", "Orchard" + kSuffix + ".json",
                                               "Tools.json", "Tools" + kSuffix + ".json",
                                               "Robots.json"};

ZipEntryBytes entry(std::size_t index, const std::string& text, std::uint16_t method) {
    return {.name = "help/" + kLookupNames[index], .content = text, .method = method};
}

// Puts the entry into a folder whose name starts with bytes that are not valid UTF-8. They are
// CP437 unless the flags declare UTF-8.
ZipEntryBytes oddlyNamed(ZipEntryBytes entry, const std::string& bytes, std::uint16_t flags) {
    entry.name = bytes + entry.name;
    entry.flags = flags;
    return entry;
}

const std::string kNoUtf8 = "B\x84ume ";
// An encoded surrogate. Libraries that check only the bit pattern accept it as UTF-8.
const std::string kNearlyUtf8 = "\xED\xA0\x80 ";

using LookupSection = DocResource<RefItemLookup>;

// Whether visit(entry) returns true for one of the sections, installed or not.
template <class Visit>
bool anySection(const Lookups& lookups, Visit visit) {
    return std::ranges::any_of(lookups.installed, visit) ||
           std::ranges::any_of(lookups.notInstalled, visit);
}

bool hasHeader(const Lookups& lookups, const std::u16string& key,
               const reference::property::HeaderInfo& header) {
    return anySection(lookups, [&](const auto& entry) {
        return entry.first == key && entry.second.header == header;
    });
}

bool hasRecord(const Lookups& lookups, const std::u16string& key, const RefItemLookup& record) {
    return anySection(lookups, [&](const auto& entry) {
        const auto found = entry.second.items.find(record.getName());
        return entry.first == key && found != entry.second.items.end() &&
               std::ranges::find(found->second, record) != found->second.end();
    });
}

bool isMadeOf(const std::u16string& key, const LookupSection& section,
              const std::vector<Lookups>& parts) {
    const auto isKnown = [&](const RefItemLookup& record) {
        return std::ranges::any_of(
            parts, [&](const Lookups& part) { return hasRecord(part, key, record); });
    };
    return std::ranges::any_of(
               parts, [&](const Lookups& part) { return hasHeader(part, key, section.header); }) &&
           std::ranges::all_of(section.items, [&](const auto& items) {
               return std::ranges::all_of(items.second, isKnown);
           });
}

Listing listingOf(const std::vector<reference::docparser::ProductPathData>& products) {
    Listing listing;
    for (const auto& product : products)
        listing.push_back(product.getName() + u" " + product.getFullPath());
    return listing;
}

} // namespace

FaultTest::FaultTest() {
    setLanguage(kLanguage);
    host->install({"orchard"});
    host->packages = {kSupportPackage, u"another installed package"};
    addApi("Orchard keeping.json", englishText().str());
    addApi("Orchard keeping" + kSuffix + ".json", translatedText(true).str());
    addSupport("Orchard keeping.json", supportText().str());
    addSupport("Robot control.json", supportText().str());
    writeLookups(lookupTexts());
}

std::u16string FaultTest::lookupFolder() const {
    return std::filesystem::path(lookupPath("")).u16string();
}

void FaultTest::reset() const {
    DocResourceParser::restoreDefaultSettings();
    DocResourceParser::setReferenceRoot(root());
    host->forgetQuestions();
    observed.forget();
}

void FaultTest::writeLookups(const std::vector<std::string>& texts) const {
    addLookup(kLookupNames[0], texts[0]);
    addLookup(kLookupNames[1], texts[1]);
    const ZipBytes tools{.entries = {oddlyNamed(entry(2, texts[2], kDeflated), kNoUtf8, kUtf8Flag),
                                     oddlyNamed(entry(3, texts[3], kStored), kNearlyUtf8, 0)}};
    addLookup("Tools.zip", tools.build());
    const ZipBytes robots{.entries = {oddlyNamed(entry(4, texts[4], kDeflated), kNoUtf8, 0)}};
    addLookup("Robots.zip", robots.build());
}

std::vector<Resources> FaultTest::partialResources() const {
    std::vector<Resources> results;
    const std::string english = "Orchard keeping.json";
    const std::string translated = "Orchard keeping" + kSuffix + ".json";
    for (const std::string& first : {englishText().str(), std::string()}) {
        for (const std::string& second :
             {translatedText(true).str(), translatedText(false).str(), std::string()}) {
            addApi(english, first);
            addApi(translated, second);
            results.push_back(DocResourceParser::getResourceFile(kProduct));
        }
    }
    addApi(english, englishText().str());
    addApi(translated, translatedText(true).str());
    return results;
}

std::vector<Lookups> FaultTest::partialLookups() const {
    std::vector<Lookups> results;
    const std::vector<std::string> whole = lookupTexts();
    for (unsigned damaged = 0; damaged < 1U << whole.size(); ++damaged) {
        std::vector<std::string> texts = whole;
        for (std::size_t index = 0; index < texts.size(); ++index) {
            if ((damaged >> index & 1U) != 0)
                texts[index].clear();
        }
        writeLookups(texts);
        results.push_back(DocResourceParser::getResourceLookupFiles());
    }
    writeLookups(whole);
    return results;
}

std::vector<Lookups> FaultTest::separateLookups() const {
    std::vector<Lookups> results;
    const std::vector<std::string> texts = lookupTexts();
    for (std::size_t index = 0; index < texts.size(); ++index) {
        const std::string name = "alone" + std::to_string(index);
        folder.write(name + "/docCatalog/referenceapi_lookup/" + kLookupNames[index], texts[index]);
        DocResourceParser::setReferenceRoot((folder.path() / name).u16string());
        results.push_back(DocResourceParser::getResourceLookupFiles());
    }
    reset();
    return results;
}

std::pair<Listing, Listing> describe(const reference::docparser::ProductLists& lists) {
    return {listingOf(lists.jsonProducts), listingOf(lists.zipProducts)};
}

bool isStartOf(const Listing& start, const Listing& whole) {
    return start.size() <= whole.size() &&
           std::ranges::equal(start, std::span(whole).first(start.size()));
}

bool isMadeOf(const Lookups& result, const std::vector<Lookups>& parts) {
    return !anySection(
        result, [&](const auto& entry) { return !isMadeOf(entry.first, entry.second, parts); });
}

} // namespace docparser_tests
