// Writes the manual page of refdoc; the build runs it.
//
//   refdoc_man_page FILE VERSION DATE

#include "tools/refdoc/Commands.hpp"
#include "tools/refdoc/cli/ManPage.hpp"

#include <cstdio>
#include <exception>
#include <fstream>

int main(int argc, char* argv[]) {
    if (argc != 4) {
        std::fputs("usage: refdoc_man_page FILE VERSION DATE\n", stderr);
        return 2;
    }
    try {
        std::ofstream file(argv[1], std::ios::binary);
        file.exceptions(std::ios::failbit | std::ios::badbit);
        file << refdoc::manPage(refdoc::commandTable(), argv[2], argv[3]) << std::flush;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "refdoc_man_page: cannot write %s: %s\n", argv[1], error.what());
        return 3;
    }
    return 0;
}
