#include "platform/i18n/Converter.hpp"
#include "tools/refdoc/explain/RuleText.hpp"
#include "tools/refdoc/html/Urls.hpp"
#include "tools/refdoc/pages/FindingList.hpp"
#include "tools/refdoc/pages/Frames.hpp"
#include "tools/refdoc/pages/Links.hpp"
#include "tools/refdoc/pages/RecordWriter.hpp"
#include "tools/refdoc/pages/SitePages.hpp"
#include "tools/refdoc/session/ArgumentFields.hpp"
#include "tools/refdoc/terminal/DisplayText.hpp"
#include "tools/refdoc/terminal/Words.hpp"

#include <boost/algorithm/string/join.hpp>

#include <algorithm>
#include <optional>
#include <set>
#include <span>
#include <string_view>
#include <utility>

namespace refdoc::site {

using namespace reference::property;
using fl::i18n::to_string;
using html::HtmlWriter;
using reference::docparser::FileAccount;

namespace {

std::u16string namesOf(const RefItem& item) {
    std::vector<std::u16string> names;
    for (const RefEntity& entity : item.getRefEntities()) {
        if (std::ranges::find(names, entity.getName()) == names.end())
            names.push_back(entity.getName());
    }
    return names.empty() ? item.getHref() : boost::join(names, u", ");
}

// Writes the records of one page.
class ItemContent {
public:
    ItemContent(HtmlWriter& writer, const Product& product, const Edition& edition,
                const std::u16string& section, const std::u16string& href,
                const FindPageAt& findPage)
        : html_(writer),
          href_(href),
          sources_(edition.content->origins.at(section).kept.at(href)),
          isFallback_(isFallback(edition, sources_)),
          language_(edition.language),
          record_(writer, isFallback_ ? std::string(html::kLabelLanguage) : to_string(language_)),
          links_(product, edition, section, href, findPage),
          files_(edition.content->account.files),
          lost_(lostRecords(edition, section, href)) {}

    void write(const std::vector<RefItem>& items, const ProductFindings& findings) {
        const std::vector<check::ReportedFinding> found = findingsAt(findings);
        writeFindingsNote(html_, found);
        for (std::size_t index = 0; index < items.size(); ++index)
            html_.element("article", {}, [&] { writeItem(items[index], sources_[index]); });
        writeFindingsPanel(html_, found);
    }

private:
    std::vector<check::ReportedFinding> findingsAt(const ProductFindings& findings) const {
        std::vector<check::ReportedFinding> found;
        for (const SourceRecord& source : sources_)
            findings.addAt(files_[source.origin.file], source.origin.pointer, found);
        for (const LostRecord& lost : lost_)
            findings.addAt(files_[lost.record.origin.file], lost.record.origin.pointer, found);
        return found;
    }

    void writeItem(const RefItem& item, const SourceRecord& source) {
        writeTitle(item);
        html_.element("p", {{"class", "purpose"}}, [&] { record_.prose(item.getRefPurpose()); });
        writeNotes(item.getDeprecationStatus());
        writeFacts(item);
        if (!item.getDescription().empty())
            html_.element("p", {{"class", "description"}},
                          [&] { record_.prose(item.getDescription()); });
        writeSyntaxes(item.getSyntaxGroups());
        writeArguments("Inputs", {}, item.getInputs());
        for (const InputGroup& group : item.getInputGroups())
            writeArguments("Inputs", group.getTitle(), group.getInputs());
        writeArguments("Outputs", {}, item.getOutputs());
        writeArguments("Parameters", {}, item.getParameters());
        for (const ClassPropertyGroup& group : item.getClassPropertyGroups())
            writeArguments("Properties", group.getTitle(), group.getProperties());
        writeExamples(item.getExamples());
        writeSeeAlso(item.getSeeAlso());
        writeOrigin(source);
    }

    void writeTitle(const RefItem& item) {
        html_.element("h1", {}, [&] {
            if (item.getRefEntities().empty())
                html_.element("bdi", {}, item.getHref());
            for (const RefEntity& entity : item.getRefEntities()) {
                html_.element("span", {{"class", "entity"}}, [&] {
                    html_.element("bdi", {}, entity.getName());
                    html_.text(" ");
                    html_.element("small", {},
                                  typeText(entity.getEntityType(), entity.getFunctionType()));
                });
                html_.text(" ");
            }
        });
    }

