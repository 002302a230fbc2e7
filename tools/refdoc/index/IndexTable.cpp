#include "tools/refdoc/index/IndexTable.hpp"

#include "tools/refdoc/index/JsonStrings.hpp"
#include "tools/refdoc/search/CodePoints.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <stdexcept>
#include <utility>

namespace refdoc::site {

namespace {

// Room for the call of refdocIndex() and the brackets around the data.
constexpr std::size_t kOverhead = 64;

// Keys share a number of characters that is written as one digit.
constexpr std::size_t kMostShared = 44;

constexpr char digitOf(std::uint32_t value) {
    const char digit = static_cast<char>('#' + value);
    return digit < '\\' ? digit : static_cast<char>(digit + 1);
}

void appendItem(std::string_view json, std::string& items) {
    if (!items.empty())
        items += ',';
    items += json;
}

bool isWithinPair(std::u16string_view text, std::size_t position) {
    return position > 0 && position < text.size() && isHighSurrogate(text[position - 1]) &&
           isLowSurrogate(text[position]);
}

std::size_t countShared(std::u16string_view left, std::u16string_view right) {
    const auto ends = std::ranges::mismatch(left, right);
    const auto count = static_cast<std::size_t>(ends.in1 - left.begin());
    return isWithinPair(right, count) ? count - 1 : count;
}

// Returns the shortest start of a key that is greater than the key before it, or the key itself.
std::u16string_view separatorOf(std::u16string_view lastKey, std::u16string_view key) {
    const std::size_t size = countShared(lastKey, key) + 1;
    return key.substr(0, isWithinPair(key, size) ? size + 1 : size);
}

} // namespace

void addPart(const AddFile& addFile, const std::string& name, std::string_view json) {
    constexpr std::string_view kForm = "refdocIndex(\"{}\",{:4},{});\n";
    const std::size_t size = fmt::formatted_size(kForm, name, 0, json);
    if (size > kLargestPart)
        throw std::length_error(fmt::format("the part {} of the search index is too large", name));
    addFile(name + ".js", fmt::format(kForm, name, size, json));
}

void appendNumber(std::uint32_t number, std::string& text) {
    constexpr std::uint32_t kBase = 45;
    std::array<char, 6> digits{};
    auto first = digits.end();
    *--first = digitOf(number % kBase);
    while ((number /= kBase) > 0)
        *--first = digitOf(number % kBase + kBase);
    text.append(first, digits.end());
}

IndexTable::IndexTable(std::string name, std::size_t largestPart, const AddFile& addFile)
    : name_(std::move(name)), largestPart_(largestPart), addFile_(addFile) {}

std::size_t IndexTable::add(std::u16string_view key, std::string_view numbers) {
    setRow(std::min(countShared(lastKey_, key), kMostShared), key, numbers);
    if (partCount_ == 0 || rows_.size() + row_.size() > largestPart_ - kOverhead) {
        startPart(key);
        setRow(0, key, numbers);
    }
    appendItem(row_, rows_);
    lastKey_ = key;
    return partCount_ - 1;
}

void IndexTable::setRow(std::size_t sharedCount, std::u16string_view key,
                        std::string_view numbers) {
    row_ = '"';
    appendNumber(static_cast<std::uint32_t>(sharedCount), row_);
    row_ += numbers;
    row_ += ' ';
    appendJson(key.substr(sharedCount), row_);
    row_ += '"';
}

std::string IndexTable::finish() {
    if (partCount_ > 0) {
        finishPart();
        finishDirectory();
    }
    return '[' + directories_ + ']';
}

void IndexTable::startPart(std::u16string_view key) {
    if (partCount_ > 0)
        finishPart();
    std::string separator = "\"";
    appendJson(separatorOf(lastKey_, key), separator);
    separator += '"';
    if (separators_.size() + separator.size() > kLargestPart - kOverhead)
        finishDirectory();
    if (separators_.empty()) {
        firstPart_ = partCount_;
        appendItem(separator, directories_);
    }
    appendItem(separator, separators_);
    ++partCount_;
}

void IndexTable::finishPart() {
    addPart(addFile_, fmt::format("{}{}", name_, partCount_ - 1), '[' + rows_ + ']');
    rows_.clear();
}

void IndexTable::finishDirectory() {
    addPart(addFile_, fmt::format("{}-d{}", name_, directoryCount_++),
            fmt::format("[{},{}]", firstPart_, std::exchange(separators_, {})));
}

} // namespace refdoc::site
