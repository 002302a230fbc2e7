// Compares the origins of records with what the library returns, for the samples and for trees of
// random files in which each record has a distinct purpose.

#include "tools/refdoc/explain/Origins.hpp"

#include "docparser/DocParserException.hpp"
#include "docparser/DocResourceParser.hpp"
#include "platform/HostServices.hpp"
#include "platform/i18n/Converter.hpp"
#include "tests/support/ResourceText.hpp"
#include "tests/support/TemporaryFolder.hpp"
#include "tests/support/ZipBytes.hpp"
#include "tools/refdoc/session/HostOverrides.hpp"
#include "tools/refdoc/session/SourceTexts.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <random>
#include <set>

namespace refdoc_tests {
namespace {

using namespace reference::docparser;
using namespace refdoc;
using docparser_tests::ResourceText;
using docparser_tests::ZipBytes;

// Section, key, href and purpose of each record, in the order of the result.
using Lines = std::vector<std::u16string>;

template <class Record>
std::u16string keyOf(const Record& record) {
    if constexpr (std::is_same_v<Record, reference::property::RefItem>)
        return record.getHref();
    else
        return record.getName();
}

std::u16string lineOf(const std::u16string& section, const std::u16string& key,
                      const std::u16string& href, const std::u16string& purpose) {
    return section + u" | " + key + u" | " + href + u" | " + purpose;
}

template <class T>
void addLines(const ResourceMap<T>& sections, Lines& lines) {
    for (const auto& [key, section] : sections) {
        for (const auto& [name, records] : section.items) {
            for (const T& record : records)
                lines.push_back(
                    lineOf(key, keyOf(record), record.getHref(), record.getRefPurpose()));
        }
    }
}

Lines linesOf(const std::vector<SectionOrigins>& sections) {
    Lines lines;
    for (const SectionOrigins& section : sections) {
        for (const auto& [name, records] : section.kept) {
            for (const SourceRecord& record : records)
                lines.push_back(lineOf(section.key, name, record.href, record.refPurpose));
        }
    }
    return lines;
}

class OriginsTest : public testing::Test {
public:
    ~OriginsTest() override {
        platform::setHostServices(nullptr);
        DocResourceParser::restoreDefaultSettings();
    }

protected:
    // Writes a plain lookup file; `name` without ".json".
    void addLookup(const std::string& name, std::string_view text) const {
        folder_.write("help/docCatalog/referenceapi_lookup/" + name + ".json", text);
    }

    static void use(const std::filesystem::path& installFolder, const std::u16string& language) {
        refdoc::Options options;
        options.installFolder = installFolder.u16string();
        options.language = language;
        applyOptions(options);
    }

    // Returns the origins of the lookup index, after comparing them with the result of the library.
    std::vector<SectionOrigins> expectIndexExplained() {
        account_ = {};
        Lines expected;
        {
            const LoadAccount::Scope scope(account_);
            const auto results = DocResourceParser::getResourceLookupFiles();
            addLines(results.installed, expected);
            addLines(results.notInstalled, expected);
        }
        SectionReader reader(std::nullopt);
        std::vector<SectionOrigins> origins = findOrigins(account_, reader);
        EXPECT_EQ(linesOf(origins), expected);
        return origins;
    }

    std::vector<SectionOrigins> expectProductExplained(const std::u16string& product) {
        account_ = {};
        Lines expected;
        try {
            const LoadAccount::Scope scope(account_);
            addLines(DocResourceParser::getResourceFile(product), expected);
        } catch (const DocParserException&) {
            expected.clear();
        }
        std::vector<SectionOrigins> origins = findOrigins(account_, productReader_);
        EXPECT_EQ(linesOf(origins), expected);
        return origins;
    }

    // The text at each position must be that of the record.
    void expectPlaces(const std::vector<SectionOrigins>& sections) const {
        for (const SectionOrigins& section : sections) {
            for (const auto& [name, records] : section.kept) {
                for (const SourceRecord& record : records)
                    expectPlace(record);
            }
            for (const LostRecord& lost : section.lost)
                expectPlace(lost.record);
        }
    }

    const docparser_tests::TemporaryFolder folder_;
    LoadAccount account_;
    SectionReader productReader_{std::nullopt}; // shared by the languages of a product

private:
    void expectPlace(const SourceRecord& record) const {
        const std::string text = SourceTexts().read(sourceFiles(account_)[record.origin.file]);
        ASSERT_TRUE(!text.empty() && record.origin.place);
        const std::string rest = text.substr(record.origin.place->offset);
        const std::string element = rest.substr(0, rest.find('}'));
        EXPECT_TRUE(element.starts_with('{'));
        EXPECT_THAT(element, testing::HasSubstr(fl::i18n::to_string(record.href)));
    }
};

TEST_F(OriginsTest, CoverEveryRecordOfSamples) {
    for (const char16_t* language : {u"en", u"de", u"ja"}) {
        use(SAMPLES_FOLDER, language);
        const auto index = expectIndexExplained();
        EXPECT_GE(linesOf(index).size(), 40U);
        expectPlaces(index);
        for (const std::u16string product : {u"Orchard", u"Cellar", u"HiveScale", u"Nothing"})
            expectPlaces(expectProductExplained(product));
    }
}

// Files with few names and hrefs, so that many collide.
class RandomFiles {
public:
    explicit RandomFiles(unsigned seed) : random_(seed) {}

    std::size_t below(std::size_t limit) { return random_() % limit; }

