# Fails when a page in the folder PAGES knows the tour or what tests use, so that it has only the code that makes it.
cmake_policy(VERSION 3.16)

file(GLOB pages "${PAGES}/*.h" "${PAGES}/*.cpp")
# The table editor still acts as its own user.
list(FILTER pages EXCLUDE REGEX "/TableEditorPage\\.(h|cpp)$")
if(NOT pages)
    message(FATAL_ERROR "no pages in ${PAGES}")
endif()
set(failures "")
foreach(page IN LISTS pages)
    file(STRINGS "${page}" lines REGEX "# *include *[\"<](tour/|QTest|QtTest|Keyboard|DialogDriver|FileDialogActions)|[^a-z]Tour[^a-z]")
    foreach(line IN LISTS lines)
        string(APPEND failures "\n${page}: ${line}")
    endforeach()
endforeach()
if(failures)
    message(FATAL_ERROR "The tour and its tools have no place in a page:${failures}")
endif()
