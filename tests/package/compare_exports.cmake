# Fails unless LIBRARY exports the names that the file KEPT lists, and says which are new and which are
# gone. With UPDATE the file is written anew instead.
execute_process(
    COMMAND ${NM} --dynamic --defined-only --demangle --format=just-symbols ${LIBRARY}
    OUTPUT_VARIABLE text
    COMMAND_ERROR_IS_FATAL ANY)
string(STRIP "${text}" text)

# The names of the standard library's strings as one writes them.
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
# A constructor has an entry for each way in which it is called; all bear one name.
list(REMOVE_DUPLICATES exported)
list(SORT exported)

if(UPDATE)
    list(JOIN exported "\n" text)
    file(WRITE ${KEPT} "${text}\n")
    return()
endif()

file(STRINGS ${KEPT} kept)
set(accidental ${exported})
list(REMOVE_ITEM accidental ${kept})
set(lost ${kept})
list(REMOVE_ITEM lost ${exported})
if(accidental OR lost)
    list(JOIN accidental "\n    " accidental)
    list(JOIN lost "\n    " lost)
    cmake_path(GET LIBRARY FILENAME name)
    message("${name} does not export what ${KEPT} lists\n"
        "exported by accident:\n    ${accidental}\n"
        "lost:\n    ${lost}\n"
        "if this is meant to be: cmake --build ${BUILD_FOLDER} --target update_exports\n")
    message(FATAL_ERROR "the exported names have changed")
endif()
