#include "docparser/json/AccountFields.hpp"
#include "docparser/json/ToJson.hpp"
#include "tools/refdoc/explain/Explanation.hpp"
#include "tools/refdoc/json/JsonText.hpp"

namespace reference::json {

using refdoc::LostHeader;
using refdoc::LostRecord;
using refdoc::Origin;
using refdoc::SourceRecord;

template <>
inline constexpr auto kFields<Origin> =
    std::tuple{Field{"file", &Origin::file}, Field{"pointer", &Origin::pointer},
               Field{"place", &Origin::place}};

template <>
inline constexpr auto kFields<SourceRecord> =
    std::tuple{Field{"href", &SourceRecord::href}, Field{"refPurpose", &SourceRecord::refPurpose},
               Field{"origin", &SourceRecord::origin}};

template <>
inline constexpr auto kFields<LostHeader> =
    std::tuple{Field{"origin", &LostHeader::header},
               Field{"rule", [](const LostHeader& lost) { return refdoc::toWord(lost.fate); }},
               Field{"winner", &LostHeader::winner}};

template <>
inline constexpr auto kFields<LostRecord> =
    std::tuple{Field{"key", [](const LostRecord& lost) { return lost.record.key; }},
               Field{"href", [](const LostRecord& lost) { return lost.record.href; }},
               Field{"refPurpose", [](const LostRecord& lost) { return lost.record.refPurpose; }},
               Field{"origin", [](const LostRecord& lost) { return lost.record.origin; }},
               Field{"rule", [](const LostRecord& lost) { return refdoc::toWord(lost.fate); }},
               Field{"winner", &LostRecord::winner}};

} // namespace reference::json

namespace refdoc {

using reference::docparser::FileAccount;
using reference::json::toJson;
namespace json = boost::json;

namespace {

// The members that are left out are in the "sections" of the explanation, record by record.
json::value filesDocument(const std::vector<FileAccount>& files) {
    json::value document = toJson(files);
    for (json::value& file : document.as_array()) {
        for (json::value& section : file.at("sections").as_array()) {
            section.as_object().stable_erase("isInstalled");
            section.as_object().stable_erase("records");
        }
    }
    return document;
}

json::value sectionDocument(const SectionOrigins& section, bool isLookup) {
    json::object document{{"key", toJson(section.key)}};
    if (isLookup)
        document["isInstalled"] = section.isInstalled;
    document["header"] = toJson(section.header);
    document["items"] = toJson(section.kept);
    document["droppedHeaders"] = toJson(section.lostHeaders);
    document["droppedRecords"] = toJson(section.lost);
    return document;
}

// Makes the lines of one explanation.
class Lines {
public:
    explicit Lines(const Explanation& explanation) : explanation_(explanation) {}

    std::string make() {
        for (const SectionOrigins& section : explanation_.sections) {
            for (const auto& [key, records] : section.kept) {
                for (const SourceRecord& record : records)
                    add(section, record, {{"rule", nullptr}, {"winner", nullptr}});
            }
            for (const LostRecord& lost : section.lost)
                add(section, lost.record,
                    {{"rule", toWord(lost.fate)}, {"winner", fileDocument(lost.winner)}});
        }
        return std::move(lines_);
    }

private:
    json::object fileDocument(std::size_t index) const {
        const FileAccount& file = explanation_.account.files[index];
        return {{"path", toJson(file.path)}, {"entry", toJson(file.entry)}};
    }

    void add(const SectionOrigins& section, const SourceRecord& record, json::object decision) {
        json::object line{{"section", toJson(section.key)},
                          {"language", toJson(explanation_.language)},
                          {"key", toJson(record.key)},
                          {"href", toJson(record.href)},
                          {"refPurpose", toJson(record.refPurpose)},
                          {"file", fileDocument(record.origin.file)},
                          {"pointer", toJson(record.origin.pointer)},
                          {"place", toJson(record.origin.place)}};
        line.insert(decision.begin(), decision.end());
        lines_ += toJsonLine(line);
    }

    const Explanation& explanation_;
    std::string lines_{};
};

} // namespace

std::string explanationDocument(const Explanation& explanation) {
    json::object document;
    if (explanation.product)
        document["product"] = toJson(*explanation.product);
    if (explanation.href)
        document["href"] = toJson(*explanation.href);
    if (explanation.name)
        document["name"] = toJson(*explanation.name);
    document["language"] = toJson(explanation.language);
    document["files"] = filesDocument(explanation.account.files);
    json::array& sections = document["sections"].emplace_array();
    for (const SectionOrigins& section : explanation.sections)
        sections.push_back(sectionDocument(section, explanation.name.has_value()));
    return toIndentedJson(document);
}

std::string explanationLines(const Explanation& explanation) {
    return Lines(explanation).make();
}

} // namespace refdoc
