# Builds the libraries that the Windows build needs and Debian's binary packages lack. Sourced after
# setup.sh.

# The libraries are built from Debian's source packages once, into a cache folder outside the source
# tree. Its name changes with the compiler and with this file.
windows_dependencies_folder() {
    local key
    key=$({
        cat scripts/lib/windows.sh cmake/toolchains/mingw-w64.cmake
        dpkg-query --show "${windows_packages[@]}"
    } | sha256sum | cut --characters=1-12)
    printf '%s/docparser-windows/%s\n' "${XDG_CACHE_HOME:-$HOME/.cache}" "$key"
}

# fetch_sources FOLDER PACKAGE...
#
# Downloads source packages. The list of sources and apt's state lie in the folder, so that the
# machine's own settings stay as they are.
fetch_sources() {
    local folder=$1 signature=/usr/share/keyrings/debian-archive-keyring.gpg
    shift
    mkdir -p "$folder/lists/partial"
    apt-get indextargets --format \
        "deb-src [signed-by=$signature] \$(REPO_URI) \$(RELEASE) \$(COMPONENT)" \
        'Created-By: Packages' 'Origin: Debian' | sort --unique >"$folder/sources.list"
    local options=(
        --option "Dir::Etc::SourceList=$folder/sources.list"
        --option "Dir::Etc::SourceParts=/dev/null"
        --option "Dir::State::Lists=$folder/lists"
        --option "APT::Sandbox::User=$(id --user --name)"
        --quiet=2
    )
    apt-get "${options[@]}" update
    (cd "$folder" && apt-get "${options[@]}" source --download-only "$@")
}

# unpack ARCHIVE FOLDER [TAR-OPTION...]
unpack() {
    local archive=$1 folder=$2
    shift 2
    mkdir -p "$folder"
    tar --extract --file "$archive" --directory "$folder" --strip-components=1 "$@"
}

# cross_build SOURCE PREFIX CMAKE-OPTION... [-- TARGET...]
#
# Builds a CMake project for Windows next to its sources, and installs it unless targets are given.
cross_build() {
    local log=$1.log
    if ! run_cross_build "$@" >"$log" 2>&1; then
        cat "$log" >&2
        return 1
    fi
}

