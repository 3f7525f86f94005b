# common_ui_qt_set_up(<target>)
# Sets what all sources of the library have in common.
function(common_ui_qt_set_up target)
    set_target_properties(${target} PROPERTIES
        CXX_EXTENSIONS OFF
        CXX_VISIBILITY_PRESET hidden
        VISIBILITY_INLINES_HIDDEN ON)
    target_compile_features(${target} PRIVATE cxx_std_17)
    target_compile_definitions(${target} PRIVATE
        QT_NO_KEYWORDS QT_NO_CAST_TO_ASCII QT_DEPRECATED_WARNINGS QT_DISABLE_DEPRECATED_BEFORE=0x050F00)
    common_ui_qt_set_warnings(${target})
endfunction()

# common_ui_qt_add_layer(<folder> SOURCES <file>... LIBRARIES <library>...)
#
# Adds the files of src/<folder> to the library as an object library, common_ui_qt_<last part of the folder>. The compiler
# finds only the headers of the given libraries there, and so refuses all others.
function(common_ui_qt_add_layer folder)
    cmake_parse_arguments(arg "" "" "SOURCES;LIBRARIES" ${ARGN})
    get_filename_component(name "${folder}" NAME)
    set(target common_ui_qt_${name})
    list(TRANSFORM arg_SOURCES PREPEND "src/${folder}/")
    add_library(${target} OBJECT ${arg_SOURCES})
    common_ui_qt_set_up(${target})
    set_target_properties(${target} PROPERTIES COMMON_UI_QT_FOLDER "${folder}" POSITION_INDEPENDENT_CODE ON)
    target_compile_definitions(${target} PRIVATE
        common_ui_qt_EXPORTS
        $<$<BOOL:${COMMON_UI_QT_BUILD_TESTS}>:COMMON_UI_QT_EXPORT_INTERNALS>
        $<$<BOOL:${COMMON_UI_QT_BUILD_TESTING_LIBRARY}>:COMMON_UI_QT_EXPORT_SEAM>)
    target_include_directories(${target} PRIVATE
        "${CMAKE_CURRENT_SOURCE_DIR}/src" "${CMAKE_CURRENT_BINARY_DIR}/generated")
    target_link_libraries(${target} PRIVATE ${arg_LIBRARIES})
    target_sources(common_ui_qt PRIVATE $<TARGET_OBJECTS:${target}>)
    set_property(GLOBAL APPEND PROPERTY COMMON_UI_QT_LAYERS ${target})
endfunction()
