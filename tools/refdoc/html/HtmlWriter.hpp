#pragma once

#include <concepts>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>

namespace refdoc::html {

/// The name of an element or attribute. Only a literal converts to it, so that no data can become
/// markup.
class Name {
public:
    consteval Name(const char* literal) : text_(literal) {}

    constexpr std::string_view text() const noexcept { return text_; }

private:
    std::string_view text_;
};

/// An attribute of an element.
struct Attribute {
    Name name;
    std::optional<std::string_view> value; ///< UTF-8; empty: the name is written
                                           ///< alone; absent: the attribute is left out
};

using Attributes = std::initializer_list<Attribute>;

/// Writes HTML text. Strings remain text or attribute values whatever they contain, because `<`,
/// `>`, `&` and quotation marks are escaped. UTF-8 must be well-formed and without control
/// characters except line feeds; in UTF-16, these are replaced as visibleText() does, and
/// directional isolates are closed, so that they end with their element.
///
///     writer.element("ul", {{"class", "links"}}, [&] {
///         for (const SeeAlso& link : links)
///             writer.element("li", {}, link.getName());
///     });
class HtmlWriter {
public:
    void text(std::u16string_view text);
    /// \param text  as in an Attribute
    void text(std::string_view text);

    /// Writes an element with the content that a function writes.
    template <std::invocable Content>
    void element(Name name, Attributes attributes, Content writeContent) {
        open(name, attributes);
        writeContent();
        close(name);
    }

    /// Writes an element that contains only text.
    void element(Name name, Attributes attributes, std::u16string_view content);
    void element(Name name, Attributes attributes, std::string_view content);
    void element(Name name, Attributes attributes, const char* content);

    /// Writes an element without content and end tag, such as "meta".
    void emptyElement(Name name, Attributes attributes) { open(name, attributes); }

    /// Writes what another writer has written.
    void append(const HtmlWriter& part) { html_ += part.html_; }

    /// Returns the text, and begins again with an empty one.
    std::string take();

private:
    void open(Name name, Attributes attributes);
    void close(Name name);
    void escape(std::string_view text);

    std::string html_;
};

} // namespace refdoc::html