run_cross_build() {
    local source=$1 prefix=$2 options=()
    shift 2
    while [ $# -gt 0 ] && [ "$1" != -- ]; do
        options+=("$1")
        shift
    done
    [ $# -eq 0 ] || shift
    cmake -S "$source" -B "$source-build" -G Ninja --log-level=WARNING -Wno-dev \
        --toolchain "$project_folder/cmake/toolchains/mingw-w64.cmake" \
        -DDOCPARSER_WINDOWS_DEPENDENCIES="$prefix" \
        -DCMAKE_BUILD_TYPE=Release -DCMAKE_C_FLAGS_RELEASE=-O1 -DCMAKE_CXX_FLAGS_RELEASE=-O1 \
        -DCMAKE_INSTALL_PREFIX="$prefix" "${options[@]}"
    if [ $# -gt 0 ]; then
        cmake --build "$source-build" --target "$@" -- --quiet
    else
        cmake --build "$source-build" --target install -- --quiet
    fi
}

# write_boost_package PREFIX NAME [NAME-OF-ANOTHER]
#
# Writes the CMake package of a Boost library. Programs that use it also link the other library,
# because its headers call that one.
write_boost_package() {
    local folder=$1/lib/cmake/boost_$2-1.81.0
    mkdir -p "$folder"
    cat >"$folder/boost_$2-config.cmake" <<CONFIG
get_filename_component(prefix \${CMAKE_CURRENT_LIST_DIR}/../../.. ABSOLUTE)
if(NOT TARGET Boost::headers)
    add_library(Boost::headers INTERFACE IMPORTED)
    target_include_directories(Boost::headers SYSTEM INTERFACE \${prefix}/include)
endif()
if(NOT TARGET Boost::$2)
    file(GLOB dll \${prefix}/bin/libboost_$2-*.dll)
    file(GLOB import_library \${prefix}/lib/libboost_$2-*.dll.a)
    add_library(Boost::$2 SHARED IMPORTED)
    set_target_properties(Boost::$2 PROPERTIES
        IMPORTED_LOCATION \${dll}
        IMPORTED_IMPLIB \${import_library})
    target_compile_definitions(Boost::$2 INTERFACE
        BOOST_ALL_NO_LIB BOOST_ALL_DYN_LINK BOOST_LOG_WITHOUT_WCHAR_T)
    file(GLOB others \${prefix}/lib/libboost_${3-$2}-*.dll.a)
    target_link_libraries(Boost::$2 INTERFACE \${others} Boost::headers)
endif()
CONFIG
    cat >"$folder/boost_$2-config-version.cmake" <<VERSION
set(PACKAGE_VERSION 1.81.0)
if(PACKAGE_FIND_VERSION VERSION_LESS_EQUAL PACKAGE_VERSION)
    set(PACKAGE_VERSION_COMPATIBLE TRUE)
endif()
if(PACKAGE_FIND_VERSION VERSION_EQUAL PACKAGE_VERSION)
    set(PACKAGE_VERSION_EXACT TRUE)
endif()
VERSION
}

# Boost.Log keeps one core per process and Boost.JSON one default memory, so both are DLLs.
build_boost() {
    local archives=$1 prefix=$2 source=$3/boost
    unpack "$archives"/boost1.81_*.orig.tar.xz "$source" --wildcards --no-wildcards-match-slash \
        boost/CMakeLists.txt boost/LICENSE_1_0.txt boost/tools/cmake \
        'boost/libs/*/'{CMakeLists.txt,include,src,build,config,cmake} \
        boost/libs/numeric/conversion/{CMakeLists.txt,include}
    cross_build "$source" "$prefix" \
        -DBUILD_SHARED_LIBS=ON -DBUILD_TESTING=OFF "-DBOOST_INCLUDE_LIBRARIES=json;log" \
        -DBOOST_LOG_USE_REGEX_BACKEND=std::regex \
        -DBOOST_LOG_WITHOUT_{EVENT_LOG,SETTINGS_PARSERS,IPC,SYSLOG,DEBUG_OUTPUT,WCHAR_T}=ON \
        -DBOOST_LOG_WITHOUT_DEFAULT_FACTORIES=ON \
        -- boost_json boost_log
    mkdir -p "$prefix"/{bin,lib,include}
    cp --recursive --link "$source"/libs/{*,numeric/conversion}/include/. "$prefix/include/"
    cp "$source-build"/stage/bin/*.dll "$prefix/bin/"
    cp "$source-build"/stage/lib/*.dll.a "$prefix/lib/"
    write_boost_package "$prefix" json
    write_boost_package "$prefix" log thread
}

build_libzip() {
    local archives=$1 prefix=$2 source=$3/libzip
    unpack "$archives"/libzip_*.orig.tar.xz "$source"
    cross_build "$source" "$prefix" -DBUILD_SHARED_LIBS=ON \
        -DENABLE_{COMMONCRYPTO,GNUTLS,MBEDTLS,OPENSSL,WINDOWS_CRYPTO,BZIP2,LZMA}=OFF \
        -DBUILD_{TOOLS,REGRESS,EXAMPLES,DOC}=OFF
}

# The Makefile names the static library as Microsoft's linker expects it.
build_libdeflate() {
    local archives=$1 prefix=$2 source=$3/libdeflate
    unpack "$archives"/libdeflate_*.orig.tar.gz "$source"
    make --silent --directory "$source" DISABLE_SHARED=1 PREFIX="$prefix" \
        CC=x86_64-w64-mingw32-gcc-posix AR=x86_64-w64-mingw32-ar install
    mv "$prefix/lib/libdeflatestatic.lib" "$prefix/lib/libdeflate.a"
}

build_fmt() {
    local archives=$1 prefix=$2 source=$3/fmt
    unpack "$archives"/fmtlib_*.orig.tar.gz "$source"
    cross_build "$source" "$prefix" -DFMT_DOC=OFF -DFMT_TEST=OFF
}

build_utf8proc() {
    local archives=$1 prefix=$2 source=$3/utf8proc
    unpack "$archives"/utf8proc_*.orig.tar.gz "$source"
    cross_build "$source" "$prefix" -DBUILD_SHARED_LIBS=OFF -DUTF8PROC_ENABLE_TESTING=OFF
}

# The sources are one header. Debian's package has a library for them, with compression and encryption.
install_cpp_httplib() {
    local archives=$1 prefix=$2 source=$3/cpp-httplib
    unpack "$archives"/cpp-httplib_*.orig.tar.xz "$source"
    cp "$source/httplib.h" "$prefix/include/"
    mkdir -p "$prefix/lib/pkgconfig"
    cat >"$prefix/lib/pkgconfig/cpp-httplib.pc" <<PACKAGE
prefix=\${pcfiledir}/../..
Name: cpp-httplib
Description: A C++ HTTP server and client library
Version: 0.11.4
Libs: -lws2_32
Cflags: -I\${prefix}/include
PACKAGE
}

# Header-only libraries are the same on every system.
copy_headers() {
    local prefix=$1
    cp --recursive /usr/include/valijson "$prefix/include/"
    mkdir -p "$prefix/share/cmake"
    cp --recursive /usr/share/cmake/valijson "$prefix/share/cmake/"
}

copy_compiler_dlls() {
    local prefix=$1 name
    for name in libstdc++-6.dll libgcc_s_seh-1.dll libwinpthread-1.dll; do
        cp "$(x86_64-w64-mingw32-g++-posix -print-file-name="$name")" "$prefix/bin/"
    done
}

# Copies the licences of everything in the ZIP package.
copy_licences() {
    local prefix=$1 source=$2 package
    mkdir -p "$prefix/licences"
    cp "$source/boost/LICENSE_1_0.txt" "$prefix/licences/boost.txt"
    cp "$source/libzip/LICENSE" "$prefix/licences/libzip.txt"
    cp "$source/libdeflate/COPYING" "$prefix/licences/libdeflate.txt"
    cp "$source/fmt/LICENSE.rst" "$prefix/licences/fmt.txt"
    cp "$source/utf8proc/LICENSE.md" "$prefix/licences/utf8proc.txt"
    cp "$source/cpp-httplib/LICENSE" "$prefix/licences/cpp-httplib.txt"
    for package in libz-mingw-w64-dev gcc-mingw-w64-base mingw-w64-x86-64-dev; do
        cp "/usr/share/doc/$package/copyright" "$prefix/licences/$package.txt"
    done
}

# Builds the dependencies unless the cache has them, and names their folder to CMake.
provide_windows_dependencies() {
    DOCPARSER_WINDOWS_DEPENDENCIES=$(windows_dependencies_folder)
    export DOCPARSER_WINDOWS_DEPENDENCIES
    local prefix=$DOCPARSER_WINDOWS_DEPENDENCIES
    if [ -e "$prefix/complete" ]; then
        say "Libraries for Windows: $prefix"
        return
    fi
    local scratch=$prefix.scratch
    rm -rf "$prefix" "$scratch"
    mkdir -p "$prefix" "$scratch"
    say "Fetching Debian source packages: boost1.81 libzip libdeflate fmtlib utf8proc cpp-httplib"
    fetch_sources "$scratch/archives" boost1.81 libzip libdeflate fmtlib utf8proc \
        cpp-httplib
    say "Building the libraries and GoogleTest for Windows into $prefix; this takes a few minutes"
    build_boost "$scratch/archives" "$prefix" "$scratch"
    build_libzip "$scratch/archives" "$prefix" "$scratch"
    build_libdeflate "$scratch/archives" "$prefix" "$scratch"
    build_fmt "$scratch/archives" "$prefix" "$scratch"
    build_utf8proc "$scratch/archives" "$prefix" "$scratch"
    install_cpp_httplib "$scratch/archives" "$prefix" "$scratch"
    cp --recursive /usr/src/googletest "$scratch/googletest"
    cross_build "$scratch/googletest" "$prefix"
    copy_headers "$prefix"
    copy_compiler_dlls "$prefix"
    copy_licences "$prefix" "$scratch"
    rm -rf "$scratch"
    touch "$prefix/complete"
}

# start_wine BUILD-FOLDER LOCALE
#
# Starts Wine in a build folder. It runs until stop_wine: a server that ends with each program and starts
# with the next one loses connections.
start_wine() {
    export WINEPREFIX=$project_folder/$1/wine WINEDEBUG=-all WINEDLLOVERRIDES=mscoree,mshtml=
    say "Starting Wine in $1/wine"
    mkdir -p "$WINEPREFIX"
    LC_ALL=$2 /usr/lib/wine/wineserver64 --persistent
    LC_ALL=$2 /usr/lib/wine/wine64 wineboot >/dev/null 2>&1
}

stop_wine() {
    /usr/lib/wine/wineserver64 --kill || true
    /usr/lib/wine/wineserver64 --wait || true
}

# Generates a locale unless the system has it.
generate_locale() {
    local name=$1
    if locale --all-locales | grep --quiet --ignore-case --line-regexp "${name/UTF-8/utf8}"; then
        return
    fi
    say "Generating the locale $name"
    as_root localedef --inputfile="${name%.*}" --charmap=UTF-8 "$name"
}
