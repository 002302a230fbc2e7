#include "tests/unit/tools/refdoc/diff/RandomProduct.hpp"

#include "docparser/Queries.hpp"
#include "docparser/json/RecordFields.hpp"
#include "docparser/json/ToJson.hpp"

#include <boost/json/object.hpp>

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace refdoc_tests {

using namespace reference::property;
using reference::docparser::DocResource;

namespace {

class Maker {
public:
    explicit Maker(std::mt19937& random) : random_(random) {}

    std::size_t below(std::size_t bound) { return random_() % bound; }
    bool chance() { return below(2) == 0; }

    std::u16string name() { return std::u16string(1, static_cast<char16_t>(u'a' + below(3))); }
    std::u16string href() { return name() + u".html"; }

    std::u16string text() {
        std::u16string words;
        for (std::size_t count = below(4); count > 0; --count)
            words += name() + u" ";
        return words;
    }

    // Returns up to two elements.
    template <class Make>
    auto some(Make make) {
        std::vector<decltype(make())> elements;
        for (std::size_t count = below(4); count > 1; --count)
            elements.push_back(make());
        return elements;
    }

    ObjectInfo info(const std::u16string& page) {
        std::u16string own = name();
        std::u16string purpose = name();
        auto values = some([&] { return name(); });
        return {std::move(own), std::move(purpose), std::move(values),
                page + u"#" + (chance() ? u"" : u"x")};
    }

    Input input(const std::u16string& page) {
        ObjectInfo object = info(page);
        return {std::move(object), SyntaxType::Function, chance() ? u"" : name(), false};
    }

    SyntaxGroup syntaxes() {
        std::u16string title = name();
        return {std::move(title), SyntaxType::Function, some([&] { return name(); })};
    }

    InputGroup inputs(const std::u16string& page) {
        std::u16string title = name();
        return {std::move(title), some([&] { return input(page); })};
    }

    ClassProperty property(const std::u16string& page) {
        ObjectInfo object = info(page);
        return {std::move(object), text()};
    }

    RefItem item(const std::u16string& page) {
        auto entities = some(
            [&] { return RefEntity(RefEntityType::Function, name(), FunctionType::Function); });
        std::u16string purpose = text();
        std::u16string description = text();
        const auto status = chance() ? DeprecationStatus::None : DeprecationStatus::Deprecated;
        auto syntaxGroups = some([&] { return syntaxes(); });
        auto plain = some([&] { return input(page); });
        auto groups = some([&] { return inputs(page); });
        auto outputs = some([&] { return Output(info(page), SyntaxType::Function); });
        auto properties = some([&] {
            std::u16string title = name();
            return ClassPropertyGroup(std::move(title), some([&] { return property(page); }));
        });
        auto seeAlso = some([&] { return SeeAlso(name(), name()); });
        auto examples = some([&] { return Example(name(), name(), name()); });
        auto parameters = some([&] { return Parameter(info(page), text()); });
        return {page,
                std::move(entities),
                u"",
                std::move(purpose),
                u"",
                std::move(description),
                AppThumbnail(u"", u""),
                status,
                std::move(syntaxGroups),
                std::move(plain),
                std::move(groups),
                std::move(outputs),
                std::move(properties),
                std::move(seeAlso),
                std::move(examples),
                std::move(parameters)};
    }

    RefItemLookup entry(const std::u16string& own) {
        std::u16string purpose = text();
        const bool isDeprecated = chance();
        return {own,    RefEntityType::Function, std::move(purpose), isDeprecated,
                href(), FunctionType::Function};
    }

    HeaderInfo header(const std::u16string& key) {
        return {u"s", u"1", name(), u"b", key, u"help", u"P"};
    }

private:
    std::mt19937& random_;
};

} // namespace

RandomProduct::RandomProduct(std::mt19937& random) {
    Maker make(random);
    for (std::size_t count = make.below(3); count > 0; --count) {
        const std::u16string key = make.name();
        DocResource<RefItem> section{make.header(key), {}};
        for (std::size_t item = make.below(4); item > 0; --item) {
            const std::u16string page = make.href();
            section.items[page].push_back(make.item(page));
        }
        resources_.insert_or_assign(key, std::move(section));
        DocResource<RefItemLookup> index{make.header(key), {}};
        for (std::size_t entry = make.below(4); entry > 0; --entry) {
            const std::u16string name = make.name();
            index.items[name].push_back(make.entry(name));
        }
        lookup_.insert_or_assign(make.name(), std::move(index));
    }
}

refdoc::diff::ProductRecords RandomProduct::records() const {
    refdoc::diff::ProductRecords records{.exists = !resources_.empty(), .resources = resources_};
    for (const auto& [key, section] : lookup_)
        records.lookup.emplace(key, &section);
    return records;
}

boost::json::value asJson(const refdoc::diff::ProductRecords& records) {
    if (!records.exists)
        return nullptr;
    boost::json::object lookup;
    for (const auto& [key, section] : records.lookup)
        lookup.emplace(reference::docparser::toUtf8(key), reference::json::toJson(*section));
    return boost::json::object{{"resources", reference::json::toJson(records.resources)},
                               {"lookup", std::move(lookup)}};
}

} // namespace refdoc_tests