    std::string text(bool isLookup) {
        ResourceText text(folders_[below(3)]);
        addItems(text, isLookup);
        for (std::size_t rest = below(3); rest > 0; --rest) {
            ResourceText section("x");
            section.set("baseCode", folders_[below(4)]);
            addItems(section, isLookup);
            text.addSupportPackage(section);
        }
        // Some files are damaged.
        if (below(10) == 0)
            text.set("productName", 1);
        return text.str();
    }

    std::string package() {
        ZipBytes zip;
        for (std::size_t rest = 1 + below(3); rest > 0; --rest)
            zip.entries.push_back(
                {.name = std::string("lookup/") + names_[below(3)] + suffixes_[below(3)] + ".json",
                 .content = text(/*isLookup=*/true)});
        return zip.build();
    }

    std::string fileName() { return names_[below(3)] + std::string(suffixes_[below(3)]); }

private:
    void addItems(ResourceText& text, bool isLookup) {
        for (std::size_t rest = below(8); rest > 0; --rest) {
            // Distinguishes each record from all others.
            const std::string purpose = "purpose " + std::to_string(++count_);
            const std::string href(1, static_cast<char>('a' + below(4)));
            text.add(isLookup ? docparser_tests::lookupItem(names_[below(3)], href, purpose)
                              : docparser_tests::item(href, purpose));
        }
    }

    static constexpr const char* folders_[] = {"orchard", "cellar", "market", "kit"};
    static constexpr const char* names_[] = {"graft", "prune", "press"};
    static constexpr const char* suffixes_[] = {"", "_de", "_ja"};

    std::mt19937 random_;
    std::size_t count_ = 0;
};

class RandomOriginsTest : public OriginsTest, public testing::WithParamInterface<unsigned> {
protected:
    // The origins of a single name must be the same as among all others.
    static void expectPartOf(const std::vector<SectionOrigins>& all, const SectionOrigins& alone,
                             const std::u16string& name) {
        const auto whole = std::ranges::find(all, alone.key, &SectionOrigins::key);
        ASSERT_NE(whole, all.end());
        std::map<std::u16string, std::vector<SourceRecord>> kept = whole->kept;
        std::erase_if(kept, [&](const auto& records) { return records.first != name; });
        EXPECT_EQ(alone.kept, kept);
        std::vector<LostRecord> lost = whole->lost;
        std::erase_if(lost, [&](const LostRecord& record) { return record.record.key != name; });
        EXPECT_EQ(alone.lost, lost);
    }
};

TEST_P(RandomOriginsTest, CoverEveryRecordOfIndex) {
    RandomFiles files(GetParam());
    folder_.write("installation.json", R"({"supportedDocLanguages": ["en", "de", "ja"],
                    "topLevelProducts": [{"shortName": "orchard"}],
                    "hardwareSupportPackages": ["kit"]})");
    for (std::size_t rest = 2 + files.below(5); rest > 0; --rest)
        addLookup(files.fileName(), files.text(/*isLookup=*/true));
    for (std::size_t rest = files.below(4); rest > 0; --rest)
        folder_.write("help/docCatalog/referenceapi_lookup/" + files.fileName() + ".zip",
                      files.package());
    for (const char16_t* language : {u"en", u"de"}) {
        use(folder_.path(), language);
        const std::vector<SectionOrigins> all = expectIndexExplained();
        expectPlaces(all);
        for (const std::u16string name : {u"graft", u"prune", u"press"}) {
            SectionReader reader(name);
            for (const SectionOrigins& alone : findOrigins(account_, reader))
                expectPartOf(all, alone, name);
        }
    }
}

TEST_P(RandomOriginsTest, CoverEveryItemOfProduct) {
    RandomFiles files(GetParam());
    folder_.write("installation.json",
                  R"({"supportedDocLanguages": ["en", "de"], "supportPackageRoot": "packages"})");
    for (const std::string folder :
         {"help/docCatalog/referenceapi/", "packages/help/docCatalog/referenceapi/"}) {
        for (const std::string name : {"Orchard.json", "Orchard_de.json"}) {
            if (files.below(4) > 0)
                folder_.write(folder + name, files.text(/*isLookup=*/false));
        }
    }
    for (const char16_t* language : {u"en", u"de"}) {
        use(folder_.path(), language);
        expectPlaces(expectProductExplained(u"Orchard"));
    }
}

TEST_P(RandomOriginsTest, CoverEveryRecordOfEachFile) {
    RandomFiles files(GetParam());
    for (std::size_t rest = 4; rest > 0; --rest)
        addLookup(files.fileName(), files.text(/*isLookup=*/true));
    use(folder_.path(), u"de");
    std::multiset<std::u16string> told;
    for (const SectionOrigins& section : expectIndexExplained()) {
        for (const auto& [name, records] : section.kept) {
            for (const SourceRecord& record : records)
                told.insert(record.refPurpose);
        }
        for (const LostRecord& lost : section.lost)
            told.insert(lost.record.refPurpose);
    }
    std::multiset<std::u16string> read;
    const std::vector<SourceFile> sources = sourceFiles(account_);
    SourceTexts texts;
    for (std::size_t file = 0; file < sources.size(); ++file) {
        for (const SourceSection& section :
             readSections(account_.files[file], file, texts.read(sources[file]), std::nullopt)) {
            for (const SourceRecord& record : section.records)
                read.insert(record.refPurpose);
        }
    }
    EXPECT_EQ(told, read);
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomOriginsTest, testing::Range(1U, 31U));

} // namespace
} // namespace refdoc_tests
