#pragma once

#include "tools/refdoc/Answer.hpp"
#include "tools/refdoc/PageSetup.hpp"
#include "tools/refdoc/check/CheckOptions.hpp"

#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace refdoc {

enum class Command { Show, Lookup, Products, Check };

enum class OutputFormat {
    Text,     ///< for people
    Json,     ///< one document
    JsonLines ///< one document a line
};

/// The command line, understood. Texts are UTF-16; what was no UTF-8 in them is U+FFFD.
struct Options {
    Command command = Command::Products;
    std::u16string product;            ///< of `show`
    std::vector<std::u16string> names; ///< the HREFs of `show`, the NAMEs of `lookup`,
                                       ///< the PATHs of `check`

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

    check::CheckOptions check;
};

/// Reads the command line.
/// \param arguments  what follows the program's name
/// \returns          the options; or the answer to give at once: help, the version, or a complaint
///                   about wrong usage
std::variant<Options, Answer> readCommandLine(const std::vector<std::string>& arguments);

} // namespace refdoc
