#include "platform/i18n/Converter.hpp"
#include "tools/refdoc/explain/RuleText.hpp"
#include "tools/refdoc/html/Urls.hpp"
#include "tools/refdoc/pages/FindingList.hpp"
#include "tools/refdoc/pages/Frames.hpp"
#include "tools/refdoc/pages/RecordWriter.hpp"
#include "tools/refdoc/pages/SitePages.hpp"
#include "tools/refdoc/terminal/Words.hpp"

#include <map>
#include <optional>
#include <set>
#include <tuple>
#include <utility>
#include <vector>

namespace refdoc::site {

using namespace reference::property;
using html::HtmlWriter;

namespace {

// An item in the list of a type.
struct ListedItem {
    const std::u16string* name;
    const std::u16string* href;
    const RefItem* item;
    const std::vector<SourceRecord>* sources; // of all items with the href

    auto operator<=>(const ListedItem& other) const {
        return std::tie(*name, *href, item) <=> std::tie(*other.name, *other.href, other.item);
    }
};

using ListedItems = std::set<ListedItem>;

struct ItemsByType {
    std::map<RefEntityType::Value, ListedItems> typed{}; // an item for each of its entities
    ListedItems untyped{};                               // items without entities
};

ItemsByType itemsByType(const reference::docparser::DocResource<RefItem>& resource,
                        const SectionOrigins& origins) {
    ItemsByType types;
    for (const auto& [href, items] : resource.items) {
        const std::vector<SourceRecord>& sources = origins.kept.at(href);
        for (const RefItem& item : items) {
            for (const RefEntity& entity : item.getRefEntities())
                types.typed[entity.getEntityType()].insert(
                    {&entity.getName(), &href, &item, &sources});
            if (item.getRefEntities().empty())
                types.untyped.insert({&href, &href, &item, &sources});
        }
    }
    return types;
}

std::u16string headingOf(RefEntityType::Value type) {
    return pluralOf(typeText(type, FunctionType::getDefaultValue()));
}

class SectionContent {
public:
    SectionContent(HtmlWriter& writer, const Product& product, const Edition& edition,
                   const std::u16string& section)
        : html_(writer),
          product_(product),
          edition_(edition),
          language_(fl::i18n::to_string(edition.language)),
          origins_(edition.content->origins.at(section)),
          resource_(edition.content->resources.at(section)),
          pages_(product.pages.at(section)) {}

    void write() {
        html_.element("h1", {},
                      [&] { html_.element("bdi", {}, resource_.header.getProductName()); });
        writeBrokenFiles(html_, edition_.content->brokenFiles);
        std::vector<check::ReportedFinding> findings = findingsBeside(edition_, product_.findings);
        writeFindingsNote(html_, findings);
        writeHeader();
        // The script shows the field.
        html_.element("p", {{"class", "filter"}, {"hidden", ""}}, [&] {
            html_.element("label", {}, [&] {
                html_.text("Filter ");
                html_.emptyElement("input", {{"type", "search"}, {"autocomplete", "off"}});
            });
        });
        const ItemsByType types = itemsByType(resource_, origins_);
        for (const auto& [type, items] : types.typed)
            writeType(headingOf(type), items);
        if (!types.untyped.empty())
            writeType(u"other pages", types.untyped);
        writeFindingsPanel(html_, std::move(findings));
        writeOrigin();
    }

private:
    void writeHeader() {
        const HeaderInfo& header = resource_.header;
        html_.element("dl", {{"class", "facts"}}, [&] {
            writeFact("Help folder", header.getHelpFolder());
            writeFact("Base code", header.getBaseCode());
            writeFact("Help location", header.getHelpLocation());
            writeFact("Format", header.getSchema());
            writeFact("Format version", header.getSchemaVersion());
            writeFact("Resource file", header.getProduct());
        });
    }

    void writeFact(const char* label, const std::u16string& value) {
        if (value.empty())
            return;
        html_.element("dt", {}, label);
        html_.element("dd", {}, [&] { RecordWriter(html_, html::kLabelLanguage).code(value); });
    }

    void writeType(const std::u16string& heading, const ListedItems& items) {
        html_.element("section", {{"class", "items"}}, [&] {
            html_.element("h2", {}, heading);
            html_.element("ul", {}, [&] {
                for (const ListedItem& listed : items)
                    html_.element("li", {}, [&] { writeItem(listed); });
            });
        });
    }

    void writeItem(const ListedItem& listed) {
        const bool isEnglish = isFallback(edition_, *listed.sources);
        RecordWriter record(html_, isEnglish ? html::kLabelLanguage : language_);
        const std::string url = html::relativeUrl(pages_.index, pages_.items.at(*listed.href));
        html_.element("a", {{"href", url}}, [&] { html_.element("bdi", {}, *listed.name); });
        html_.text(" ");
        record.prose(listed.item->getRefPurpose());
        const DeprecationStatus::Value status = listed.item->getDeprecationStatus();
        if (status != DeprecationStatus::None)
            writeMark("mark warning", DeprecationStatus::enumToString(status));
        if (isEnglish)
            writeMark("mark", "English");
    }

    void writeMark(const char* classes, std::string_view mark) {
        html_.text(" ");
        html_.element("small", {{"class", classes}}, mark);
    }

    void writeOrigin() {
        html_.element("details", {{"class", "origin"}}, [&] {
            html_.element("summary", {}, "Where this product comes from");
            html_.element("ul", {}, [&] {
                html_.element("li", {}, [&] { writePlace(origins_.header); });
                for (const LostHeader& lost : origins_.lostHeaders) {
                    html_.element("li", {}, [&] {
                        html_.text("In place of ");
                        writePlace(lost.header);
                        html_.text(" (");
                        html_.element("bdi", {}, ruleOf(lost, edition_.content->account.files));
                        html_.text(")");
                    });
                }
            });
        });
    }

    void writePlace(const Origin& origin) {
        RecordWriter(html_, html::kLabelLanguage)
            .code(placeText(edition_.content->account.files[origin.file], origin.place));
    }

    HtmlWriter& html_;
    const Product& product_;
    const Edition& edition_;
    const std::string language_;
    const SectionOrigins& origins_;
    const reference::docparser::DocResource<RefItem>& resource_;
    const SectionPages& pages_;
};

} // namespace

std::string sectionPage(const SiteLanguages& languages, const Product& product,
                        const Edition& edition, const std::u16string& section) {
    return html::framedPage(
        productFrame(languages, product, edition, section, std::nullopt,
                     edition.content->resources.at(section).header.getProductName()),
        [&](HtmlWriter& writer) { SectionContent(writer, product, edition, section).write(); });
}

} // namespace refdoc::site
