// Reads arbitrary bytes as a full resource file.

#include "docparser/parsing/ItemParser.hpp"
#include "fuzz/support/ResourceTextRules.hpp"
#include "fuzz/support/Target.hpp"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    using reference::property::RefItem;
    docparser_fuzz::requireReadOrRefused<RefItem>(
        {bytes, bytes + size}, reference::docparser::parseRefItemSection, &RefItem::getHref);
    return 0;
}
