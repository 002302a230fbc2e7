#include "docparser/discovery/Locales.hpp"

#include "docparser/shared/Constants.hpp"
#include "platform/language/DocLanguage.hpp"

namespace reference::docparser {

std::u16string makeLocaleSuffix(const std::u16string& language) {
    return kLocaleSeparatorUnit + language;
}

std::u16string getCurrentLocale() {
    return doclanguage::DocLanguage::getInstance().getDocLanguage();
}

std::vector<std::u16string> getSupportedDocLocales() {
    std::vector<std::u16string> locales =
        doclanguage::DocLanguage::getInstance().getSupportedDocLanguages();
    std::erase(locales, kEnglish);
    for (std::u16string& locale : locales)
        locale.insert(locale.begin(), kLocaleSeparatorUnit);
    return locales;
}

} // namespace reference::docparser
