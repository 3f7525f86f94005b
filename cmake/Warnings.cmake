# Strict warnings for our own targets; errors only when asked for, so that another compiler never stops a user.
function(common_ui_qt_set_warnings target)
    if(MSVC)
        # 4251 and 4275 warn of every standard class in an exported one: library and program use the same run time.
        # 4250 warns of what a virtual base is for, as in a validator that is made of several.
        target_compile_options(${target} PRIVATE
            /W4 /permissive- /Zc:__cplusplus /utf-8 /wd4250 /wd4251 /wd4275)
        if(COMMON_UI_QT_WARNINGS_AS_ERRORS)
            target_compile_options(${target} PRIVATE /WX)
        endif()
    else()
        target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic)
        if(COMMON_UI_QT_WARNINGS_AS_ERRORS)
            target_compile_options(${target} PRIVATE -Werror)
        endif()
    endif()
endfunction()
