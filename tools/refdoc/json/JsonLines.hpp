#pragma once

#include "tools/refdoc/json/JsonOutput.hpp"

#include <string>

namespace refdoc {

// `--jsonl`: a line for each record, in the order of `--json`. Every line is a document of its own,
// an object: "product", "section" (its key), "language" (the documentation language of the call),
// "installed" (whether the section is), "record" (as `--json` has it).

/// Appends the records of the sections.
/// \param language     the documentation language
/// \param isInstalled  called with the key of each section
template <class T, class IsInstalled>
void addRecordLines(std::string& lines, const reference::docparser::ResourceMap<T>& sections,
                    const std::u16string& language, const IsInstalled& isInstalled) {
    for (const auto& [key, resource] : sections) {
        const bool installed = isInstalled(key);
        for (const auto& [name, records] : resource.items) {
            for (const T& record : records) {
                JsonWriter json(JsonWriter::Layout::OneLine);
                json.beginObject();
                json.member("product", resource.header.getProduct());
                json.member("section", key);
                json.member("language", language);
                json.key("installed");
                json.boolean(installed);
                json.key("record");
                writeRecord(json, record);
                json.endObject();
                lines += json.take();
            }
        }
    }
}

} // namespace refdoc
