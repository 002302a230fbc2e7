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
    libcli11-dev
    libfmt-dev
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
    zsh
    fish
)

# For the fuzzers, besides.
fuzz_packages=(
    clang-14
    libclang-rt-14-dev
)
