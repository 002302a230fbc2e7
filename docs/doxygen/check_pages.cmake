# Checks that docs/README.md links to every page of the folder DOCS.
file(GLOB pages RELATIVE ${DOCS} ${DOCS}/*.md ${DOCS}/worked-examples/*.md)
list(REMOVE_ITEM pages README.md)
if(NOT pages)
    message(FATAL_ERROR "no pages in ${DOCS}")
endif()

file(READ ${DOCS}/README.md contents)
foreach(page IN LISTS pages)
    string(FIND "${contents}" "](${page})" position)
    if(position EQUAL -1)
        message(SEND_ERROR "docs/README.md does not link to ${page}")
    endif()
endforeach()
