#pragma once

#include "tools/refdoc/html/HtmlWriter.hpp"
#include "tools/refdoc/html/PageFrame.hpp"

#include <optional>
#include <string>
#include <string_view>

namespace refdoc::site {

/// Writes HTML with the strings of records. Each of these is in an element "bdi", so that neither
/// its direction nor a control character for directions affects the text around it.
class RecordWriter {
public:
    /// \param language  of the records, UTF-8
    RecordWriter(html::HtmlWriter& writer, std::string_view language) : writer_(writer) {
        if (language != html::kLabelLanguage)
            tag_ = html::languageTag(language);
    }

    /// Writes a string that is in the language of the records.
    void prose(std::u16string_view text) { writer_.element("bdi", {{"lang", tag_}}, text); }

    /// Writes a string that is the same in every language, such as a name or a command.
    void code(std::u16string_view text) {
        writer_.element("code", {}, [&] { writer_.element("bdi", {}, text); });
    }

private:
    html::HtmlWriter& writer_;
    std::optional<std::string> tag_; // absent for the language of the page
};

} // namespace refdoc::site
