#include "benchmarks/rows/Floors.hpp"

#include "benchmarks/peers/Peers.hpp"
#include "docparser/parsing/DocumentParser.hpp"

namespace reference::docparser::benchmarks {

std::size_t parseOnly(std::string_view text) {
    boost::json::monotonic_resource arena(1024);
    const boost::json::value document = parseDocument(text, arena);
    return document.is_object() ? 1 : 0;
}

ProductText copyOf(const ProductText& text) {
    ProductText copy{{}, text.product};
    copy.text.reserve(text.text.size() + kSpareBytes);
    copy.text = text.text;
    return copy;
}

std::vector<ProductText> copyOf(const std::vector<ProductText>& texts) {
    std::vector<ProductText> copies;
    copies.reserve(texts.size());
    for (const ProductText& text : texts)
        copies.push_back(copyOf(text));
    return copies;
}

std::size_t bytesOf(const std::vector<ProductText>& texts) {
    std::size_t bytes = 0;
    for (const ProductText& text : texts)
        bytes += text.text.size();
    return bytes;
}

} // namespace reference::docparser::benchmarks
