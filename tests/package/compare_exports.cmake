# Compares the names that LIBRARY exports with the file KEPT; see compare_list.cmake.
include(${CMAKE_CURRENT_LIST_DIR}/compare_list.cmake)

execute_process(
    COMMAND ${NM} --dynamic --defined-only --demangle --format=just-symbols ${LIBRARY}
    OUTPUT_VARIABLE text
    COMMAND_ERROR_IS_FATAL ANY)
string(STRIP "${text}" text)

# Abbreviates the names of standard strings to their aliases.
set(space " ?")
foreach(character IN ITEMS char char16_t)
    string(REPLACE "char" "" prefix ${character})
    string(REPLACE "16_t" "u16" prefix "${prefix}")
    set(traits "std::char_traits<${character}>${space}")
    string(REGEX REPLACE
        "std::__cxx11::basic_string<${character}, ${traits}, std::allocator<${character}>${space}>"
        "std::${prefix}string" text "${text}")
    string(REGEX REPLACE "std::basic_string_view<${character}, ${traits}>"
        "std::${prefix}string_view" text "${text}")
endforeach()

string(REPLACE "\n" ";" exported "${text}")
compare_list("exported names" "${exported}")
