# The Debian 12 packages that the project is built from; sourced by setup.sh.

# For the libraries and refdoc.
build_packages=(
    g++
    cmake
    ninja-build
    pkg-config
    libboost-json1.81-dev
    libboost-log1.81-dev
    libzip-dev
    libdeflate-dev
    libfmt-dev
    libutf8proc-dev
)

# For the tests and benchmarks, besides.
test_packages=(
    libgtest-dev
    libgmock-dev
    libbenchmark-dev
    libicu-dev
    libvalijson-dev
    zlib1g-dev
    python3
    mandoc
    shellcheck
    zsh
    fish
)

# For the documentation, besides. The tests build it too: a page of the wrong shape is a failure.
docs_packages=(
    doxygen
    graphviz
    python3
)

# To count what the tests run, besides.
coverage_packages=(
    gcovr
)

# For the fuzzers, besides.
fuzz_packages=(
    clang-14
    libclang-rt-14-dev
)

# For scripts/test-windows, besides: the compiler, the libraries that are built for Windows by Debian
# or are headers alone, and what runs the programs.
windows_packages=(
    g++-mingw-w64-x86-64-posix
    libz-mingw-w64-dev
    googletest
    libvalijson-dev
    cmake
    ninja-build
    pkg-config
    dpkg-dev
    clang-14
    wine64
    locales
    python3
)

# For scripts/package, besides: what makes Debian packages and looks at them.
packaging_packages=(
    dpkg-dev
    file
    lintian
)

# For scripts/abi, besides.
abi_packages=(
    abigail-tools
    binutils
    git
)
