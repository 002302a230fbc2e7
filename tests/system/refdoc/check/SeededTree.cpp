#include "tests/system/refdoc/check/SeededTree.hpp"

#include "tests/support/ZipBytes.hpp"

#include <fstream>
#include <stdexcept>
#include <string>
#include <string_view>

namespace refdoc_tests {

namespace fs = std::filesystem;

using docparser_tests::ZipBytes;
using docparser_tests::ZipEntryBytes;

namespace {

void write(const fs::path& file, std::string_view text) {
    fs::create_directories(file.parent_path());
    std::ofstream stream(file, std::ios::binary);
    stream << text;
    if (!stream.flush())
        throw std::runtime_error("can't write " + file.string());
}

// A section with its header on the first line and its items on lines of their own.
std::string section(const std::string& key, const std::string& items,
                    const std::string& more = {}) {
    return R"({"productName": "", "baseCode": "b", "helpFolder": ")" + key +
           R"(", "helpLocation": "help/)" + key + R"(", "refItems": [)" + "\n" + items + "\n]" +
           more + "}\n";
}

constexpr std::string_view kManifest = R"({
  "supportedDocLanguages": ["en", "de"],
  "topLevelProducts": [{"shortName": "orchard"}, {"shortName": "lonely"},
                       {"shortName": "ghost"}],
  "supportPackageRoot": "packages",
  "hardwareSupportPackages": ["kit"]
}
)";

const std::string kOrchardItems =
    R"({"href": "graft.html", "refpurpose": "Join", "refentity": [{"name": "graft"}]},
{"href": "graft2.html", "refpurpose": "Join", "refentity": [{"name": "graft", "type": "functon"}]},
{"href": "prune.html", "refpurpose": "Cut", "refentity": [{"name": "prune"}], "introducd": "1"},
{"href": "prune2.html", "refpurpose": "Cut", "introduced": "é", "refentity": [{"name": "prune"}]},
{"href": "lost.html", "refpurpose": "Lose", "refentity": [{"name": "lose"}],
 "seealso": [{"url": "graft.html#x", "name": ""}, {"url": "https://a.example/b", "name": ""},
             {"url": "nowhere.html", "name": ""}]})";

const std::string kOrchardPackages = R"(, "supportPackages": [
{"productName": "", "baseCode": "kit", "helpFolder": "k", "helpLocation": "k", "refItems": []},
{"productName": "", "baseCode": "kit", "helpFolder": "k", "helpLocation": "k", "refItems": []},
{"productName": "", "baseCode": "orchard", "helpFolder": "k", "helpLocation": "k", "refItems": []}])";

// Below help/docCatalog/referenceapi.
void writeResources(const fs::path& folder) {
    write(folder / "Orchard.json", section("orchard", kOrchardItems, kOrchardPackages));
    write(folder / "Orchard_fr.json", section("orchard", ""));
    write(folder / "NoJson.json", "{\"productName\": \"\",\n \"baseCode\" \"b\"}");
    write(folder / "Mark.json", "\xEF\xBB\xBF" + section("mark", ""));
    write(folder / "Deep.json",
          "{\"unknown\":\n" + std::string(32, '[') + std::string(32, ']') + "}");
    write(folder / "NoKey.json", section("nokey", R"({"href": "a.html"})"));
    write(folder / "BadKind.json", section("badkind", R"({"href": 7, "refpurpose": ""})"));
    fs::create_directories(folder / "Folder.json");
    write(folder / "Huge.json", "");
    fs::resize_file(folder / "Huge.json", (std::uintmax_t{1} << 30) + 1);
    write(folder / "Cellar.JSON", section("cellar", ""));
    write(folder / "Orchard.json.bak", section("orchard", ""));
    write(folder / "readme.txt", "Not a resource file, and not reported.");
}

std::string zip(std::vector<ZipEntryBytes> entries) {
    ZipBytes package;
    package.entries = std::move(entries);
    return package.build();
}

// Below help/docCatalog/referenceapi_lookup.
void writeLookups(const fs::path& folder) {
    write(folder / "Orchard.json",
          section("orchard",
                  R"({"name": "graft", "href": "graft2.html", "refpurpose": ""},
{"name": "orchard.graft", "href": "graft2.html", "refpurpose": ""},
{"name": "prune", "href": "prune2.html", "refpurpose": ""},
{"name": "orchard.prune", "href": "prune2.html", "refpurpose": "", "deprecated": false},
{"name": "joinery", "href": "graft.html", "refpurpose": ""},
{"name": "gone", "href": "gone.html", "refpurpose": ""})"));
    write(folder / "Orchard_de.json",
          section("orchard", R"({"name": "graft", "href": "graft.html", "refpurpose": ""})"));
    write(folder / "Lonely.json",
          section("lonely", R"({"name": "alone", "href": "alone.html", "refpurpose": ""})"));
    write(folder / "Broken.zip", "not a package");
    write(folder / "Locked.zip", zip({{.name = "Locked.json",
                                       .content = section("locked", ""),
                                       .flags = docparser_tests::kEncryptedFlag}}));
    write(folder / "Wrong_de.zip", zip({{.name = "Wrong.json", .content = section("wrong", "")}}));
    write(folder / "Extra.zip",
          zip({{.name = "in/Orchard.json",
                .content = section("orchard",
                                   R"({"name": "prune", "href": "prune.html", "refpurpose": ""})")},
               {.name = "readme.txt", .content = "counts"}}));
}

// Returns the folder.
const fs::path& writeTree(const fs::path& folder) {
    write(folder / "installation.json", kManifest);
    writeResources(folder / "help/docCatalog/referenceapi");
    writeLookups(folder / "help/docCatalog/referenceapi_lookup");
    write(folder / "packages/help/docCatalog/referenceapi/Orchard.json", section("orchard", ""));
    return folder;
}

} // namespace

SeededTree::SeededTree(const fs::path& folder)
    : gone_(writeTree(folder) / "help/docCatalog/referenceapi_lookup/Gone.json") {}

} // namespace refdoc_tests
