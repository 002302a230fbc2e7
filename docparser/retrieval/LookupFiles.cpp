#include "docparser/retrieval/LookupFiles.hpp"

#include "docparser/discovery/Locales.hpp"
#include "docparser/discovery/ProductEnumeration.hpp"
#include "docparser/retrieval/LookupProducts.hpp"

#include <utility>

namespace reference::docparser {

LookupResults collectLookupFiles(const std::u16string& lookupFolder,
                                 ParseLookupText parseLookupText, IsInstalled isInstalled) {
    LookupResults result;
    if (lookupFolder.empty())
        return result;

    LookupReadContext context{std::move(parseLookupText), std::move(isInstalled),
                              getSupportedDocLocales(), makeLocaleSuffix(getCurrentLocale())};
    const ProductLists products =
        findProducts(lookupFolder, context.supportedLocales, context.localeSuffix);
    readFolderLookups(products.jsonProducts, context, result);
    return result;
}

} // namespace reference::docparser
