#pragma once

#include "docparser/DocResourceParser.hpp"
#include "docparser/json/Fields.hpp"

namespace reference::json {

// The fields of the library's records, in the order of their constructors.

template <>
inline constexpr auto kFields<property::HeaderInfo> =
    std::tuple{Field{"schema", &property::HeaderInfo::getSchema},
               Field{"schemaVersion", &property::HeaderInfo::getSchemaVersion},
               Field{"productName", &property::HeaderInfo::getProductName},
               Field{"baseCode", &property::HeaderInfo::getBaseCode},
               Field{"helpFolder", &property::HeaderInfo::getHelpFolder},
               Field{"helpLocation", &property::HeaderInfo::getHelpLocation},
               Field{"product", &property::HeaderInfo::getProduct}};

template <>
inline constexpr auto kFields<property::RefEntity> =
    std::tuple{Field{"entityType", &property::RefEntity::getEntityType},
               Field{"name", &property::RefEntity::getName},
               Field{"functionType", &property::RefEntity::getFunctionType}};

template <>
inline constexpr auto kFields<property::AppThumbnail> =
    std::tuple{Field{"fileRef", &property::AppThumbnail::getFileRef},
               Field{"alt", &property::AppThumbnail::getAlt}};

template <>
inline constexpr auto kFields<property::SyntaxGroup> =
    std::tuple{Field{"title", &property::SyntaxGroup::getTitle},
               Field{"syntaxType", &property::SyntaxGroup::getSyntaxType},
               Field{"syntaxes", &property::SyntaxGroup::getSyntaxes}};

template <>
inline constexpr auto kFields<property::ObjectInfo> =
    std::tuple{Field{"name", &property::ObjectInfo::getName},
               Field{"purpose", &property::ObjectInfo::getPurpose},
               Field{"values", &property::ObjectInfo::getValues},
               Field{"href", &property::ObjectInfo::getHref}};

template <>
inline constexpr auto kFields<property::Input> =
    std::tuple{Field{"objectInfo", &property::Input::getObjectInfo},
               Field{"syntaxType", &property::Input::getSyntaxType},
               Field{"defaultValue", &property::Input::getDefaultValue},
               Field{"isNameValuePair", &property::Input::getIsNameValuePair}};

template <>
inline constexpr auto kFields<property::InputGroup> =
    std::tuple{Field{"title", &property::InputGroup::getTitle},
               Field{"inputs", &property::InputGroup::getInputs}};

template <>
inline constexpr auto kFields<property::Output> =
    std::tuple{Field{"objectInfo", &property::Output::getObjectInfo},
               Field{"syntaxType", &property::Output::getSyntaxType}};

template <>
inline constexpr auto kFields<property::Parameter> =
    std::tuple{Field{"objectInfo", &property::Parameter::getObjectInfo},
               Field{"defaultValue", &property::Parameter::getDefaultValue}};

template <>
inline constexpr auto kFields<property::ClassProperty> =
    std::tuple{Field{"objectInfo", &property::ClassProperty::getObjectInfo},
               Field{"defaultValue", &property::ClassProperty::getDefaultValue}};

template <>
inline constexpr auto kFields<property::ClassPropertyGroup> =
    std::tuple{Field{"title", &property::ClassPropertyGroup::getTitle},
               Field{"properties", &property::ClassPropertyGroup::getProperties}};

template <>
inline constexpr auto kFields<property::SeeAlso> = std::tuple{
    Field{"url", &property::SeeAlso::getUrl}, Field{"name", &property::SeeAlso::getName}};

template <>
inline constexpr auto kFields<property::Example> =
    std::tuple{Field{"url", &property::Example::getUrl},
               Field{"openCommand", &property::Example::getOpenCommand},
               Field{"title", &property::Example::getTitle}};

template <>
inline constexpr auto kFields<property::RefItem> =
    std::tuple{Field{"href", &property::RefItem::getHref},
               Field{"refEntities", &property::RefItem::getRefEntities},
               Field{"packageName", &property::RefItem::getPackageName},
               Field{"refPurpose", &property::RefItem::getRefPurpose},
               Field{"introduced", &property::RefItem::getIntroduced},
               Field{"description", &property::RefItem::getDescription},
               Field{"appThumbnail", &property::RefItem::getAppThumbnail},
               Field{"deprecationStatus", &property::RefItem::getDeprecationStatus},
               Field{"syntaxGroups", &property::RefItem::getSyntaxGroups},
               Field{"inputs", &property::RefItem::getInputs},
               Field{"inputGroups", &property::RefItem::getInputGroups},
               Field{"outputs", &property::RefItem::getOutputs},
               Field{"classPropertyGroups", &property::RefItem::getClassPropertyGroups},
               Field{"seeAlso", &property::RefItem::getSeeAlso},
               Field{"examples", &property::RefItem::getExamples},
               Field{"parameters", &property::RefItem::getParameters}};

template <>
inline constexpr auto kFields<property::RefItemLookup> =
    std::tuple{Field{"name", &property::RefItemLookup::getName},
               Field{"entityType", &property::RefItemLookup::getEntityType},
               Field{"refPurpose", &property::RefItemLookup::getRefPurpose},
               Field{"deprecated", &property::RefItemLookup::getDeprecated},
               Field{"href", &property::RefItemLookup::getHref},
               Field{"functionType", &property::RefItemLookup::getFunctionType}};

template <class T>
inline constexpr auto kFields<docparser::DocResource<T>> =
    std::tuple{Field{"header", &docparser::DocResource<T>::header},
               Field{"items", &docparser::DocResource<T>::items}};

template <class Map>
inline constexpr auto kFields<docparser::ParsingResults<Map>> =
    std::tuple{Field{"installed", &docparser::ParsingResults<Map>::installed},
               Field{"notInstalled", &docparser::ParsingResults<Map>::notInstalled}};

} // namespace reference::json
