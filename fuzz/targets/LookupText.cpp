// Reads arbitrary bytes as a lookup file, and merges two of its sections.

#include "docparser/parsing/LookupParser.hpp"
#include "docparser/retrieval/LookupMerge.hpp"
#include "fuzz/support/ResourceTextRules.hpp"
#include "fuzz/support/Target.hpp"

#include <algorithm>
#include <exception>
#include <string>
#include <vector>

namespace {

using reference::property::RefItemLookup;
using Items = reference::docparser::DocResource<RefItemLookup>::Items;

// A simple reference implementation of the merge, at quadratic cost.
Items mergeByRule(Items target, const Items& source) {
    for (const auto& [name, records] : source) {
        const auto [entry, isNew] = target.try_emplace(name, records);
        if (isNew || entry->second.size() >= records.size())
            continue;
        std::vector<RefItemLookup>& known = entry->second;
        for (const RefItemLookup& record : records) {
            if (std::ranges::none_of(known, [&](const RefItemLookup& other) {
                    return other.getHref() == record.getHref();
                }))
                known.push_back(record);
        }
    }
    return target;
}

void mergeSections(const std::string& text) {
    using namespace reference::docparser;
    ResourceMap<RefItemLookup> sections;
    try {
        sections = parseResourceText<RefItemLookup>(text, u"Orchard", parseRefItemLookupSection,
                                                    unobserved);
    } catch (const std::exception&) {
        return; // requireReadOrRefused() has checked the failure
    }
    Items target = sections.begin()->second.items;
    Items source = sections.rbegin()->second.items;
    const Items expected = mergeByRule(target, source);
    mergeLookupItems(target, source, unobserved);
    docparser_fuzz::require(target == expected,
                            "a merge equals that of the reference implementation");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    const std::string text(bytes, bytes + size);
    docparser_fuzz::requireReadOrRefused<RefItemLookup>(
        text, reference::docparser::parseRefItemLookupSection, &RefItemLookup::getName);
    mergeSections(text);
    return 0;
}
