# Functions that all scripts share, for packages, configuring and building; sourced by the scripts.

set -euo pipefail
project_folder=$(CDPATH='' cd -- "$(dirname -- "${BASH_SOURCE[0]}")/../.." && pwd)
cd "$project_folder"
source scripts/lib/packages.sh

say() {
    printf '== %s\n' "$*"
}

is_installed() {
    [ "$(dpkg-query --show --showformat='${db:Status-Status}' "$1" 2>/dev/null)" = installed ]
}

as_root() {
    if [ "$(id -u)" -eq 0 ]; then
        "$@"
    else
        sudo "$@"
    fi
}

apt_install() {
    as_root env DEBIAN_FRONTEND=noninteractive apt-get install --yes --quiet=2 \
        --no-install-recommends "$@"
}

# Installs the packages that are missing, if any.
install_packages() {
    if ! command -v apt-get >/dev/null; then
        say "apt-get is missing; install the equivalents of these Debian packages: $*"
        return
    fi
    local package missing=()
    for package in "$@"; do
        is_installed "$package" || missing+=("$package")
    done
    if [ ${#missing[@]} -eq 0 ]; then
        say "All Debian packages are installed"
        return
    fi
    if [ "$(id -u)" -ne 0 ] && ! command -v sudo >/dev/null; then
        echo "sudo is missing; run as root: apt-get install ${missing[*]}" >&2
        exit 1
    fi
    say "Installing Debian packages: ${missing[*]}"
    local log
    log=$(mktemp)
    # The first attempt fails if the package lists of the machine are missing or old.
    if ! apt_install "${missing[@]}" >"$log" 2>&1; then
        say "Updating the package lists first"
        if ! { as_root apt-get update --quiet=2 && apt_install "${missing[@]}"; } >"$log" 2>&1; then
            cat "$log" >&2
            rm -f "$log"
            exit 1
        fi
    fi
    rm -f "$log"
}

# Installs the npm packages for the tests unless they are installed. Without the network, the tests that need
# them fail, but no others.
install_npm_packages() {
    if [ "$npm_folder/node_modules/.package-lock.json" -nt "$npm_folder/package-lock.json" ]; then
        say "All npm packages are installed"
        return
    fi
    say "Installing npm packages in $npm_folder"
    npm ci --prefix "$npm_folder" --ignore-scripts --no-audit --no-fund --loglevel=error ||
        say "npm has failed"
}

use_ccache() {
    if command -v ccache >/dev/null; then
        export CMAKE_CXX_COMPILER_LAUNCHER=${CMAKE_CXX_COMPILER_LAUNCHER-ccache}
    fi
}

# Configures and builds a preset in build/<preset>; further arguments go to the build.
build_preset() {
    local preset=$1
    shift
    use_ccache
    say "Configuring build/$preset"
    cmake --preset "$preset" --log-level=WARNING
    say "Building build/$preset; the first build takes a few minutes"
    # A terminal shows progress in one line; other outputs would get one line for each file.
    local quiet=()
    [ -t 1 ] || quiet=(-- --quiet)
    cmake --build --preset "$preset" "$@" "${quiet[@]}"
}
