#include "tools/refdoc/pages/SiteModel.hpp"

namespace refdoc::site {

using Tools = reference::docparser::DocResourceParser::ParsingTools;

namespace {

bool isOwnFile(const Edition& edition, const Origin& origin) {
    return edition.language == Tools::kEnglishLocale ||
           edition.account.files[origin.file].isTranslation;
}

} // namespace

bool isFallback(const Edition& edition, const std::u16string& section, const std::u16string& href) {
    return !isOwnFile(edition, edition.origins.at(section).kept.at(href).front().origin);
}

bool hasOwnSection(const Edition& edition, const std::u16string& section) {
    const auto origins = edition.origins.find(section);
    return origins != edition.origins.end() && isOwnFile(edition, origins->second.header);
}

} // namespace refdoc::site
