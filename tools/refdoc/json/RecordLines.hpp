#pragma once

#include "docparser/json/RecordFields.hpp"
#include "docparser/json/ToJson.hpp"
#include "tools/refdoc/json/JsonText.hpp"

#include <string>

namespace refdoc {

/// Returns the `--jsonl` output of sections: a line for each record, in the order of the sections,
/// with its "product", the key of its "section", the "language" of the call, whether the section is
/// "installed", and the "record" itself.
///
/// \param isInstalled  called with the key of each section
template <class T, class IsInstalled>
std::string recordLines(const reference::docparser::ResourceMap<T>& sections,
                        const std::u16string& language, const IsInstalled& isInstalled) {
    using reference::json::toJson;
    std::string lines;
    for (const auto& [key, resource] : sections) {
        boost::json::object line{{"product", toJson(resource.header.getProduct())},
                                 {"section", toJson(key)},
                                 {"language", toJson(language)},
                                 {"installed", isInstalled(key)}};
        for (const auto& [name, records] : resource.items) {
            for (const T& record : records) {
                line["record"] = toJson(record);
                lines += toJsonLine(line);
            }
        }
    }
    return lines;
}

} // namespace refdoc
