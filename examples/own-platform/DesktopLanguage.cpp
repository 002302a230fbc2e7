// The documentation language service of an application that uses the language of the desktop. It
// replaces the implementation in platform/language and keeps its header.

#include <platform/HostServices.hpp>
#include <platform/i18n/Converter.hpp>
#include <platform/language/DocLanguage.hpp>

#include <algorithm>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

namespace doclanguage {
namespace {

// Returns the first non-empty variable that selects the language of messages: "de_DE.UTF-8".
std::string_view desktopLocale() {
    for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        const char* value = std::getenv(name);
        if (value != nullptr && *value != '\0')
            return value;
    }
    return "";
}

} // namespace

DocLanguage& DocLanguage::getInstance() {
    static DocLanguage service;
    return service;
}

std::u16string DocLanguage::getDocLanguage() const {
    const std::string_view locale = desktopLocale();
    const std::u16string language = fl::i18n::to_ustring(locale.substr(0, locale.find('_')));
    const std::vector<std::u16string> supported = getSupportedDocLanguages();
    return std::ranges::find(supported, language) == supported.end() ? u"en" : language;
}

std::vector<std::u16string> DocLanguage::getSupportedDocLanguages() const {
    return platform::hostServices()->supportedDocLanguages();
}

} // namespace doclanguage
