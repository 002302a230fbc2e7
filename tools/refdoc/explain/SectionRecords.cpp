#include "tools/refdoc/explain/SectionRecords.hpp"

#include "docparser/DocResourceParser.hpp"
#include "docparser/parsing/TextPlaces.hpp"
#include "platform/Failure.hpp"

#include <boost/json/monotonic_resource.hpp>
#include <boost/json/parse.hpp>

#include <algorithm>
#include <utility>

namespace refdoc {

namespace json = boost::json;
using namespace reference::docparser;
using platform::ignoreFailure;
using Tools = DocResourceParser::ParsingTools;

namespace {

SourceRecord recordOf(const json::object& element, FileRole role) {
    std::u16string href = Tools::getFluString(element, "href", StringParsingType::Ascii);
    std::u16string name = role == FileRole::Lookup
                              ? Tools::getFluString(element, "name", StringParsingType::Utf8)
                              : href;
    return {.key = std::move(name),
            .href = std::move(href),
            .refPurpose = Tools::getFluString(element, "refpurpose", StringParsingType::Utf8)};
}

void readRecords(const json::value& document, FileRole role,
                 const std::optional<std::u16string>& key, SourceSection& section) {
    const std::string list = section.header.pointer + "/refItems";
    std::size_t number = 0;
    for (const json::value& element : document.at_pointer(list).as_array()) {
        SourceRecord record = recordOf(element.as_object(), role);
        const std::string pointer = list + '/' + std::to_string(number++);
        if (key && record.key != *key)
            continue;
        record.origin = {.file = section.header.file, .pointer = pointer};
        section.records.push_back(std::move(record));
    }
}

void findPositions(const std::string& text, std::vector<SourceSection>& sections) {
    std::vector<Origin*> origins;
    for (SourceSection& section : sections) {
        origins.push_back(&section.header);
        for (SourceRecord& record : section.records)
            origins.push_back(&record.origin);
    }
    std::vector<std::string> pointers;
    pointers.reserve(origins.size());
    for (const Origin* origin : origins)
        pointers.push_back(origin->pointer);
    const auto places = findValues(text, pointers);
    for (std::size_t index = 0; index < origins.size(); ++index) {
        if (places[index])
            origins[index]->place = places[index]->value;
    }
}

bool hasPointers(const std::vector<SourceSection>& sections,
                 const std::vector<SectionAccount>& expected) {
    return std::ranges::equal(
        sections, expected, {},
        [](const SourceSection& section) -> const std::string& { return section.header.pointer; },
        &SectionAccount::pointer);
}

} // namespace

std::vector<SourceSection> readSections(const FileAccount& file, std::size_t index,
                                        const std::string& text,
                                        const std::optional<std::u16string>& key) {
    std::vector<SourceSection> sections;
    sections.reserve(file.sections.size());
    for (const SectionAccount& section : file.sections)
        sections.push_back({.header = {.file = index, .pointer = section.pointer}});
    if (text.empty())
        return sections;
    // The library could read the text, so a failure means that the file has changed.
    ignoreFailure([&] {
        json::monotonic_resource memory;
        const json::value document = json::parse(text, &memory);
        for (SourceSection& section : sections)
            readRecords(document, file.role, key, section);
        findPositions(text, sections);
    });
    return sections;
}

std::vector<SourceSection> SectionReader::read(const FileAccount& file, std::size_t index,
                                               const SourceFile& source) {
    std::vector<SourceSection>& sections = read_[source];
    // If the file changed between two retrievals, its sections may be others.
    if (!hasPointers(sections, file.sections))
        sections = readSections(file, index, texts_.read(source), key_);
    std::vector<SourceSection> copies = sections;
    for (SourceSection& section : copies) {
        section.header.file = index;
        for (SourceRecord& record : section.records)
            record.origin.file = index;
    }
    return copies;
}

} // namespace refdoc
