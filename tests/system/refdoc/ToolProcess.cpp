#include "tests/system/refdoc/ToolProcess.hpp"

#include "tests/support/NativeText.hpp"
#include "tests/support/TemporaryFolder.hpp"

#include <algorithm>
#include <array>
#include <filesystem>

namespace refdoc_tests {

bool affectsProgram(std::string_view variable) {
    constexpr std::array<std::string_view, 8> kRead = {
        "NO_COLOR", "COLUMNS",        "TERM",        "PAGER",
        "LESS",     "REFDOC_INSTALL", "REFDOC_ROOT", "REFDOC_LANG"};
    return std::ranges::find(kRead, variable) != kRead.end();
}

std::string currentFolder(const Surroundings& surroundings) {
    static const docparser_tests::TemporaryFolder empty;
    return surroundings.folder.empty() ? docparser_tests::textOf(empty.path())
                                       : surroundings.folder;
}

std::string samplesFolder() {
    return docparser_tests::textOf(std::filesystem::absolute(SAMPLES_FOLDER));
}

} // namespace refdoc_tests
