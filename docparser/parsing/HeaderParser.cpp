#include "docparser/parsing/HeaderParser.hpp"

#include "docparser/parsing/Members.hpp"

#include <utility>

namespace reference::docparser {

property::HeaderInfo getHeaderInfo(const boost::json::value& section,
                                   const std::u16string& product) {
    using enum StringParsingType;
    using Header = Members<
        Keys<"schema", "schemaVersion", "productName", "baseCode", "helpFolder", "helpLocation">>;

    const Header header(section);
    std::u16string schema = header.optionalText<"schema">(Ascii);
    std::u16string schemaVersion = header.optionalText<"schemaVersion">(Ascii);
    std::u16string productName = header.text<"productName">(Utf8);
    std::u16string baseCode = header.text<"baseCode">(Ascii);
    std::u16string helpFolder = header.text<"helpFolder">(Ascii);
    std::u16string helpLocation = header.text<"helpLocation">(Ascii);
    return {std::move(schema),
            std::move(schemaVersion),
            std::move(productName),
            std::move(baseCode),
            std::move(helpFolder),
            std::move(helpLocation),
            product};
}

} // namespace reference::docparser
