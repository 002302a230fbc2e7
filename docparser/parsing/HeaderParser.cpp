#include "docparser/parsing/HeaderParser.hpp"

#include "docparser/parsing/Members.hpp"

#include <utility>

namespace reference::docparser {

property::HeaderInfo getHeaderInfo(const boost::json::value& section,
                                   const std::u16string& product) {
    using enum StringParsingType;
    enum { Schema, SchemaVersion, ProductName, BaseCode, HelpFolder, HelpLocation };
    static constexpr auto kKeys =
        keys("schema", "schemaVersion", "productName", "baseCode", "helpFolder", "helpLocation");

    const Members header(section, kKeys);
    std::u16string schema = header.optionalText(Schema, Ascii);
    std::u16string schemaVersion = header.optionalText(SchemaVersion, Ascii);
    std::u16string productName = header.text(ProductName, Utf8);
    std::u16string baseCode = header.text(BaseCode, Ascii);
    std::u16string helpFolder = header.text(HelpFolder, Ascii);
    std::u16string helpLocation = header.text(HelpLocation, Ascii);
    return {std::move(schema),
            std::move(schemaVersion),
            std::move(productName),
            std::move(baseCode),
            std::move(helpFolder),
            std::move(helpLocation),
            product};
}

} // namespace reference::docparser
