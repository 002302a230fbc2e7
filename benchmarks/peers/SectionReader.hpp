#pragma once

#include "benchmarks/peers/ItemReader.hpp"

#include <optional>

namespace reference::docparser::benchmarks {

/// Reads one element of "refItems" of a full file or of a lookup file.
template <class Json>
void readItem(typename Json::Value element, DocResource<RefItem>::Items& items) {
    ItemReader<Json>().read(element, items);
}

template <class Json>
void readItem(typename Json::Value element, DocResource<RefItemLookup>::Items& items) {
    using enum StringParsingType;
    enum : std::size_t { Name, Type, Purpose, Href, FcnType, Deprecated };
    static constexpr std::array<std::string_view, 6> kKeys = {"name", "type",    "refpurpose",
                                                              "href", "fcntype", "deprecated"};
    std::u16string name;
    std::u16string purpose;
    std::u16string href;
    auto type = RefEntityType::getDefaultValue();
    auto functionType = FunctionType::getDefaultValue();
    typename Json::Object object = Json::object(element);
    const std::uint32_t seen =
        readMembers<Json>(object, kKeys, [&](std::size_t slot, typename Json::Value value) {
            switch (slot) {
            case Name: name = readText<Json>(value, Utf8); break;
            case Type: type = readWord<Json, RefEntityType>(value); break;
            case Purpose: purpose = readText<Json>(value, Utf8); break;
            case Href: href = readText<Json>(value, Ascii); break;
            case FcnType: functionType = readWord<Json, FunctionType>(value); break;
            default: break;
            }
        });
    require(seen, Name, Purpose, Href);
    std::vector<RefItemLookup>& sameName = items[name];
    sameName.emplace_back(std::move(name), type, std::move(purpose), (seen >> Deprecated & 1U) != 0,
                          std::move(href), functionType);
}

/// Reads the sections of one file, the main one and those of its support packages.
template <class Json, class T>
class FileReader {
    using Value = typename Json::Value;
    using Object = typename Json::Object;

public:
    explicit FileReader(const std::u16string& product) : product_(product) {}

    ResourceMap<T> read(Object root) {
        DocResource<T> mainSection = readSection(root, /*isRoot=*/true);
        ResourceMap<T> sections;
        std::u16string helpFolder = mainSection.header.getHelpFolder();
        sections.try_emplace(std::move(helpFolder), std::move(mainSection));
        for (DocResource<T>& section : packages_) {
            std::u16string baseCode = section.header.getBaseCode();
            sections.try_emplace(std::move(baseCode), std::move(section));
        }
        return sections;
    }

private:
    enum : std::size_t {
        Schema,
        SchemaVersion,
        ProductName,
        BaseCode,
        HelpFolder,
        HelpLocation,
        RefItems,
        SupportPackages
    };
    static constexpr std::array<std::string_view, 8> kKeys = {
        "schema",     "schemaVersion", "productName", "baseCode",
        "helpFolder", "helpLocation",  "refItems",    "supportPackages"};

    DocResource<T> readSection(Object object, bool isRoot) {
        std::array<std::u16string, 6> texts;
        typename DocResource<T>::Items items;
        const auto readOne = [&](std::size_t slot, Value value) {
            if (slot == RefItems)
                Json::forEachElement(value, [&](Value element) { readItem<Json>(element, items); });
            else if (slot == SupportPackages)
                readPackages(value, isRoot);
            else
                texts[slot] = readText<Json>(value, slot == ProductName ? StringParsingType::Utf8
                                                                        : StringParsingType::Ascii);
        };
        const std::uint32_t seen = readMembers<Json>(object, kKeys, readOne);
        require(seen, ProductName, BaseCode, HelpFolder, HelpLocation, RefItems);
        return {HeaderInfo(std::move(texts[Schema]), std::move(texts[SchemaVersion]),
                           std::move(texts[ProductName]), std::move(texts[BaseCode]),
                           std::move(texts[HelpFolder]), std::move(texts[HelpLocation]), product_),
                std::move(items)};
    }

    void readPackages(Value array, bool isRoot) {
        if (!isRoot)
            return;
        Json::forEachElement(array, [this](Value element) {
            packages_.push_back(readSection(Json::object(element), /*isRoot=*/false));
        });
    }

    const std::u16string& product_;
    std::vector<DocResource<T>> packages_;
};

} // namespace reference::docparser::benchmarks
