#pragma once

#include "benchmarks/peers/ItemReader.hpp"
#include "docparser/parsing/DocResource.hpp"
#include "docparser/parsing/RefItemLookup.hpp"

namespace reference::docparser::benchmarks {

template <class Value>
void readItem(Value element, DocResource<RefItemLookup>::Items& items) {
    auto name = text<"name">(Utf8);
    auto type = word<"type", RefEntityType>();
    auto purpose = text<"refpurpose">(Utf8);
    auto href = text<"href">(Ascii);
    auto functionType = word<"fcntype", FunctionType>();
    auto isDeprecated = member<"deprecated", bool>([](Value) { return true; });
    readMembers(element.object(), name, type, purpose, href, functionType, isDeprecated);
    std::vector<RefItemLookup>& sameName = items[name.value];
    sameName.emplace_back(std::move(name.value), type.value, std::move(purpose.value),
                          isDeprecated.value, std::move(href.value), functionType.value);
}

/// Reads a section. `packages` is the member for its "supportPackages" if they are wanted.
template <class T, class Object, class... Packages>
DocResource<T> readSection(Object object, const std::u16string& product, Packages&... packages) {
    using Items = typename DocResource<T>::Items;
    auto schema = text<"schema">(Ascii);
    auto schemaVersion = text<"schemaVersion">(Ascii);
    auto productName = text<"productName">(Utf8);
    auto baseCode = text<"baseCode">(Ascii);
    auto helpFolder = text<"helpFolder">(Ascii);
    auto helpLocation = text<"helpLocation">(Ascii);
    auto items = member<"refItems", Items>([](auto array) {
        Items all;
        array.forEachElement([&](auto element) { readItem(element, all); });
        return all;
    });
    readMembers(object, schema, schemaVersion, productName, baseCode, helpFolder, helpLocation,
                items, packages...);
    return {HeaderInfo(std::move(schema.value), std::move(schemaVersion.value),
                       std::move(productName.value), std::move(baseCode.value),
                       std::move(helpFolder.value), std::move(helpLocation.value), product),
            std::move(items.value)};
}

/// Reads a resource file whose root is the object of a library's adapter, as ObjectReader.hpp
/// describes it. The result is that of parseResourceText().
/// \tparam T  RefItem or RefItemLookup
template <class T, class Object>
ResourceMap<T> readFile(Object root, const std::u16string& product) {
    auto packages = list<"supportPackages", DocResource<T>>(
        [&](auto section) { return readSection<T>(section.object(), product); });
    DocResource<T> mainSection = readSection<T>(root, product, packages);
    ResourceMap<T> sections;
    std::u16string helpFolder = mainSection.header.getHelpFolder();
    sections.try_emplace(std::move(helpFolder), std::move(mainSection));
    for (DocResource<T>& section : packages.value) {
        std::u16string baseCode = section.header.getBaseCode();
        sections.try_emplace(std::move(baseCode), std::move(section));
    }
    return sections;
}

} // namespace reference::docparser::benchmarks
