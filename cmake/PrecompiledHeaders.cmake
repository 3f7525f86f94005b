# Precompiles the headers of Qt and of the standard library that most sources include. It is off by default, because a source
# that lacks an include compiles nevertheless. The presets release and tidy leave it off, and so check each source's includes.
set(common_headers <algorithm> <functional> <memory> <string> <utility> <vector> <QtWidgets>)

# common_ui_qt_precompile_headers(<target> [<header>...])
# Precompiles the common headers and the given ones for a target. No target that links the target uses them.
function(common_ui_qt_precompile_headers target)
    if(COMMON_UI_QT_PRECOMPILE_HEADERS)
        target_precompile_headers(${target} PRIVATE ${common_headers} ${ARGN})
    endif()
endfunction()

# common_ui_qt_reuse_precompiled_headers(<target> <owner>)
# Has a target use the precompiled headers of another target, which has to be compiled with the same options.
function(common_ui_qt_reuse_precompiled_headers target owner)
    if(COMMON_UI_QT_PRECOMPILE_HEADERS)
        target_precompile_headers(${target} REUSE_FROM ${owner})
    endif()
endfunction()

# common_ui_qt_share_test_definitions()
# Removes from Qt 6's test library the definitions that name the folders of each program, which no test uses: with other
# definitions, a program could not reuse precompiled headers.
function(common_ui_qt_share_test_definitions)
    get_target_property(definitions ${QT}::Test INTERFACE_COMPILE_DEFINITIONS)
    list(FILTER definitions EXCLUDE REGEX "^QT_TESTCASE_(BUILD|SOURCE)DIR=")
    set_target_properties(${QT}::Test PROPERTIES INTERFACE_COMPILE_DEFINITIONS "${definitions}")
endfunction()
