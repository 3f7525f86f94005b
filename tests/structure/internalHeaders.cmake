# Fails when the name of a header does not tell who may include it: installed headers have plain names, and the names of
# all others end with _p.h.
cmake_policy(VERSION 3.16)

file(GLOB_RECURSE headers RELATIVE "${SOURCES}" "${SOURCES}/*.h")
if(NOT headers)
    message(FATAL_ERROR "no headers below ${SOURCES}")
endif()

set(failures "")
foreach(header IN LISTS headers)
    list(FIND INSTALLED "${header}" index)
    if(header MATCHES "_p\\.h$")
        if(NOT index EQUAL -1)
            string(APPEND failures "\n${header} is installed, but has the name of an internal header")
        endif()
    elseif(index EQUAL -1 AND NOT header MATCHES "${NOT_ON_THIS_SYSTEM}")
        string(APPEND failures "\n${header} is not installed, and its name does not end with _p.h")
    endif()
endforeach()
if(failures)
    message(FATAL_ERROR "Headers with the wrong name:${failures}")
endif()
