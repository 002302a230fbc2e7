#include "tools/refdoc/html/PageFrame.hpp"

#include "tools/refdoc/html/Assets.hpp"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

namespace refdoc::html {

namespace {

// Returns elements that are the same in all pages. They are written once per process.
template <class Write>
HtmlWriter written(Write write) {
    HtmlWriter writer;
    write(writer);
    return writer;
}

void writeHead(HtmlWriter& writer, const PageFrame& frame) {
    static const HtmlWriter metadata = written([](HtmlWriter& part) {
        part.emptyElement("meta", {{"charset", "utf-8"}});
        part.emptyElement("meta",
                          {{"http-equiv", "Content-Security-Policy"}, {"content", kPolicy}});
        part.emptyElement(
            "meta", {{"name", "viewport"}, {"content", "width=device-width, initial-scale=1"}});
        part.emptyElement("meta", {{"name", "referrer"}, {"content", "no-referrer"}});
    });
    writer.element("head", {}, [&] {
        writer.append(metadata);
        writer.element("title", {}, frame.title);
        const std::string style = frame.assets + std::string(kStyleName);
        const std::string icon = frame.assets + std::string(kIconName);
        const std::string script = frame.assets + std::string(kScriptName);
        writer.emptyElement("link", {{"rel", "stylesheet"}, {"href", style}});
        writer.emptyElement("link", {{"rel", "icon"}, {"href", icon}});
        writer.element("script", {{"src", script}, {"defer", ""}}, "");
    });
}

void writeCrumbs(HtmlWriter& writer, const std::vector<Crumb>& crumbs) {
    writer.element("nav", {{"aria-label", "Path"}, {"class", "crumbs"}}, [&] {
        for (const Crumb& crumb : crumbs) {
            writer.element("a", {{"href", crumb.url}},
                           [&] { writer.element("bdi", {}, crumb.title); });
        }
    });
}

void writeLanguages(HtmlWriter& writer, const std::vector<LanguageLink>& links) {
    writer.element("nav", {{"aria-label", "Language"}, {"class", "languages"}}, [&] {
        for (const LanguageLink& link : links) {
            const std::string tag = languageTag(link.language);
            const std::string label = tag.empty() ? "no language" : tag;
            if (link.isCurrent)
                writer.element("span", {{"aria-current", "true"}}, label);
            else
                writer.element("a", {{"href", link.url}, {"hreflang", tag}}, label);
        }
    });
}

// The script shows the search.
void writeSearch(HtmlWriter& writer, const SearchBox& search) {
    static const HtmlWriter controls = written([](HtmlWriter& part) {
        part.element("label", {}, [&] {
            part.text("Search ");
            part.emptyElement("input", {{"type", "search"},
                                        {"autocomplete", "off"},
                                        {"placeholder", "Press / to search"}});
        });
        part.element("p", {{"role", "status"}}, "");
        part.element("ol", {}, "");
    });
    const std::optional<std::string_view> focus =
        search.hasFocus ? std::optional<std::string_view>("") : std::nullopt;
    writer.element("div",
                   {{"class", "search"},
                    {"role", "search"},
                    {"data-index", search.index},
                    {"data-pages", search.pages},
                    {"data-focus", focus},
                    {"hidden", ""}},
                   [&] { writer.append(controls); });
}

void writeBody(HtmlWriter& writer, const PageFrame& frame,
               const std::function<void(HtmlWriter&)>& writeContent) {
    writer.element("body", {}, [&] {
        const std::string contentUrl = std::string("#").append(kContentId);
        writer.element("a", {{"class", "skip"}, {"href", contentUrl}}, "Skip to the content");
        writer.element("header", {}, [&] {
            if (!frame.crumbs.empty())
                writeCrumbs(writer, frame.crumbs);
            if (!frame.languages.empty())
                writeLanguages(writer, frame.languages);
            writeSearch(writer, frame.search);
        });
        writer.element("main", {{"id", kContentId}}, [&] { writeContent(writer); });
    });
}

} // namespace

std::string framedPage(const PageFrame& frame,
                       const std::function<void(HtmlWriter&)>& writeContent) {
    HtmlWriter writer;
    const std::string_view direction = isRightToLeft(frame.language) ? "rtl" : "ltr";
    writer.emptyElement("!DOCTYPE", {{"html", ""}});
    writer.text("\n");
    writer.element("html", {{"lang", kLabelLanguage}, {"dir", direction}}, [&] {
        writeHead(writer, frame);
        writeBody(writer, frame, writeContent);
    });
    writer.text("\n");
    return writer.take();
}

std::string languageTag(std::string_view language) {
    std::string tag(language);
    std::ranges::replace(tag, '_', '-');
    return tag;
}

bool isRightToLeft(std::string_view language) {
    static constexpr std::array<std::string_view, 10> kLanguages{"ar", "ckb", "dv", "fa", "he",
                                                                 "ps", "sd",  "ug", "ur", "yi"};
    if (language.find("_Latn") != language.npos || language.find("_Cyrl") != language.npos)
        return false;
    return language.find("_Arab") != language.npos || language.find("_Hebr") != language.npos ||
           std::ranges::find(kLanguages, language.substr(0, language.find('_'))) !=
               kLanguages.end();
}

} // namespace refdoc::html
