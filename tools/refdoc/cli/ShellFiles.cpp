// Writes the manual page and the shell completions of refdoc; the build runs it.
//
//   refdoc_shell_files FOLDER VERSION DATE
//
// The files get the places below FOLDER that Debian gives them below /usr/share.

#include "tools/refdoc/cli/CommandTable.hpp"
#include "tools/refdoc/cli/CompletionScripts.hpp"
#include "tools/refdoc/cli/ManPage.hpp"

#include <fmt/format.h>

#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>

namespace {

void write(const std::filesystem::path& file, const std::string& text) {
    std::filesystem::create_directories(file.parent_path());
    std::ofstream stream(file, std::ios::binary);
    stream << text;
    if (!stream.flush())
        throw std::runtime_error("can't write " + file.string());
}

} // namespace

int main(int argc, char* argv[]) {
    if (argc != 4) {
        fmt::print(stderr, "usage: refdoc_shell_files FOLDER VERSION DATE\n");
        return 2;
    }
    try {
        using namespace refdoc;
        const CommandTable& table = commandTable();
        const std::filesystem::path folder = argv[1];
        write(folder / "man/man1/refdoc.1", manPage(table, argv[2], argv[3]));
        write(folder / "bash-completion/completions/refdoc", bashCompletion(table));
        write(folder / "zsh/vendor-completions/_refdoc", zshCompletion(table));
        write(folder / "fish/vendor_completions.d/refdoc.fish", fishCompletion(table));
    } catch (const std::exception& error) {
        fmt::print(stderr, "refdoc_shell_files: {}\n", error.what());
        return 3;
    }
    return 0;
}
