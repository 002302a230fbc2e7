# Fails unless LIBRARY exports exactly the names in the file KEPT, and prints the differences. With
# UPDATE, replaces the file instead.
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
# Removes duplicates: a constructor has several symbols with one demangled name.
list(REMOVE_DUPLICATES exported)
list(SORT exported)

if(UPDATE)
    list(JOIN exported "\n" text)
    file(WRITE ${KEPT} "${text}\n")
    return()
endif()

file(STRINGS ${KEPT} kept)
set(additional ${exported})
list(REMOVE_ITEM additional ${kept})
set(missing ${kept})
list(REMOVE_ITEM missing ${exported})
if(additional OR missing)
    list(JOIN additional "\n    " additional)
    list(JOIN missing "\n    " missing)
    cmake_path(GET LIBRARY FILENAME name)
    message("${name} does not export exactly the names in ${KEPT}\n"
        "additional:\n    ${additional}\n"
        "missing:\n    ${missing}\n"
        "if this is intended: cmake --build ${BUILD_FOLDER} --target update_exports\n")
    message(FATAL_ERROR "the exported names have changed")
endif()
