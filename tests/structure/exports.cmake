# Fails when the library exports symbols of a class "Impl".
cmake_policy(VERSION 3.16)

execute_process(COMMAND "${NM}" -D -C --defined-only "${LIBRARY}" OUTPUT_VARIABLE symbols RESULT_VARIABLE result)
if(NOT result EQUAL 0 OR NOT symbols MATCHES "ExtendedWinFileDialog::exec")
    message(FATAL_ERROR "${NM} lists no symbols of ${LIBRARY}")
endif()
string(REGEX MATCHALL "[^\n]*::Impl[^\n]*" private "${symbols}")
if(private)
    list(JOIN private "\n" private)
    message(FATAL_ERROR "Exported symbols of private classes:\n${private}")
endif()
