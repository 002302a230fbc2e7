// Edits the translations of a generated tree in known ways, and expects that the report has every
// edit and nothing else.

#include "tests/system/refdoc/translations/TranslationsTest.hpp"

#include <boost/json/array.hpp>
#include <boost/json/object.hpp>

#include <cstddef>
#include <random>

namespace refdoc_tests {
namespace {

namespace json = boost::json;
using docparser_tests::lookupItem;
using docparser_tests::ResourceText;

constexpr int kProducts = 200;
constexpr int kPages = 12;

enum class Edit {
    None,
    Remove,
    Rename,
    Untranslate,
    ChangeInput,
    ChangeSyntax,
    AddProperty,
    Count
};

// One page in one language.
struct Page {
    std::string href;
    std::string name;
    std::string purpose;
    std::string input = "x";
    std::string syntax = "y = f(x)";
    bool hasProperty = false;

    json::object item() const {
        json::object more{
            {"refentity", json::array{{{"name", name}}}},
            {"inputs", json::array{{{"name", input}, {"purpose", purpose + " input"}}}},
            {"syntaxgroup", json::array{{{"title", purpose + " title"}, {"syntax", {syntax}}}}}};
        if (hasProperty)
            more["parameters"] = json::array{{{"name", "p"}, {"purpose", purpose + " parameter"}}};
        return itemWith(href, purpose, std::move(more));
    }
};

class EditedTreeTest : public TranslationsTest {
protected:
    void addProduct(int number) {
        const std::string product = "Product" + std::to_string(number);
        std::vector<Page> pages;
        for (int index = 0; index < kPages; ++index) {
            const std::string name = "page" + std::to_string(index);
            pages.push_back({"ref/" + name + ".html", product + name, "Purpose of " + name});
        }
        addFiles(product, "", pages, pages, /*isPackage=*/number % 3 == 0);
        for (const std::string language : {"de", "ja"})
            addTranslation(product, language, pages, /*isPackage=*/number % 3 == 0);
    }

    std::set<std::string> expected_;

private:
    void addTranslation(const std::string& product, const std::string& language,
                        const std::vector<Page>& english, bool isPackage) {
        std::vector<Page> items;
        std::vector<Page> lookups;
        const std::string start = product + ' ' + language + ' ';
        for (Page page : english) {
            page.purpose += " in " + language;
            addEdited(page, start, items);
            addEditedLookup(page, start + "lookup ", lookups);
        }
        addFiles(product, "_" + language, items, lookups, isPackage);
    }

    Edit anyEdit() {
        // Two pages in three stay as they are.
        const auto number = random_() % (3 * static_cast<unsigned>(Edit::Count));
        return number < static_cast<unsigned>(Edit::Count) ? static_cast<Edit>(number) : Edit::None;
    }

    void expect(const std::string& start, const std::string& what) {
        expected_.insert(start + what);
    }

    void addEdited(Page page, const std::string& start, std::vector<Page>& pages) {
        const std::string href = page.href;
        switch (anyEdit()) {
        case Edit::None:
        case Edit::Count: break;
        case Edit::Remove: expect(start, "missing " + href); return;
        case Edit::Rename:
            page.href = "old/former-" + href.substr(4);
            expect(start, "missing " + href);
            expect(start, "orphaned " + page.href);
            expect(start, "renamed " + page.href + ' ' + href);
            break;
        case Edit::Untranslate:
            page.purpose.resize(page.purpose.find(" in "));
            expect(start, "identical " + href);
            break;
        case Edit::ChangeInput:
            page.input = "formerInput";
            expect(start, "outOfStep " + href + " inputs");
            break;
        case Edit::ChangeSyntax:
            page.syntax = "y = f(formerInput)";
            expect(start, "outOfStep " + href + " syntaxGroups");
            break;
        case Edit::AddProperty:
            page.hasProperty = true;
            expect(start, "outOfStep " + href + " parameters");
            break;
        }
        pages.push_back(std::move(page));
    }

    void addEditedLookup(Page page, const std::string& start, std::vector<Page>& pages) {
        const std::string href = page.href;
        switch (anyEdit()) {
        case Edit::Remove: expect(start, "missing " + page.name + ' ' + href); return;
        case Edit::Rename:
            page.href = "old/former-" + href.substr(4);
            expect(start, "missing " + page.name + ' ' + href);
            expect(start, "orphaned " + page.name + ' ' + page.href);
            expect(start, "renamed " + page.name + ' ' + page.href + ' ' + page.name + ' ' + href);
            break;
        case Edit::Untranslate:
            page.purpose.resize(page.purpose.find(" in "));
            expect(start, "identical " + page.name + ' ' + href);
            break;
        default: break; // the other edits concern only items
        }
        pages.push_back(std::move(page));
    }

    void addFiles(const std::string& product, const std::string& suffix,
                  const std::vector<Page>& items, const std::vector<Page>& lookups,
                  bool isPackage) const {
        ResourceText full(product);
        for (const Page& page : items)
            full.add(page.item());
        addResource(product + suffix, full.str());
        ResourceText lookup(product);
        for (const Page& page : lookups)
            lookup.add(lookupItem(page.name, page.href, page.purpose));
        if (isPackage)
            addPackage(product + suffix, {{product + suffix + ".json", lookup.str()}});
        else
            addLookup(product + suffix, lookup.str());
    }

    std::minstd_rand random_{42};
};

// What English has is translated, identical or missing.
void expectNumbersAddUp(const json::value& comparison) {
    EXPECT_EQ(comparison.at("english").to_number<std::size_t>(),
              comparison.at("translated").to_number<std::size_t>() +
                  comparison.at("missing").as_array().size() +
                  comparison.at("identical").as_array().size());
}

TEST_F(EditedTreeTest, EveryEditIsReportedAndNothingElse) {
    for (int number = 0; number < kProducts; ++number)
        addProduct(number);
    EXPECT_GT(expected_.size(), 2000U);
    const json::value report = document(run({"translations", "--json"}).out);
    EXPECT_THAT(defectsIn(report), testing::ContainerEq(expected_));
    for (const json::value& product : report.at("products").as_array()) {
        for (const auto& member : product.at("languages").as_object()) {
            expectNumbersAddUp(member.value());
            expectNumbersAddUp(member.value().at("lookup"));
        }
    }
}

} // namespace
} // namespace refdoc_tests
