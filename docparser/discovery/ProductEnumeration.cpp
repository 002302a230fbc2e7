#include "docparser/discovery/ProductEnumeration.hpp"

#include "docparser/discovery/ProductSelection.hpp"
#include "docparser/shared/Constants.hpp"
#include "platform/Failure.hpp"
#include "platform/path/DirectoryIterator.hpp"
#include "platform/path/Path.hpp"

#include <utility>

namespace reference::docparser {

ProductLists findProducts(const std::u16string& root,
                          const std::vector<std::u16string>& localeSuffixes,
                          const std::u16string& currentLocaleSuffix, RetrievalObserver& observer) {
    ProductLists products;
    // A folder that disappears or cannot be read ends the iteration; the files found so far are
    // returned.
    platform::ignoreFailure([&] {
        if (root.empty())
            return;
        const fl::filesystem::path folder = fl::filesystem::make_native_form(root);
        fl::filesystem::directory_iterator file(folder, u"*");
        for (; file.is_open(); file.increment()) {
            const fl::filesystem::path name = fl::filesystem::make_native_form(file.filename());
            ProductSelection selection = selectProduct(name, localeSuffixes, currentLocaleSuffix);
            if (selection.skipped) {
                observer.fileSkipped(folder.string(), name.string(), *selection.skipped);
                continue;
            }
            const bool isZip = fl::filesystem::extract_extension(name) == kZipExtension;
            auto& target = isZip ? products.zipProducts : products.jsonProducts;
            target.emplace_back(std::move(selection.stem), selection.isNonEnglishLocale,
                                file.full_pathname().string());
        }
    });
    return products;
}

} // namespace reference::docparser