    void writeNotes(DeprecationStatus::Value status) {
        if (isFallback_)
            html_.element("p", {{"class", "note"}}, u"English: not translated into " + language_);
        if (status == DeprecationStatus::None)
            return;
        html_.element("p", {{"class", "note warning"}}, [&] {
            html_.element("strong", {}, DeprecationStatus::enumToString(status));
            html_.text(": ");
            html_.text(meaningOf(status));
        });
    }

    void writeFacts(const RefItem& item) {
        const AppThumbnail& thumbnail = item.getAppThumbnail();
        html_.element("dl", {{"class", "facts"}}, [&] {
            writeFact("Link", item.getHref());
            writeFact("Package", item.getPackageName());
            writeFact("Introduced", item.getIntroduced());
            writeFact("Picture", thumbnail.getFileRef());
            if (thumbnail.getAlt().empty())
                return;
            html_.element("dt", {}, "Shows");
            html_.element("dd", {}, [&] { record_.prose(thumbnail.getAlt()); });
        });
    }

    void writeFact(const char* label, const std::u16string& value) {
        if (value.empty())
            return;
        html_.element("dt", {}, label);
        html_.element("dd", {}, [&] { record_.code(value); });
    }

    // Writes "Inputs" or "Inputs: title".
    void writeHeading(const char* what, const std::u16string& title = {}) {
        html_.element("h2", {}, [&] {
            html_.text(what);
            if (title.empty())
                return;
            html_.text(": ");
            record_.prose(title);
        });
    }

    void writeSyntaxes(const std::vector<SyntaxGroup>& groups) {
        for (const SyntaxGroup& group : groups) {
            writeHeading("Syntax", group.getTitle());
            if (group.getSyntaxType() != SyntaxType::getDefaultValue())
                html_.element("p", {{"class", "type"}}, [&] {
                    html_.text("Type: ");
                    html_.text(syntaxTypeOf(group));
                });
            html_.element("ul", {{"class", "syntaxes"}}, [&] {
                for (const std::u16string& syntax : group.getSyntaxes())
                    html_.element("li", {}, [&] { record_.code(syntax); });
            });
        }
    }

    template <class Argument>
    void writeArguments(const char* what, const std::u16string& title,
                        const std::vector<Argument>& arguments) {
        if (arguments.empty())
            return;
        writeHeading(what, title);
        html_.element("dl", {{"class", "arguments"}}, [&] {
            for (const Argument& argument : arguments)
                writeArgument(argument);
        });
    }

    template <class Argument>
    void writeArgument(const Argument& argument) {
        const ObjectInfo& info = argument.getObjectInfo();
        const std::optional<std::string> anchor = newAnchor(info.getHref());
        html_.element("div", {{"id", anchor}}, [&] {
            html_.element("dt", {}, [&] {
                record_.code(info.getName());
                if (isNameValuePair(argument))
                    html_.element("small", {}, " name-value pair");
            });
            html_.element("dd", {}, [&] {
                html_.element("p", {}, [&] { record_.prose(info.getPurpose()); });
                writeValues(info.getValues());
                writeDefault(defaultOf(argument));
                writeSyntaxType(syntaxTypeOf(argument));
            });
        });
    }

    // Returns the part of an argument's link behind the link of the item; absent if it is empty or
    // another element of the page has it.
    std::optional<std::string> newAnchor(std::u16string_view link) {
        const std::u16string_view anchor = link.substr(href_.size() + 1);
        if (anchor.empty() || std::ranges::equal(anchor, html::kContentId) ||
            std::ranges::equal(anchor, kFindingsId) || !anchors_.insert(anchor).second)
            return std::nullopt;
        return visibleLine(anchor);
    }

    void writeValues(const std::vector<std::u16string>& values) {
        if (values.empty())
            return;
        html_.element("p", {{"class", "values"}}, [&] {
            html_.text("Values:");
            for (const std::u16string& value : values) {
                html_.text(" ");
                record_.code(value);
            }
        });
    }

