// Uses arbitrary UTF-16 strings as names of products, files and folders, and as locale suffixes.
// The input is UTF-16, low byte first. Its first unit is the length of the language that follows;
// the rest is the name.

#include "docparser/DocParserException.hpp"
#include "docparser/DocResourceParser.hpp"
#include "docparser/discovery/ProductEnumeration.hpp"
#include "docparser/discovery/ProductSelection.hpp"
#include "fuzz/support/FuzzHost.hpp"
#include "fuzz/support/Require.hpp"
#include "fuzz/support/Target.hpp"
#include "platform/path/Path.hpp"
#include "platform/system/NativePath.hpp"
#include "tests/support/ResourceText.hpp"
#include "tests/support/TemporaryFolder.hpp"

#include <algorithm>
#include <memory>
#include <string>

namespace {

using docparser_fuzz::require;
using reference::docparser::DocResourceParser;

/// The parts of an input.
struct Names {
    std::u16string language;
    std::u16string product;
};

Names split(const std::uint8_t* bytes, std::size_t size) {
    std::u16string units;
    for (std::size_t i = 0; i + 1 < size; i += 2)
        units += static_cast<char16_t>(bytes[i] | bytes[i + 1] << 8);
    if (units.empty())
        return {};
    const std::size_t length = std::min<std::size_t>(units[0] % 8, units.size() - 1);
    return {units.substr(1, length), units.substr(1 + length)};
}

/// An installation with a few files, created once.
struct Installation {
    Installation() {
        const std::string text = docparser_tests::resourceText("orchard", {{"a.html", "A"}});
        for (const std::u16string name :
             {u"Orchard", u"", u"\u00e4\U0001F34E", u"a/b", u"x_de", u"Orchard_de", u"tab\t"})
            folder.write(u"root/help/docCatalog/referenceapi/" + name + u".json", text);
        folder.write("secret", text);
    }

    std::u16string root() const { return folder.u16() + u"/root/help"; }

    docparser_tests::TemporaryFolder folder;
};

const Installation& installation() {
    static const Installation instance;
    return instance;
}

void checkProduct(const std::u16string& product) {
    try {
        const auto resources = DocResourceParser::getResourceFile(product);
        require(!resources.empty(), "an existing product has a section");
        require(resources.begin()->second.header.getProduct() == product,
                "a header has exactly the requested name");
    } catch (const reference::docparser::DocParserException& exception) {
        require(exception.getProductName() == product,
                "the exception has exactly the requested name");
    }
}

void checkFileName(const std::u16string& name) {
    using namespace fl::filesystem;
    const std::u16string extension = extract_extension(name);
    const std::u16string stem = extract_stem(name);
    const std::u16string last = path(name).filename().string();
    require(last == stem || last == stem + u'.' + extension || last == u"." || last == u"..",
            "a file name consists of its stem and extension");
    require(std::none_of(stem.begin(), stem.end(), platform::isPathSeparator),
            "a stem has no separator");
    require(reference::docparser::isValidFilename(name) ==
                (extension == u"json" || extension == u"zip"),
            "only the extension makes a file a product file");
    require((path(u"folder") / name).string() == u"folder/" + name,
            "a component never replaces the folder");
    require(name.starts_with(remove_filename(name).string()),
            "a path starts with its parent folder");
}

void checkStem(const std::u16string& stem, const std::u16string& suffix) {
    using reference::docparser::Fate;
    const auto selection =
        reference::docparser::selectProduct(stem + u".json", {u"_de", suffix}, suffix);
    const std::u16string& own = selection.stem;
    const bool isTranslation = own.ends_with(suffix) || own.ends_with(u"_de");
    require(selection.isNonEnglishLocale == isTranslation, "a suffix marks a translation");
    require(selection.skipped.has_value() == (isTranslation && !own.ends_with(suffix)),
            "only translations into other languages are skipped");
}

void checkFolder(const std::u16string& folder, const std::u16string& suffix) {
    DocResourceParser::getAllProducts(folder, {suffix}, suffix); // never throws
    const auto products = DocResourceParser::getAllProducts(
        installation().root() + u"/docCatalog/referenceapi", {suffix}, suffix);
    for (const auto& product : products.jsonProducts)
        require(product.getFullPath().ends_with(u'/' + product.getName() + u".json"),
                "the path of a product ends with its file name");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    const Names names = split(bytes, size);
    platform::setHostServices(std::make_shared<docparser_fuzz::FuzzHost>(
        names.language, installation().folder.u16() + u"/support"));
    DocResourceParser::setReferenceRoot(installation().root());
    checkProduct(names.product);
    checkFileName(names.product);
    checkStem(names.product, names.language);
    checkFolder(names.product, u'_' + names.language);
    require(DocResourceParser::isProductInstalled(names.product) ==
                (names.product == u"orchard" || names.product == u"kit"),
            "a product is installed exactly if its name is listed");
    return 0;
}
