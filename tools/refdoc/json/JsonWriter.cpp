#include "tools/refdoc/json/JsonWriter.hpp"

#include "platform/i18n/Converter.hpp"

#include <fmt/format.h>

#include <iterator>
#include <utility>

namespace refdoc {

namespace {

// The escape of a character that can't stand for itself.
std::string escapeOf(char16_t unit) {
    switch (unit) {
    case u'"': return "\\\"";
    case u'\\': return "\\\\";
    case u'\n': return "\\n";
    case u'\r': return "\\r";
    case u'\t': return "\\t";
    default: return fmt::format("\\u{:04x}", static_cast<unsigned>(unit));
    }
}

} // namespace

void JsonWriter::beginObject() {
    begin('{');
}

void JsonWriter::endObject() {
    end('}');
}

void JsonWriter::beginArray() {
    begin('[');
}

void JsonWriter::endArray() {
    end(']');
}

void JsonWriter::key(std::string_view name) {
    key(fl::i18n::to_ustring(name));
}

void JsonWriter::key(std::u16string_view name) {
    beginValue();
    quoted(name);
    document_ += ": ";
    afterKey_ = true;
}

void JsonWriter::text(std::u16string_view value) {
    beginValue();
    quoted(value);
}

void JsonWriter::word(std::string_view word) {
    beginValue();
    fmt::format_to(std::back_inserter(document_), "\"{}\"", word);
}

void JsonWriter::boolean(bool value) {
    beginValue();
    document_ += value ? "true" : "false";
}

void JsonWriter::number(std::uint64_t value) {
    beginValue();
    document_ += std::to_string(value);
}

void JsonWriter::null() {
    beginValue();
    document_ += "null";
}

void JsonWriter::member(std::string_view name, std::u16string_view value) {
    key(name);
    text(value);
}

std::string JsonWriter::take() {
    document_ += '\n';
    return std::move(document_);
}

void JsonWriter::beginValue() {
    if (std::exchange(afterKey_, false) || depth_ == 0)
        return;
    if (!std::exchange(isFirst_, false))
        document_ += ',';
    newLine();
}

void JsonWriter::begin(char bracket) {
    beginValue();
    document_ += bracket;
    ++depth_;
    isFirst_ = true;
}

void JsonWriter::end(char bracket) {
    --depth_;
    if (!std::exchange(isFirst_, false))
        newLine();
    document_ += bracket;
}

void JsonWriter::newLine() {
    if (layout_ == Layout::OneLine) {
        if (document_.back() == ',')
            document_ += ' ';
        return;
    }
    document_ += '\n';
    document_.append(2 * depth_, ' ');
}

bool JsonWriter::isPlain(char16_t unit) const noexcept {
    const bool isSeparator = unit == u'\x2028' || unit == u'\x2029'; // of lines and paragraphs
    return unit >= 0x20 && unit != u'"' && unit != u'\\' && (unit < 0x7F || unit > 0x9F) &&
           !(isSeparator && layout_ == Layout::OneLine);
}

void JsonWriter::quoted(std::u16string_view text) {
    document_ += '"';
    std::size_t start = 0;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (isPlain(text[at]))
            continue;
        document_ += fl::i18n::to_string(text.substr(start, at - start));
        document_ += escapeOf(text[at]);
        start = at + 1;
    }
    document_ += fl::i18n::to_string(text.substr(start));
    document_ += '"';
}

} // namespace refdoc
