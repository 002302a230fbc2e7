#pragma once

#include <boost/sort/spreadsort/integer_sort.hpp>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace refdoc::site {

/// The order of texts by their code units, as numbers that have the start of each text. The fewer
/// different code units the texts have, the more of them fit into a number.
class TextOrder {
public:
    /// \param count   the number of texts
    /// \param textAt  returns the text at a position; they have all code units that are used later
    template <typename TextAt>
    TextOrder(std::size_t count, TextAt textAt) : numbers_(0x10000) {
        for (std::size_t at = 0; at < count; ++at) {
            for (const char16_t unit : textAt(at))
                numbers_[unit] = 1;
        }
        numberUnits();
    }

    /// Returns the number of a text from a code unit and the number of the text after it; that of
    /// the empty text is 0. If two texts do not differ in what fits, their numbers are equal.
    std::uint64_t prepend(char16_t unit, std::uint64_t rest) const {
        return (std::uint64_t{numbers_[unit]} << firstShift_) | (rest >> bitsOfUnit_);
    }

    /// Returns the number of a text.
    std::uint64_t of(std::u16string_view text) const {
        std::uint64_t order = 0;
        for (std::size_t at = text.size(); at-- > 0;)
            order = prepend(text[at], order);
        return order;
    }

    /// Sorts elements by their texts, and those with equal texts by a number. Far faster than a
    /// sort that only compares texts, because the texts are all over the memory.
    /// \param elements  each has the number of its text as `order`
    /// \param textOf    returns the text of an element
    /// \param number    differs in elements with equal texts
    template <typename Element, typename TextOf>
    void sort(std::vector<Element>& elements, TextOf textOf, std::uint32_t Element::*number) const {
        boost::sort::spreadsort::integer_sort(
            elements.begin(), elements.end(),
            [](const Element& element, unsigned offset) { return element.order >> offset; },
            [](const Element& left, const Element& right) { return left.order < right.order; });
        const auto compareTexts = [&](const Element& left, const Element& right) {
            return isComplete(left.order) ? 0 : textOf(left).compare(textOf(right));
        };
        for (auto begin = elements.begin(); begin != elements.end();) {
            const auto end = std::find_if(begin, elements.end(), [&](const Element& element) {
                return element.order != begin->order;
            });
            std::sort(begin, end, [&](const Element& left, const Element& right) {
                const int result = compareTexts(left, right);
                return result != 0 ? result < 0 : left.*number < right.*number;
            });
            begin = end;
        }
    }

private:
    void numberUnits();

    // Returns whether no other text has the number. The last code unit that fits is the lowest.
    bool isComplete(std::uint64_t order) const {
        return (order & ((std::uint64_t{1} << bitsOfUnit_) - 1)) == 0;
    }

    std::vector<std::uint32_t> numbers_; // by code unit
    unsigned bitsOfUnit_ = 0;
    unsigned firstShift_ = 0; // of the first code unit in a number
};

/// Returns the positions of texts in the order of the texts. Equal texts keep their order.
/// \param textAt  returns the text at a position
template <typename TextAt>
std::vector<std::uint32_t> sortedPositions(std::size_t count, TextAt textAt) {
    struct Text {
        std::uint64_t order = 0;
        std::uint32_t position = 0;
    };
    const TextOrder order(count, textAt);
    std::vector<Text> texts;
    texts.reserve(count);
    for (std::size_t at = 0; at < count; ++at)
        texts.push_back({order.of(textAt(at)), static_cast<std::uint32_t>(at)});
    order.sort(
        texts, [&](const Text& text) -> std::u16string_view { return textAt(text.position); },
        &Text::position);
    std::vector<std::uint32_t> positions(count);
    std::ranges::transform(texts, positions.begin(), &Text::position);
    return positions;
}

} // namespace refdoc::site
