# The Debian 12 packages that the project needs; sourced by setup.sh.

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
    libcpp-httplib-dev
)

# Also for the tests and benchmarks.
test_packages=(
    libgtest-dev
    libgmock-dev
    libbenchmark-dev
    libicu-dev
    libvalijson-dev
    zlib1g-dev
    gdb
    mypy
    python3
    python3-pytest
    python3-selenium
    chromium
    chromium-driver
    mandoc
    nodejs
    patch
    git
    xz-utils
    shellcheck
    python3-clang-14
    zsh
    fish
)
# Other packages of Node.js contain npm, and conflict with Debian's.
command -v npm >/dev/null || test_packages+=(npm)

# The folder with the npm packages for the tests.
npm_folder=tests/system/refdoc/site

# Also for the documentation. The tests build it too, and fail if a page has warnings.
docs_packages=(
    doxygen
    graphviz
    python3
)

# Also for scripts/screenshot.
screenshot_packages=(
    chromium
    fonts-dejavu-core
    fonts-dejavu-extra
    optipng
)

# Also for scripts/coverage.
coverage_packages=(
    gcovr
)

# Also for scripts/mutate.
mutation_packages=(
    libclang-common-14-dev
    lld
    python3-clang-14
    rsync
)

# Also for the fuzzers.
fuzz_packages=(
    clang-14
    libclang-rt-14-dev
)

# Also for scripts/test-windows: the compiler, the libraries that Debian builds for Windows or that are
# header-only, and the programs that run the tests.
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

# Also for scripts/package: tools that build and check Debian packages. debian/control names the packages
# that the build needs.
packaging_packages=(
    debhelper
    dh-python
    dpkg-dev
    python3
    lintian
)

# For scripts/source-archive.
archive_packages=(
    git
    xz-utils
)

# Also for scripts/abi.
abi_packages=(
    abigail-tools
    binutils
    git
)
