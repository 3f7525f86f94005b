# Enables strict warnings for the project's targets. They are errors only on request, so that the warnings of another
# compiler do not stop the build of a user.
function(common_ui_qt_set_warnings target)
    if(MSVC)
        # 4251 and 4275 warn of standard classes in exported ones, which is safe because library and program use the same
        # runtime. 4250 warns of dominance through a virtual base, which combined validators use intentionally.
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
