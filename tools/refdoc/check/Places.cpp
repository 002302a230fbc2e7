#include "tools/refdoc/check/Places.hpp"

#include "tools/refdoc/SourceTexts.hpp"

#include <map>
#include <string>

namespace refdoc::check {

using reference::docparser::findValues;
using reference::docparser::ValuePlace;

void findPlaces(std::vector<Finding>& findings) {
    std::map<SourceFile, std::vector<Spot*>> files;
    auto current = files.end(); // most spots lie in the file of the previous one
    const auto want = [&](Spot& spot) {
        if (!spot.pointer || spot.place)
            return;
        if (current == files.end() || current->first != spot.file)
            current = files.try_emplace(spot.file).first;
        current->second.push_back(&spot);
    };
    for (Finding& finding : findings)
        want(finding.spot);
    for (Finding& finding : findings) {
        for (RelatedSpot& related : finding.related)
            want(related.spot);
    }

    SourceTexts texts;
    for (const auto& [file, spots] : files) {
        std::vector<std::string> pointers;
        for (const Spot* spot : spots)
            pointers.push_back(*spot->pointer);
        const auto places = findValues(texts.read(file), pointers);
        for (std::size_t index = 0; index < spots.size(); ++index) {
            if (const std::optional<ValuePlace>& found = places[index])
                spots[index]->place =
                    spots[index]->isAtKey && found->key ? found->key : found->value;
        }
    }
}

} // namespace refdoc::check
