#include "tools/refdoc/translations/LookupReader.hpp"

#include "docparser/DocResourceParser.hpp"
#include "docparser/Queries.hpp"
#include "tools/refdoc/session/HostOverrides.hpp"
#include "tools/refdoc/session/SourceTexts.hpp"
#include "tools/refdoc/translations/Damage.hpp"

#include <cstddef>
#include <set>
#include <utility>

namespace refdoc::translations {

using namespace reference::docparser;
using Tools = DocResourceParser::ParsingTools;

namespace {

struct Sides {
    LookupRecords english{};
    LookupRecords translation{};
    std::set<Key> dropped{};
};

Key keyOf(const IndexEntry& entry) {
    return {*entry.section, entry.record->getName(), entry.record->getHref()};
}

bool isDropped(const RecordAccount& record) {
    return record.fate == RecordFate::DroppedHref || record.fate == RecordFate::DroppedCount;
}

// The sections of the language files that the library drops as a whole. Only their text has the
// records.
std::vector<std::pair<std::u16string_view, SourceSection>>
droppedSections(const LoadAccount& account, SectionReader& reader) {
    std::vector<std::pair<std::u16string_view, SourceSection>> dropped;
    const std::vector<SourceFile> sources = sourceFiles(account);
    for (std::size_t index = 0; index < account.files.size(); ++index) {
        const FileAccount& file = account.files[index];
        for (std::size_t number = 0; number < file.sections.size(); ++number) {
            const SectionAccount& section = file.sections[number];
            const bool isUnused =
                section.fate == SectionFate::KeyTaken || section.fate == SectionFate::Unused;
            if (file.isTranslation && isUnused)
                dropped.emplace_back(section.key, reader.read(file, index, sources[index])[number]);
        }
    }
    return dropped;
}

// Calls use(key) for each record of a language file that the library drops.
// \param sections  the result of droppedSections()
template <class Sections, class Use>
void forEachDropped(const LoadAccount& account, const Sections& sections, const Use& use) {
    for (const FileAccount& file : account.files) {
        for (const SectionAccount& section : file.sections) {
            for (const RecordAccount& record : section.records) {
                if (isDropped(record) && account.files[record.file].isTranslation)
                    use(Key{section.key, record.name, record.href});
            }
        }
    }
    for (const auto& [key, section] : sections) {
        for (const SourceRecord& record : section.records)
            use(Key{key, record.key, record.href});
    }
}

std::map<std::u16string, Comparison>
compareEach(const std::map<std::u16string_view, Sides>& sides) {
    std::map<std::u16string, Comparison> comparisons;
    for (const auto& [product, side] : sides)
        comparisons.emplace(product, compareLookups(side.english, side.translation, side.dropped));
    return comparisons;
}

} // namespace

LookupReader::LookupReader(bool wantsPositions)
    : wantsPositions_(wantsPositions), english_(read(Tools::kEnglishLocale)) {
    addProducts(english_, products_);
    addDamaged(english_.account, Tools::kEnglishLocale, /*isTranslation=*/false, damaged_);
}

LookupReader::Index LookupReader::read(const std::u16string& language) {
    const LanguageGuard current(language);
    Index index;
    const LoadAccount::Scope scope(index.account);
    index.entries = DocResourceParser::getResourceLookupFiles();
    return index;
}

void LookupReader::addProducts(const Index& index, Products& products) {
    for (const auto* sections : {&index.entries.installed, &index.entries.notInstalled}) {
        for (const auto& [key, section] : *sections)
            products.try_emplace(key, section.header.getProduct());
    }
}

std::map<std::u16string, Comparison> LookupReader::compare(const std::u16string& language) {
    const Index index = read(language);
    addDamaged(index.account, language, /*isTranslation=*/true, damaged_);
    Products products = products_;
    addProducts(index, products);
    const auto dropped = droppedSections(index.account, reader_);

    std::map<std::u16string_view, Sides> sides;
    const auto sidesOf = [&](const Key& key) -> Sides& { return sides[products[key.section]]; };
    forEachEntry(english_.entries, [&](const IndexEntry& entry) {
        const Key key = keyOf(entry);
        sidesOf(key).english.try_emplace(key, entry.record);
    });
    const EnglishEntries english(index.account);
    forEachEntry(index.entries, [&](const IndexEntry& entry) {
        const Key key = keyOf(entry);
        if (!english.hasEntry(*entry.section, *entry.record))
            sidesOf(key).translation.try_emplace(key, entry.record);
    });
    forEachDropped(index.account, dropped,
                   [&](const Key& key) { sidesOf(key).dropped.insert(key); });

    std::map<std::u16string, Comparison> comparisons = compareEach(sides);
    if (wantsPositions_)
        addAllPositions(index, comparisons);
    return comparisons;
}

void LookupReader::addAllPositions(const Index& index,
                                   std::map<std::u16string, Comparison>& comparisons) {
    if (!englishPositions_)
        englishPositions_.emplace(english_.account, reader_, /*isTranslation=*/false);
    const Positions translation(index.account, reader_, /*isTranslation=*/true);
    for (auto& [product, comparison] : comparisons)
        addPositions(comparison, *englishPositions_, translation);
}

} // namespace refdoc::translations
