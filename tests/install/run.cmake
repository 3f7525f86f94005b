# run(<command> <argument>...): ends the script if the command fails; what it says is in output.
function(run)
    execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output)
    if(NOT result EQUAL 0)
        string(REPLACE ";" " " command "${ARGN}")
        message(FATAL_ERROR "${command}\nanswered ${result}:\n${output}")
    endif()
    set(output "${output}" PARENT_SCOPE)
endfunction()
