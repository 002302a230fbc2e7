# Finds libunistring, which has no CMake package and no pkg-config file, and defines the target
# Libunistring::libunistring.

include(FindPackageHandleStandardArgs)

find_path(LIBUNISTRING_INCLUDE_DIR unilbrk.h)
find_library(LIBUNISTRING_LIBRARY unistring)
mark_as_advanced(LIBUNISTRING_INCLUDE_DIR LIBUNISTRING_LIBRARY)
find_package_handle_standard_args(Libunistring
    REQUIRED_VARS LIBUNISTRING_LIBRARY LIBUNISTRING_INCLUDE_DIR)

if(Libunistring_FOUND AND NOT TARGET Libunistring::libunistring)
    add_library(Libunistring::libunistring UNKNOWN IMPORTED)
    set_target_properties(Libunistring::libunistring PROPERTIES
        IMPORTED_LOCATION ${LIBUNISTRING_LIBRARY}
        INTERFACE_INCLUDE_DIRECTORIES ${LIBUNISTRING_INCLUDE_DIR})
endif()
