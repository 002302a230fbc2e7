#include "tools/refdoc/session/EnglishFallback.hpp"

#include "docparser/DocParserException.hpp"
#include "platform/HostServices.hpp"
#include "platform/log/DiagnosticLogger.hpp"
#include "tools/refdoc/session/HostOverrides.hpp"

#include <cstdint>
#include <memory>

namespace refdoc {

using reference::docparser::DocParserException;
using reference::docparser::DocResourceParser;
using reference::docparser::ResourceMap;
using reference::property::RefItem;
using Tools = DocResourceParser::ParsingTools;

namespace {

// Lets the library answer in English and be silent as long as this object lives.
class EnglishInSilence {
public:
    EnglishInSilence()
        : services_(platform::hostServices()), mask_(foundation::log::severityMask()) {
        platform::setHostServices(
            std::make_shared<LanguageOverrides>(services_, Tools::kEnglishLocale, std::nullopt));
        foundation::log::setSeverityMask(0);
    }
    ~EnglishInSilence() {
        platform::setHostServices(services_);
        foundation::log::setSeverityMask(mask_);
    }
    EnglishInSilence(const EnglishInSilence&) = delete;
    EnglishInSilence& operator=(const EnglishInSilence&) = delete;

private:
    std::shared_ptr<const platform::HostServices> services_;
    std::uint32_t mask_;
};

// In English a product has one file, and P_ja.json alone is that of the product "P_ja".
ResourceMap<RefItem> readTranslation(const std::u16string& product,
                                     const std::u16string& language) {
    const EnglishInSilence guard;
    try {
        return DocResourceParser::getResourceFile(product + Tools::kLocaleSeparator + language);
    } catch (const DocParserException&) {
        return {}; // there is no translation
    }
}

std::u16string inQuotes(const std::u16string& text) {
    return u'"' + text + u'"';
}

} // namespace

EnglishFallback::EnglishFallback(const std::u16string& product)
    : language_(Tools::getCurrentLocale()), isEnglish_(language_ == Tools::kEnglishLocale) {
    if (!isEnglish_)
        translation_ = readTranslation(product, language_);
}

std::u16string EnglishFallback::noteOn(const std::u16string& section) const {
    if (isEnglish_ || translation_.contains(section))
        return {};
    return u"English: nothing of this is translated into " + inQuotes(language_);
}

std::u16string EnglishFallback::noteOn(const std::u16string& section, const std::u16string& href,
                                       const std::vector<RefItem>& items) const {
    const auto resource = translation_.find(section);
    if (resource == translation_.end())
        return {};
    const auto translated = resource->second.items.find(href);
    if (translated != resource->second.items.end() && translated->second == items)
        return {};
    return u"English: not translated into " + inQuotes(language_);
}

} // namespace refdoc
