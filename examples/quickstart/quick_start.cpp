#include <docparser/DocParserException.hpp>
#include <docparser/DocResourceParser.hpp>
#include <platform/i18n/Converter.hpp>

#include <iostream>

using reference::docparser::DocParserException;
using reference::docparser::DocResourceParser;

// Prints what each item of a product is for: quick_start REFERENCE-ROOT PRODUCT
int main(int argc, char* argv[]) {
    if (argc != 3)
        return 2;
    DocResourceParser::setReferenceRoot(fl::i18n::to_ustring(argv[1]));
    try {
        const auto resources = DocResourceParser::getResourceFile(fl::i18n::to_ustring(argv[2]));
        for (const auto& [section, resource] : resources) {
            for (const auto& [href, items] : resource.items) {
                for (const auto& item : items)
                    std::cout << fl::i18n::to_string(href) << ": "
                              << fl::i18n::to_string(item.getRefPurpose()) << '\n';
            }
        }
    } catch (const DocParserException& missing) {
        std::cerr << "no resources for " << fl::i18n::to_string(missing.getProductName()) << '\n';
        return 1;
    }
}
