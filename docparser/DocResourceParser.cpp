#include "docparser/DocResourceParser.hpp"

#include "docparser/DocParserException.hpp"
#include "docparser/Settings.hpp"
#include "docparser/account/RetrievalRecording.hpp"
#include "docparser/discovery/Locales.hpp"
#include "docparser/discovery/ProductEnumeration.hpp"
#include "docparser/parsing/HeaderParser.hpp"
#include "docparser/parsing/JsonAccess.hpp"
#include "docparser/parsing/LookupParser.hpp"
#include "docparser/retrieval/LookupFiles.hpp"
#include "docparser/retrieval/ResourceFiles.hpp"
#include "docparser/retrieval/ResourceText.hpp"
#include "docparser/shared/Constants.hpp"
#include "docparser/shared/DiagnosticChannel.hpp"
#include "platform/i18n/Converter.hpp"

#include <utility>

namespace reference::docparser {

using property::RefItem;
using property::RefItemLookup;
using Tools = DocResourceParser::ParsingTools;

// --- retrieval

ResourceMap<RefItem> DocResourceParser::getResourceFile(const std::u16string& product) {
    RetrievalRecording recording;
    RetrievalObserver& observer = recording.observer();
    const std::shared_ptr<const ReferenceRoots> roots = getReferenceRoots();
    if (auto resources = getResourceDataAtRoot(product, roots->referenceApiFolder, observer))
        return *std::move(resources);

    const std::shared_ptr<const std::u16string> supportPackageFolder = getSupportPackageRoot();
    if (auto resources = getResourceDataAtRoot(product, *supportPackageFolder, observer))
        return *std::move(resources);

    writeDiagnostic(kProblemSeverity,
                    "DocParserException thrown in getResourceFile for product: ", product);
    throw DocParserException(product);
}

ParsingResults<ResourceMap<RefItemLookup>> DocResourceParser::getResourceLookupFiles() {
    RetrievalRecording recording;
    const std::shared_ptr<const ReferenceRoots> roots = getReferenceRoots();
    const auto parseLookupText = [](std::string text, const std::u16string& product,
                                    RetrievalObserver& observer) {
        return parseResourceText<RefItemLookup>(std::move(text), product, parseRefItemLookupSection,
                                                observer);
    };
    return collectLookupFiles(roots->lookupFolder, parseLookupText, isProductInstalled,
                              recording.observer());
}

// --- discovery

ProductLists DocResourceParser::getAllProducts(const std::u16string& root,
                                               const std::vector<std::u16string>& localeSuffixes,
                                               const std::u16string& currentLocaleSuffix) {
    return findProducts(root, localeSuffixes, currentLocaleSuffix, unobserved);
}

std::shared_ptr<const TopLevelProducts> DocResourceParser::getTopLevelProducts() {
    return Settings::instance().getTopLevelProducts();
}

bool DocResourceParser::isProductInstalled(const std::u16string& name) {
    const std::string shortName = fl::i18n::to_string(name);
    const std::shared_ptr<const SupportPackages> packages = getHardwareSupportPackages();
    const std::shared_ptr<const TopLevelProducts> products = getTopLevelProducts();
    return containsShortName(*products, shortName) || packages->contains(name);
}

std::shared_ptr<const SupportPackages> DocResourceParser::getHardwareSupportPackages() {
    return Settings::instance().getHardwareSupportPackages();
}

std::shared_ptr<const std::u16string> DocResourceParser::getSupportPackageRoot() {
    return Settings::instance().getSupportPackageFolder();
}

// --- settings

void DocResourceParser::setTestProducts(const std::vector<std::u16string>& topLevelNames,
                                        const std::vector<std::u16string>& supportPackageNames) {
    Settings::instance().setTestProducts(topLevelNames, supportPackageNames);
}

std::shared_ptr<const ReferenceRoots> DocResourceParser::getReferenceRoots() {
    return Settings::instance().getReferenceRoots();
}

void DocResourceParser::setReferenceRoot(std::u16string root) {
    Settings::instance().setReferenceRoot(std::move(root));
}

void DocResourceParser::setSupportPackageRoot(std::u16string folder) {
    Settings::instance().setSupportPackageFolder(std::move(folder));
}

void DocResourceParser::restoreDefaultSettings() {
    Settings::instance().restoreDefaults();
}

void DocResourceParser::clearSupportPackageCaches() {
    Settings::instance().clearSupportPackageCaches();
}

// --- parsing tools

static_assert(Tools::kLocaleSeparator == kLocaleSeparatorUnit);
const std::u16string Tools::kJsonExt(kJsonExtension);
const std::u16string Tools::kDotJsonExt(kDotJsonExtension);
const std::u16string Tools::kZipExt(kZipExtension);
const std::u16string Tools::kDotZipExt(kDotZipExtension);
const std::u16string Tools::kEnglishLocale(kEnglish);

std::u16string Tools::getCurrentLocale() {
    return docparser::getCurrentLocale();
}

std::vector<std::u16string> Tools::getSupportedDocLocales() {
    return docparser::getSupportedDocLocales();
}

std::u16string Tools::getFluString(const boost::json::object& object, const std::string& key,
                                   StringParsingType type) {
    return docparser::getFluString(object, key, type);
}

std::u16string Tools::getFluString(const boost::json::value& value, StringParsingType type) {
    return docparser::getFluString(value, type);
}

std::u16string Tools::getFluStringWithFallback(const boost::json::object& object,
                                               const std::string& key, StringParsingType type) {
    return docparser::getFluStringWithFallback(object, key, type);
}

const boost::json::array& Tools::getJsonArray(const boost::json::value& value) {
    return docparser::getJsonArray(value);
}

const boost::json::array& Tools::getJsonArray(const boost::json::value& value,
                                              const std::string& key) {
    return docparser::getJsonArray(value, key);
}

property::HeaderInfo Tools::getHeaderInfo(const boost::json::value& section,
                                          const std::u16string& product) {
    return docparser::getHeaderInfo(section, product);
}

} // namespace reference::docparser
