#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace refdoc {

/// Writes one JSON document in UTF-8 and a line feed at its end.
///
/// The caller keeps to the grammar: a key before each value of an object, an end for each begin.
/// Unpaired surrogates become U+FFFD; control characters, those above U+007F too, are escaped.
class JsonWriter {
public:
    enum class Layout {
        Indented, ///< two spaces a level
        OneLine   ///< nothing within it ends a line, for any reader's idea of a line
    };

    explicit JsonWriter(Layout layout = Layout::Indented) : layout_(layout) {}

    void beginObject();
    void endObject();
    void beginArray();
    void endArray();

    void key(std::string_view name);
    void key(std::u16string_view name);

    void text(std::u16string_view value);
    /// \param word  UTF-8 that needs no escape
    void word(std::string_view word);
    void boolean(bool value);
    void number(std::uint64_t value);
    void null();

    /// `key` and the text under it.
    void member(std::string_view name, std::u16string_view value);

    /// The document, once the outermost value is complete.
    std::string take();

private:
    void beginValue();
    void begin(char bracket);
    void end(char bracket);
    void newLine();
    bool isPlain(char16_t unit) const noexcept;
    void quoted(std::u16string_view text);

    Layout layout_;
    std::string document_;
    std::size_t depth_ = 0;
    bool isFirst_ = true; // nothing stands yet in the object or array that is open
    bool afterKey_ = false;
};

} // namespace refdoc
