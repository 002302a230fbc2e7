# compare_list(DESCRIPTION LINES): fails unless the lines of LIBRARY are exactly those in the file KEPT,
# and prints the differences. With UPDATE, replaces the file instead. Order and repetition do not matter:
# a constructor has several symbols with one demangled name, and several sources define a class.
function(compare_list description lines)
    list(REMOVE_DUPLICATES lines)
    list(SORT lines COMPARE NATURAL)
    if(UPDATE)
        list(JOIN lines "\n" text)
        file(WRITE ${KEPT} "${text}\n")
        return()
    endif()

    file(STRINGS ${KEPT} kept)
    set(additional ${lines})
    list(REMOVE_ITEM additional ${kept})
    set(missing ${kept})
    list(REMOVE_ITEM missing ${lines})
    if(additional OR missing)
        list(JOIN additional "\n    " additional)
        list(JOIN missing "\n    " missing)
        cmake_path(GET LIBRARY FILENAME name)
        message("the ${description} of ${name} are not those in ${KEPT}\n"
            "additional:\n    ${additional}\n"
            "missing:\n    ${missing}\n"
            "if this is intended: cmake --build ${BUILD_FOLDER} --target update_interface\n")
        message(FATAL_ERROR "the ${description} have changed")
    endif()
endfunction()
