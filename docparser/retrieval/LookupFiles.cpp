#include "docparser/retrieval/LookupFiles.hpp"

#include "docparser/discovery/Locales.hpp"
#include "docparser/discovery/ProductEnumeration.hpp"
#include "docparser/retrieval/LookupAccount.hpp"
#include "docparser/retrieval/LookupProducts.hpp"
#include "docparser/retrieval/LookupZips.hpp"
#include "docparser/shared/Accounting.hpp"

#include <optional>
#include <utility>

namespace reference::docparser {

LookupResults collectLookupFiles(const std::u16string& lookupFolder,
                                 ParseLookupText parseLookupText, IsInstalled isInstalled) {
    if (lookupFolder.empty())
        return {};

    LoadAccount* const files = currentLoadAccount();
    std::optional<LookupAccount> account;
    if (files)
        account.emplace(*files);
    const LookupReadContext context{std::move(parseLookupText), std::move(isInstalled),
                                    getSupportedDocLocales(), makeLocaleSuffix(getCurrentLocale()),
                                    account ? &*account : nullptr};
    const ProductLists products =
        findProducts(lookupFolder, context.supportedLocales, context.localeSuffix, files);
    // A plain file that collides with a package fills the package's entry up, never the reverse.
    LookupResults result = readZipLookups(products.zipProducts, context);
    readFolderLookups(products.jsonProducts, context, result);
    return result;
}

} // namespace reference::docparser
