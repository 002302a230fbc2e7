#include "platform/i18n/Converter.hpp"
#include "tools/refdoc/explain/Explanation.hpp"

namespace refdoc {

using namespace reference::docparser;
using fl::i18n::to_ustring;

namespace {

void writeNumber(JsonWriter& json, std::string_view name, std::size_t number) {
    json.key(name);
    json.number(number);
}

void writeWord(JsonWriter& json, std::string_view name, std::string_view word) {
    json.key(name);
    json.word(word);
}

void writePlace(JsonWriter& json, const std::optional<TextPlace>& place) {
    json.key("place");
    if (!place) {
        json.null();
        return;
    }
    json.beginObject();
    writeNumber(json, "offset", place->offset);
    writeNumber(json, "line", place->line);
    writeNumber(json, "column", place->column);
    json.endObject();
}

void writeOrigin(JsonWriter& json, std::string_view name, const Origin& origin) {
    json.key(name);
    json.beginObject();
    writeNumber(json, "file", origin.file);
    json.member("pointer", to_ustring(origin.pointer));
    writePlace(json, origin.place);
    json.endObject();
}

void writeSectionAccount(JsonWriter& json, const SectionAccount& section) {
    json.beginObject();
    json.member("key", section.key);
    json.member("pointer", to_ustring(section.pointer));
    writeWord(json, "fate", toWord(section.fate));
    writeNumber(json, "other", section.other);
    json.endObject();
}

void writeFile(JsonWriter& json, const FileAccount& file) {
    json.beginObject();
    writeWord(json, "role", toWord(file.role));
    json.member("path", file.path);
    json.member("entry", file.entry);
    json.key("isTranslation");
    json.boolean(file.isTranslation);
    writeWord(json, "fate", toWord(file.fate));
    json.member("reason", to_ustring(file.reason));
    json.member("pointer", to_ustring(file.pointer));
    writePlace(json, file.place);
    json.key("sections");
    json.beginArray();
    for (const SectionAccount& section : file.sections)
        writeSectionAccount(json, section);
    json.endArray();
    json.endObject();
}

// The members that records have whether they were kept or lost.
void writeRecord(JsonWriter& json, const SourceRecord& record) {
    json.member("href", record.href);
    json.member("refPurpose", record.refPurpose);
    writeOrigin(json, "origin", record.origin);
}

void writeKept(JsonWriter& json, const SectionOrigins& section) {
    json.key("items");
    json.beginObject();
    for (const auto& [key, records] : section.kept) {
        json.key(key);
        json.beginArray();
        for (const SourceRecord& record : records) {
            json.beginObject();
            writeRecord(json, record);
            json.endObject();
        }
        json.endArray();
    }
    json.endObject();
}

void writeLost(JsonWriter& json, const SectionOrigins& section) {
    json.key("droppedHeaders");
    json.beginArray();
    for (const LostHeader& lost : section.lostHeaders) {
        json.beginObject();
        writeOrigin(json, "origin", lost.header);
        writeWord(json, "rule", toWord(lost.fate));
        writeNumber(json, "winner", lost.winner);
        json.endObject();
    }
    json.endArray();
    json.key("droppedRecords");
    json.beginArray();
    for (const LostRecord& lost : section.lost) {
        json.beginObject();
        json.member("key", lost.record.key);
        writeRecord(json, lost.record);
        writeWord(json, "rule", toWord(lost.fate));
        writeNumber(json, "winner", lost.winner);
        json.endObject();
    }
    json.endArray();
}

void writeSection(JsonWriter& json, const SectionOrigins& section, bool isLookup) {
    json.beginObject();
    json.member("key", section.key);
    if (isLookup) {
        json.key("isInstalled");
        json.boolean(section.isInstalled);
    }
    writeOrigin(json, "header", section.header);
    writeKept(json, section);
    writeLost(json, section);
    json.endObject();
}

} // namespace

std::string explanationDocument(const Explanation& explanation, JsonWriter::Layout layout) {
    JsonWriter json(layout);
    json.beginObject();
    if (explanation.product)
        json.member("product", *explanation.product);
    if (explanation.href)
        json.member("href", *explanation.href);
    if (explanation.name)
        json.member("name", *explanation.name);
    json.member("language", explanation.language);
    json.key("files");
    json.beginArray();
    for (const FileAccount& file : explanation.account.files)
        writeFile(json, file);
    json.endArray();
    json.key("sections");
    json.beginArray();
    for (const SectionOrigins& section : explanation.sections)
        writeSection(json, section, explanation.name.has_value());
    json.endArray();
    json.endObject();
    return json.take();
}

} // namespace refdoc
