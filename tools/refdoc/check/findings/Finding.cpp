#include "tools/refdoc/check/findings/Finding.hpp"

#include "tools/refdoc/check/findings/ItemNames.hpp"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <utility>

namespace refdoc::check {

namespace {

// A finding about a key concerns the object that has it.
void nameItem(const boost::json::value& document, Location& location) {
    if (!location.pointer)
        return;
    std::string_view pointer = *location.pointer;
    if (location.isAtKey)
        pointer = pointer.substr(0, pointer.rfind('/'));
    location.item = itemNameAt(document, pointer);
}

} // namespace

std::string_view toWord(Severity severity) noexcept {
    switch (severity) {
    case Severity::Note: return "note";
    case Severity::Warning: return "warning";
    case Severity::Error: return "error";
    }
    return {};
}

void addFindings(std::vector<Finding>& found, const SourceFile& file, Findings& findings) {
    if (found.empty())
        return;
    std::vector<Finding>& all = findings[file];
    if (all.empty())
        all = std::move(found);
    else
        std::ranges::move(found, std::back_inserter(all));
}

void resolveLocations(std::string_view text, const boost::json::value& document,
                      const std::vector<Location*>& locations) {
    for (Location* location : locations)
        nameItem(document, *location);
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
