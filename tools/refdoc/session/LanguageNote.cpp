#include "tools/refdoc/session/LanguageNote.hpp"

#include "docparser/DocResourceParser.hpp"
#include "platform/Failure.hpp"
#include "platform/i18n/Converter.hpp"
#include "platform/path/Path.hpp"
#include "tools/refdoc/session/HostOverrides.hpp"
#include "tools/refdoc/session/Languages.hpp"
#include "tools/refdoc/suggest/NearLanguage.hpp"
#include "tools/refdoc/suggest/Suggestions.hpp"
#include "tools/refdoc/terminal/Words.hpp"

#include <boost/algorithm/string/join.hpp>
#include <fmt/format.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <memory>
#include <set>
#include <system_error>
#include <vector>

namespace refdoc {

using Tools = reference::docparser::DocResourceParser::ParsingTools;
using Languages = std::vector<std::u16string>;

namespace {

bool hasManifest(const platform::HostServices& services) {
    const fl::filesystem::path file =
        fl::filesystem::path(services.installPath()) / u"installation.json";
    std::error_code ignored; // a file that cannot be checked was not read either
    return std::filesystem::exists(fl::filesystem::make_native_access_form_with_cleanup_i18n(file),
                                   ignored);
}

// Absent if neither the options nor a manifest name languages.
std::optional<Languages> namedLanguages(const Options& options) {
    if (options.supportedLanguages)
        return selectedLanguages(options);
    const std::shared_ptr<const platform::HostServices> services = selectedServices(options);
    if (!hasManifest(*services))
        return std::nullopt;
    std::optional<std::vector<std::u16string>> languages;
    // A malformed manifest names none. The command itself reports it.
    platform::ignoreFailure([&] { languages = services->supportedDocLanguages(); });
    return languages;
}

bool contains(const Languages& languages, const std::u16string& language) {
    return std::ranges::find(languages, language) != languages.end();
}

// The named languages; without them, those that the names of the files show, and the requested one
// if any file has its suffix.
Languages expectedLanguages(const std::u16string& requested,
                            const std::optional<Languages>& named) {
    if (named)
        return *named;
    const std::set<std::u16string> names = fileNames();
    Languages languages = inferLanguages(names);
    const std::u16string suffix = Tools::kLocaleSeparator + requested;
    if (std::ranges::any_of(names, [&](const auto& name) { return name.ends_with(suffix); }))
        languages.push_back(requested);
    return languages;
}

std::string complaint(const std::u16string& language, const Languages& supported,
                      std::string_view consequence) {
    return fmt::format("{} is not a supported language ({}){}{}", quoted(language),
                       fl::i18n::to_string(boost::join(supported, u", ")), consequence,
                       didYouMean(nearLanguage(language, supported)));
}

} // namespace

void expectSupportedLanguage(const Options& options) {
    if (!options.language || *options.language == Tools::kEnglishLocale)
        return;
    const Languages supported = expectedLanguages(*options.language, namedLanguages(options));
    if (!contains(supported, *options.language))
        throw UsageError(complaint(*options.language, supported, ""));
}

std::optional<std::string> unsupportedLanguageNote(const Options& options) {
    if (!options.language || *options.language == Tools::kEnglishLocale)
        return std::nullopt;
    const std::optional<Languages> named = namedLanguages(options);
    const Languages supported = expectedLanguages(*options.language, named);
    const bool areKnown = named || supported.size() > 1;
    if (!areKnown || contains(supported, *options.language))
        return std::nullopt;
    return "note: " + complaint(*options.language, supported, "; it is added for this call");
}

std::optional<std::string> uncountedTranslationsNote(const Options& options) {
    if (namedLanguages(options))
        return std::nullopt;
    std::vector<std::string> suffixes;
    for (const auto& [language, count] : countTranslations(fileNames())) {
        if (count > 1 && language != options.language)
            suffixes.push_back(quoted(Tools::kLocaleSeparator + language));
    }
    if (suffixes.empty())
        return std::nullopt;
    return fmt::format("note: several products also exist with {} after their names; --langs auto "
                       "reads these files as translations",
                       alternatives(suffixes));
}

} // namespace refdoc
