# Installs the build completely and by components, each below SCRATCH. Fails if a file belongs to no
# component, because no package would contain it.
function(install_into prefix)
    execute_process(
        COMMAND ${CMAKE_COMMAND} --install ${BUILD_FOLDER}
            --config ${CONFIGURATION} --prefix ${prefix} ${ARGN}
        OUTPUT_QUIET
        COMMAND_ERROR_IS_FATAL ANY)
endfunction()

file(REMOVE_RECURSE ${SCRATCH})
install_into(${SCRATCH}/whole)
foreach(component IN ITEMS libraries development refdoc python licences)
    install_into(${SCRATCH}/parts --component ${component})
endforeach()

file(GLOB_RECURSE whole RELATIVE ${SCRATCH}/whole ${SCRATCH}/whole/*)
file(GLOB_RECURSE parts RELATIVE ${SCRATCH}/parts ${SCRATCH}/parts/*)
if(NOT whole)
    message(FATAL_ERROR "no files were installed")
endif()
list(REMOVE_ITEM whole ${parts})
if(whole)
    list(JOIN whole "\n    " whole)
    message("installed files without a component:\n    ${whole}\n")
    message(FATAL_ERROR "an install rule has no COMPONENT")
endif()
