#include "tools/refdoc/cli/Options.hpp"

#include "platform/i18n/Converter.hpp"

#include <boost/algorithm/string/split.hpp>

#include <algorithm>
#include <iterator>

namespace refdoc {

namespace {

using fl::i18n::to_ustring;

std::optional<std::u16string> stringOf(const OptionValues& values, std::string_view option) {
    const std::optional<std::string> value = values.value(option);
    return value ? std::optional(to_ustring(*value)) : std::nullopt;
}

// The parts between commas, untrimmed; an empty string is an empty list.
std::optional<std::vector<std::u16string>> listOf(const OptionValues& values,
                                                  std::string_view option) {
    const std::optional<std::u16string> value = stringOf(values, option);
    if (!value)
        return std::nullopt;
    std::vector<std::u16string> parts;
    if (!value->empty())
        boost::algorithm::split(parts, *value, [](char16_t unit) { return unit == u','; });
    return parts;
}

ColorChoice colorOf(const OptionValues& values) {
    const std::string color = values.value("--color").value_or("auto");
    return color == "always"  ? ColorChoice::Always
           : color == "never" ? ColorChoice::Never
                              : ColorChoice::Auto;
}

OutputFormat formatOf(const OptionValues& values) {
    return values.has("--json")    ? OutputFormat::Json
           : values.has("--jsonl") ? OutputFormat::JsonLines
           : values.has("--plain") ? OutputFormat::Plain
                                   : OutputFormat::Text;
}

} // namespace

std::vector<OptionEntry> globalOptions() {
    return {
        {"--install", "DIR", ValueType::Folder,
         "The install folder, with its installation.json; the reference root is its folder "
         "\"help\"; by default $REFDOC_INSTALL"},
        {"--root", "DIR", ValueType::Folder, "The reference root; by default $REFDOC_ROOT"},
        {"--support-folder", "DIR", ValueType::Folder,
         "The folder with the resource files of the support packages"},
        {"--lang", "L", ValueType::Language,
         "The documentation language, as in \"ja\"; by default $REFDOC_LANG, or the one in "
         "installation.json"},
        {"--langs",
         "L,L,...",
         ValueType::Languages,
         "The supported documentation languages; \"auto\": those that the names of the files "
         "show",
         {{"auto"}}},
        {.name = "--lang-strict", .help = "Refuse a documentation language that is not supported"},
        {"--installed", "N,N,...", ValueType::Sections,
         "The products to treat as installed, and no others"},
        {"--support-packages", "N,N,...", ValueType::Sections,
         "The support packages to treat as installed, and no others"},
        {.name = "--json", .help = "Print one JSON document", .group = kFormatGroup},
        {.name = "--jsonl",
         .help = "Print one JSON object per line: each record, or each file for products, each "
                 "finding for check, each result for search and each product for translations",
         .group = kFormatGroup},
        {"--color",
         "WHEN",
         ValueType::Choice,
         "When to use colour: auto, always or never",
         {{"auto"}, {"always"}, {"never"}}},
        {.name = "--no-pager", .help = "Do not show long output a page at a time"},
        {.name = "--verbose", .help = "Log each file that is read to stderr"},
        {.name = "--help", .help = "Print this help and exit", .shortName = "-h"},
        {.name = "--version", .help = "Print the version and exit", .shortName = "-V"},
    };
}

OptionEntry plainOption(std::string_view help) {
    return {.name = "--plain", .help = help, .group = kFormatGroup};
}

Options readOptions(const CommandLine& line) {
    Options options;
    std::ranges::transform(line.arguments, std::back_inserter(options.arguments),
                           [](const std::string& word) { return to_ustring(word); });
    const OptionValues& values = line.options;
    options.values = values;
    options.installFolder = stringOf(values, "--install");
    options.referenceRoot = stringOf(values, "--root");
    options.supportFolder = stringOf(values, "--support-folder");
    options.language = stringOf(values, "--lang");
    options.supportedLanguages = listOf(values, "--langs");
    options.installedProducts = listOf(values, "--installed");
    options.supportPackages = listOf(values, "--support-packages");
    options.isLanguageStrict = values.has("--lang-strict");
    options.format = formatOf(values);
    options.color = colorOf(values);
    options.mayPage = !values.has("--no-pager");
    options.verbose = values.has("--verbose");
    return options;
}

} // namespace refdoc
