#pragma once

#include "benchmarks/peers/ItemReader.hpp"
#include "docparser/parsing/DocResource.hpp"
#include "docparser/parsing/RefItemLookup.hpp"

namespace reference::docparser::benchmarks {

template <class Value>
void readItem(Value element, DocResource<RefItem>::Items& items) {
    docparser_tests::RefItemFields item = ItemReader<Value>().read(element);
    std::vector<RefItem>& sameHref = items[item.href];
    docparser_tests::appendRefItem(sameHref, std::move(item));
}

template <class Value>
void readItem(Value element, DocResource<RefItemLookup>::Items& items) {
    std::u16string name;
    auto type = RefEntityType::getDefaultValue();
    std::u16string purpose;
    std::u16string href;
    auto functionType = FunctionType::getDefaultValue();
    bool isDeprecated = false;
    require(readMembers(
        element.object(), required(text<"name">(name, Utf8)), word<"type", RefEntityType>(type),
        required(text<"refpurpose">(purpose, Utf8)), required(text<"href">(href, Ascii)),
        word<"fcntype", FunctionType>(functionType),
        member<"deprecated">([&](Value) { isDeprecated = true; })));
    std::vector<RefItemLookup>& sameName = items[name];
    sameName.emplace_back(std::move(name), type, std::move(purpose), isDeprecated, std::move(href),
                          functionType);
}

template <class T, class Object>
DocResource<T> readSection(Object object, const std::u16string& product,
                           std::vector<DocResource<T>>* packages) {
    std::u16string schema;
    std::u16string schemaVersion;
    std::u16string productName;
    std::u16string baseCode;
    std::u16string helpFolder;
    std::u16string helpLocation;
    typename DocResource<T>::Items items;
    const auto readPackages = [&](auto array) {
        if (packages)
            array.forEachElement([&](auto section) {
                packages->push_back(readSection<T>(section.object(), product, nullptr));
            });
    };
    require(readMembers(object, text<"schema">(schema, Ascii),
                        text<"schemaVersion">(schemaVersion, Ascii),
                        required(text<"productName">(productName, Utf8)),
                        required(text<"baseCode">(baseCode, Ascii)),
                        required(text<"helpFolder">(helpFolder, Ascii)),
                        required(text<"helpLocation">(helpLocation, Ascii)),
                        required(member<"refItems">([&](auto array) {
                            array.forEachElement([&](auto element) { readItem(element, items); });
                        })),
                        member<"supportPackages">(readPackages)));
    return {HeaderInfo(std::move(schema), std::move(schemaVersion), std::move(productName),
                       std::move(baseCode), std::move(helpFolder), std::move(helpLocation),
                       product),
            std::move(items)};
}

/// Reads a resource file whose root is the object of a library's adapter, as ObjectReader.hpp
/// describes it. The result is that of parseResourceText().
/// \tparam T  RefItem or RefItemLookup
template <class T, class Object>
ResourceMap<T> readFile(Object root, const std::u16string& product) {
    std::vector<DocResource<T>> packages;
    DocResource<T> mainSection = readSection<T>(root, product, &packages);
    ResourceMap<T> sections;
    std::u16string helpFolder = mainSection.header.getHelpFolder();
    sections.try_emplace(std::move(helpFolder), std::move(mainSection));
    for (DocResource<T>& section : packages) {
        std::u16string baseCode = section.header.getBaseCode();
        sections.try_emplace(std::move(baseCode), std::move(section));
    }
    return sections;
}

} // namespace reference::docparser::benchmarks
