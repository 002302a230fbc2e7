# Installs the build as a whole and by its components, each below SCRATCH, and fails when a file belongs
# to no component: no package would have it.
function(install_into prefix)
    execute_process(
        COMMAND ${CMAKE_COMMAND} --install ${BUILD_FOLDER}
            --config ${CONFIGURATION} --prefix ${prefix} ${ARGN}
        OUTPUT_QUIET
        COMMAND_ERROR_IS_FATAL ANY)
endfunction()

file(REMOVE_RECURSE ${SCRATCH})
install_into(${SCRATCH}/whole)
foreach(component IN ITEMS libraries development refdoc licences)
    install_into(${SCRATCH}/parts --component ${component})
endforeach()

file(GLOB_RECURSE whole RELATIVE ${SCRATCH}/whole ${SCRATCH}/whole/*)
file(GLOB_RECURSE parts RELATIVE ${SCRATCH}/parts ${SCRATCH}/parts/*)
if(NOT whole)
    message(FATAL_ERROR "nothing is installed")
endif()
list(REMOVE_ITEM whole ${parts})
if(whole)
    list(JOIN whole "\n    " whole)
    message("installed, but in no component:\n    ${whole}\n")
    message(FATAL_ERROR "an install rule lacks its COMPONENT")
endif()
