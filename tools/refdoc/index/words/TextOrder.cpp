#include "tools/refdoc/index/words/TextOrder.hpp"

#include <bit>

namespace refdoc::site {

void TextOrder::numberUnits() {
    std::uint32_t count = 0; // 0 means the end of a text
    for (std::uint32_t& number : numbers_)
        number = number == 0 ? 0 : ++count;
    bitsOfUnit_ = static_cast<unsigned>(std::bit_width(count));
    firstShift_ = bitsOfUnit_ == 0 ? 0 : (64 / bitsOfUnit_ - 1) * bitsOfUnit_;
}

} // namespace refdoc::site
