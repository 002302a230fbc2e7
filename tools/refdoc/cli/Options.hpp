#pragma once

#include "tools/refdoc/cli/CommandLine.hpp"
#include "tools/refdoc/terminal/PageSetup.hpp"

#include <optional>
#include <string>
#include <vector>

namespace refdoc {

enum class OutputFormat {
    Text,      ///< for people
    Json,      ///< one document
    JsonLines, ///< one document per line
    Plain      ///< fields separated by tabs; only for the commands that have plainOption()
};

/// The group of the options that choose the format of the output.
inline constexpr std::string_view kFormatGroup = "format";

/// The supported languages of `--langs auto`: those that the names of the files show.
inline const std::vector<std::u16string> kInferredLanguages{u"auto"};

/// Where settings come from: "option --root", "environment variable REFDOC_ROOT", "current folder"
/// or "default".
struct Origins {
    std::string installFolder = "default";
    std::string referenceRoot = "default"; ///< that of the install folder if it determines the root
    std::string language = "default";      ///< the manifest, or English
};

/// What a command is run with: its arguments and the options. UTF-16 strings have U+FFFD in place
/// of bytes that are not UTF-8.
struct Options {
    std::vector<std::u16string> arguments; ///< of the command
    OptionValues values;                   ///< as typed; a command reads its own options here

    // An absent value was not given; an empty string or list was.
    std::optional<std::u16string> installFolder;
    std::optional<std::u16string> referenceRoot;
    std::optional<std::u16string> supportFolder;
    std::optional<std::u16string> language;
    std::optional<std::vector<std::u16string>> supportedLanguages; ///< may be kInferredLanguages
    std::optional<std::vector<std::u16string>> installedProducts;
    std::optional<std::vector<std::u16string>> supportPackages;

    Origins origins;
    bool isLanguageStrict = false; ///< an unsupported language is wrong usage
    OutputFormat format = OutputFormat::Text;
    ColorChoice color = ColorChoice::Auto;
    bool mayPage = true; ///< long output may go through a pager
    bool verbose = false;
};

/// Returns the options that every command has.
std::vector<OptionEntry> globalOptions();

/// Returns the option `--plain`, for the commands that print fields separated by tabs.
/// \param help  the fields of a line
OptionEntry plainOption(std::string_view help);

/// Reads the values of globalOptions(), and copies the arguments and all values.
Options readOptions(const CommandLine& line);

} // namespace refdoc
