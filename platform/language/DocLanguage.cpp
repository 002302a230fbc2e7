#include "platform/language/DocLanguage.hpp"

#include "platform/HostServices.hpp"

namespace doclanguage {

DocLanguage& DocLanguage::getInstance() {
    static DocLanguage service;
    return service;
}

std::u16string DocLanguage::getDocLanguage() const {
    return platform::hostServices()->docLanguage();
}

std::vector<std::u16string> DocLanguage::getSupportedDocLanguages() const {
    return platform::hostServices()->supportedDocLanguages();
}

} // namespace doclanguage
