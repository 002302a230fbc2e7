// Prints the purpose of an item in the language of the desktop:
// desktop_reader INSTALL-FOLDER PRODUCT HREF

#include <docparser/DocParserException.hpp>
#include <docparser/DocResourceParser.hpp>
#include <platform/InstallationManifest.hpp>
#include <platform/i18n/Converter.hpp>

#include <exception>
#include <iostream>
#include <memory>
#include <string>

namespace {

using fl::i18n::to_string;
using fl::i18n::to_ustring;
using reference::docparser::DocParserException;
using reference::docparser::DocResourceParser;

// Prints the purposes of the items with an href; returns false if the product has no such item.
bool showItem(const std::u16string& product, const std::u16string& href) {
    bool found = false;
    for (const auto& [key, resource] : DocResourceParser::getResourceFile(product)) {
        const auto items = resource.items.find(href);
        if (items == resource.items.end())
            continue;
        found = true;
        for (const auto& item : items->second)
            std::cout << to_string(item.getRefPurpose()) << '\n';
    }
    return found;
}

} // namespace

int main(int argc, char* argv[]) {
    if (argc != 4) {
        std::cerr << "usage: desktop_reader INSTALL-FOLDER PRODUCT HREF\n";
        return 2;
    }
    try {
        const std::u16string installFolder = to_ustring(argv[1]);
        platform::setHostServices(std::make_shared<platform::InstallationManifest>(installFolder));
        DocResourceParser::setReferenceRoot(installFolder + u"/help");
        return showItem(to_ustring(argv[2]), to_ustring(argv[3])) ? 0 : 1;
    } catch (const DocParserException& missing) {
        std::cerr << "no documentation for " << to_string(missing.getProductName()) << '\n';
        return 1;
    } catch (const std::exception& failure) {
        std::cerr << "desktop_reader: " << failure.what() << '\n';
        return 3;
    }
}
