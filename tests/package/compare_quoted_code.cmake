# Fails unless DOCUMENT quotes the whole of SOURCE in a block of C++ code.
file(READ ${DOCUMENT} document)
file(READ ${SOURCE} code)
string(FIND "${document}" "```cpp\n${code}```" place)
if(place EQUAL -1)
    message(FATAL_ERROR "${DOCUMENT} does not quote ${SOURCE} as it stands")
endif()
