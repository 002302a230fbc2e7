# Compares the layouts of the public classes of LIBRARY with the file KEPT; see compare_list.cmake.
include(${CMAKE_CURRENT_LIST_DIR}/compare_list.cmake)

list(TRANSFORM HEADERS REPLACE "^${SOURCE_FOLDER}/" "")
set(ENV{PUBLIC_HEADERS} "${HEADERS}")
execute_process(
    COMMAND ${GDB} --batch --nx --command ${CMAKE_CURRENT_LIST_DIR}/class_layouts.py ${LIBRARY}
    OUTPUT_VARIABLE text
    COMMAND_ERROR_IS_FATAL ANY)
string(STRIP "${text}" text)
string(REPLACE "\n" ";" layouts "${text}")
compare_list("layouts of public classes" "${layouts}")
