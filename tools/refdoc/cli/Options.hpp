#pragma once

#include "tools/refdoc/cli/Answer.hpp"
#include "tools/refdoc/cli/CheckOptions.hpp"
#include "tools/refdoc/terminal/PageSetup.hpp"

#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace refdoc {

enum class Command { Show, Lookup, Products, Explain, Check };

enum class OutputFormat {
    Text,     ///< for people
    Json,     ///< one document
    JsonLines ///< one document a line
};

/// The command line, understood. Texts are UTF-16; what was no UTF-8 in them is U+FFFD.
struct Options {
    Command command = Command::Products;
    std::u16string product; ///< of `show` and `explain`
    /// The HREFs of `show`, the HREF of `explain` if there is one, the NAMEs of `lookup`,
    /// the PATHs of `check`.
    std::vector<std::u16string> names;
    std::optional<std::u16string> explainedName; ///< of `explain`, which has no product then

    // What is absent was not asked for; an empty text or list was.
    std::optional<std::u16string> installFolder;
    std::optional<std::u16string> referenceRoot;
    std::optional<std::u16string> supportFolder;
    std::optional<std::u16string> language;
    std::optional<std::vector<std::u16string>> supportedLanguages;
    std::optional<std::vector<std::u16string>> installedProducts;
    std::optional<std::vector<std::u16string>> supportPackages;

    OutputFormat format = OutputFormat::Text;
    ColorChoice color = ColorChoice::Auto;
    bool mayPage = true; ///< long output may go through a pager
    bool verbose = false;

    CheckOptions check;
};

/// Reads the command line.
/// \param arguments  what follows the program's name
/// \returns          the options; or the answer to give at once: help, the version, or a complaint
///                   about wrong usage
std::variant<Options, Answer> readCommandLine(const std::vector<std::string>& arguments);

} // namespace refdoc
