#include "tools/refdoc/session/LanguageNote.hpp"

#include "docparser/DocResourceParser.hpp"
#include "platform/Failure.hpp"
#include "platform/i18n/Converter.hpp"
#include "platform/path/Path.hpp"
#include "tools/refdoc/session/HostOverrides.hpp"
#include "tools/refdoc/terminal/Words.hpp"

#include <boost/algorithm/string/join.hpp>
#include <fmt/format.h>

#include <algorithm>
#include <filesystem>
#include <memory>
#include <system_error>
#include <vector>

namespace refdoc {

using Tools = reference::docparser::DocResourceParser::ParsingTools;

namespace {

bool hasManifest(const platform::HostServices& services) {
    const fl::filesystem::path file =
        fl::filesystem::path(services.installPath()) / u"installation.json";
    std::error_code ignored; // a file that cannot be checked was not read either
    return std::filesystem::exists(fl::filesystem::make_native_access_form_with_cleanup_i18n(file),
                                   ignored);
}

// Absent if neither the options nor a manifest name languages.
std::optional<std::vector<std::u16string>> namedLanguages(const Options& options) {
    if (options.supportedLanguages)
        return options.supportedLanguages;
    const std::shared_ptr<const platform::HostServices> services = selectedServices(options);
    if (!hasManifest(*services))
        return std::nullopt;
    std::optional<std::vector<std::u16string>> languages;
    // A malformed manifest names none. The command itself reports it.
    platform::ignoreFailure([&] { languages = services->supportedDocLanguages(); });
    return languages;
}

} // namespace

std::optional<std::string> unsupportedLanguageNote(const Options& options) {
    if (!options.language || *options.language == Tools::kEnglishLocale)
        return std::nullopt;
    const std::optional<std::vector<std::u16string>> languages = namedLanguages(options);
    if (!languages || std::ranges::find(*languages, *options.language) != languages->end())
        return std::nullopt;
    return fmt::format("note: {} is not a supported language ({}); it is added for this call",
                       quoted(*options.language),
                       fl::i18n::to_string(boost::join(*languages, u", ")));
}

} // namespace refdoc
