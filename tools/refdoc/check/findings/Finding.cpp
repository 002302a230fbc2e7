#include "tools/refdoc/check/findings/Finding.hpp"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <utility>

namespace refdoc::check {

std::string_view toWord(Severity severity) noexcept {
    switch (severity) {
    case Severity::Note: return "note";
    case Severity::Warning: return "warning";
    case Severity::Error: return "error";
    }
    return {};
}

void addFindings(std::vector<Finding>& found, const SourceFile& file, Findings& findings) {
    if (!found.empty())
        std::ranges::move(found, std::back_inserter(findings[file]));
}

void findPositions(std::string_view text, const std::vector<Location*>& locations) {
    std::vector<Location*> wanted;
    std::vector<std::string> pointers;
    for (Location* location : locations) {
        if (!location->pointer || location->position)
            continue;
        wanted.push_back(location);
        pointers.push_back(std::move(*location->pointer));
    }
    if (wanted.empty())
        return;
    const auto places = reference::docparser::findValues(text, pointers);
    for (std::size_t index = 0; index < wanted.size(); ++index) {
        Location& location = *wanted[index];
        location.pointer = std::move(pointers[index]);
        if (const auto& place = places[index])
            location.position = location.isAtKey && place->key ? place->key : place->value;
    }
}

} // namespace refdoc::check
