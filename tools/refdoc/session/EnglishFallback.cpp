#include "tools/refdoc/session/EnglishFallback.hpp"

#include "docparser/DocParserException.hpp"
#include "platform/i18n/Converter.hpp"
#include "platform/log/DiagnosticLogger.hpp"
#include "tools/refdoc/session/HostOverrides.hpp"
#include "tools/refdoc/terminal/Words.hpp"

#include <cstdint>

namespace refdoc {

using reference::docparser::DocParserException;
using reference::docparser::DocResourceParser;
using reference::docparser::ResourceMap;
using reference::property::RefItem;
using Tools = DocResourceParser::ParsingTools;

namespace {

// Disables the library's diagnostic records while the object exists.
class SilenceGuard {
public:
    SilenceGuard() : mask_(foundation::log::severityMask()) { foundation::log::setSeverityMask(0); }
    ~SilenceGuard() { foundation::log::setSeverityMask(mask_); }
    SilenceGuard(const SilenceGuard&) = delete;
    SilenceGuard& operator=(const SilenceGuard&) = delete;

private:
    std::uint32_t mask_;
};

// If the language is English, a product has one file. P_ja.json is then that of a product "P_ja".
ResourceMap<RefItem> readTranslation(const std::u16string& product,
                                     const std::u16string& language) {
    const SilenceGuard silence;
    const LanguageGuard english(Tools::kEnglishLocale);
    try {
        return DocResourceParser::getResourceFile(product + Tools::kLocaleSeparator + language);
    } catch (const DocParserException&) {
        return {}; // no translation exists
    }
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
    return u"English: nothing of this is translated into " + quotedLanguage();
}

std::u16string EnglishFallback::noteOn(const std::u16string& section, const std::u16string& href,
                                       const std::vector<RefItem>& items) const {
    const auto resource = translation_.find(section);
    if (resource == translation_.end())
        return {};
    const auto translated = resource->second.items.find(href);
    if (translated != resource->second.items.end() && translated->second == items)
        return {};
    return u"English: not translated into " + quotedLanguage();
}

std::u16string EnglishFallback::quotedLanguage() const {
    return fl::i18n::to_ustring(quoted(language_));
}

} // namespace refdoc