    void writeDefault(const std::u16string& value) {
        if (value.empty())
            return;
        html_.element("p", {{"class", "values"}}, [&] {
            html_.text("Default: ");
            record_.code(value);
        });
    }

    void writeSyntaxType(const std::u16string& type) {
        if (type.empty() || type == u"function")
            return;
        html_.element("p", {{"class", "values"}}, [&] {
            html_.text("Syntax: ");
            html_.text(type);
        });
    }

    void writeExamples(const std::vector<Example>& examples) {
        if (examples.empty())
            return;
        writeHeading("Examples");
        html_.element("ul", {{"class", "examples"}}, [&] {
            for (const Example& example : examples) {
                html_.element("li", {}, [&] {
                    writeLink(example.getTitle(), example.getUrl());
                    if (example.getOpenCommand().empty())
                        return;
                    html_.element("p", {{"class", "values"}}, [&] {
                        html_.text("Open with: ");
                        record_.code(example.getOpenCommand());
                    });
                });
            }
        });
    }

    void writeSeeAlso(const std::vector<SeeAlso>& links) {
        if (links.empty())
            return;
        writeHeading("See also");
        html_.element("ul", {{"class", "links"}}, [&] {
            for (const SeeAlso& link : links)
                html_.element("li", {}, [&] { writeLink(link.getName(), link.getUrl()); });
        });
    }

    // A target that is neither an item of the product nor on the web is shown as text.
    void writeLink(const std::u16string& text, const std::u16string& target) {
        const std::u16string& label = text.empty() ? target : text;
        if (const std::optional<std::string> url = links_.urlOf(target)) {
            html_.element("a", {{"href", *url}}, [&] { record_.prose(label); });
        } else if (const std::optional<std::string> web = html::webUrl(to_string(target))) {
            html_.element("a", {{"href", *web}, {"rel", "external noopener noreferrer"}},
                          [&] { record_.prose(label); });
            html_.element("small", {}, " (external)");
        } else {
            record_.prose(label);
            html_.text(" ");
            html_.element("small", {}, [&] { record_.code(target); });
        }
    }

    void writeLostRecords() {
        for (const LostRecord& lost : lost_)
            writeLost(lost);
    }

    void writeOrigin(const SourceRecord& source) {
        html_.element("details", {{"class", "origin"}}, [&] {
            html_.element("summary", {}, "Where this record comes from");
            html_.element("ul", {}, [&] {
                html_.element("li", {}, [&] { record_.code(placeOf(source.origin)); });
                writeLostRecords();
            });
        });
    }

    void writeLost(const LostRecord& lost) {
        html_.element("li", {}, [&] {
            html_.text("In place of ");
            record_.code(placeOf(lost.record.origin));
            html_.text(": ");
            html_.element("bdi", {}, lost.record.refPurpose);
            html_.text(" (");
            html_.element("bdi", {}, ruleOf(lost, files_));
            html_.text(")");
        });
    }

    std::u16string placeOf(const Origin& origin) const {
        return placeText(files_[origin.file], origin.place);
    }

    HtmlWriter& html_;
    const std::u16string& href_;
    const std::vector<SourceRecord>& sources_;
    bool isFallback_;
    const std::u16string& language_;
    RecordWriter record_;
    Links links_;
    const std::vector<FileAccount>& files_;
    std::span<const LostRecord> lost_;
    std::set<std::u16string_view> anchors_; // in the records, of arguments on the page
};

} // namespace

std::string itemPage(const SiteLanguages& languages, const Product& product, const Edition& edition,
                     const std::u16string& section, const std::u16string& href,
                     const FindPageAt& findPage) {
    const auto& resource = edition.content->resources.at(section);
    const std::vector<RefItem>& items = resource.items.at(href);
    const std::u16string title = namesOf(items.front()) + u" - " + resource.header.getProductName();
    return html::framedPage(productFrame(languages, product, edition, section, href, title),
                            [&](HtmlWriter& writer) {
                                writeBrokenFiles(writer, edition.content->brokenFiles);
                                ItemContent(writer, product, edition, section, href, findPage)
                                    .write(items, product.findings);
                            });
}

} // namespace refdoc::site
