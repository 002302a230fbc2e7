#include "docparser/retrieval/LookupFiles.hpp"

#include "docparser/discovery/Locales.hpp"
#include "docparser/discovery/ProductEnumeration.hpp"
#include "docparser/retrieval/LookupProducts.hpp"
#include "docparser/retrieval/LookupZips.hpp"

#include <utility>

namespace reference::docparser {

LookupResults collectLookupFiles(const std::u16string& lookupFolder,
                                 ParseLookupText parseLookupText, IsInstalled isInstalled) {
    if (lookupFolder.empty())
        return {};

    const LookupReadContext context{std::move(parseLookupText), std::move(isInstalled),
                                    getSupportedDocLocales(), makeLocaleSuffix(getCurrentLocale())};
    const ProductLists products =
        findProducts(lookupFolder, context.supportedLocales, context.localeSuffix);
    // A plain file that collides with a package fills the package's entry up, never the reverse.
    LookupResults result = readZipLookups(products.zipProducts, context);
    readFolderLookups(products.jsonProducts, context, result);
    return result;
}

} // namespace reference::docparser
