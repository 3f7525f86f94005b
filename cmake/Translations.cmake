# common_ui_qt_add_translations(<target> <folder> <language>...)
#
# Compiles the translations <folder>/common_ui_qt_<language>.ts and adds them to the target as resources below
# :/common_ui_qt/translations. Leaves them out where Qt's tool lrelease is missing.
function(common_ui_qt_add_translations target folder)
    find_program(COMMON_UI_QT_LRELEASE NAMES lrelease lrelease-qt${COMMON_UI_QT_QT_MAJOR}
        HINTS "${${QT}Core_DIR}/../../../qt${COMMON_UI_QT_QT_MAJOR}/bin" PATHS /usr/lib/qt5/bin /usr/lib/qt6/bin
        NO_CMAKE_FIND_ROOT_PATH)
    mark_as_advanced(COMMON_UI_QT_LRELEASE)
    if(NOT COMMON_UI_QT_LRELEASE)
        message(STATUS "No lrelease: the translations are left out")
        return()
    endif()
    set(files "")
    set(entries "")
    foreach(language IN LISTS ARGN)
        set(name common_ui_qt_${language})
        set(source "${CMAKE_CURRENT_SOURCE_DIR}/${folder}/${name}.ts")
        set(compiled "${CMAKE_CURRENT_BINARY_DIR}/translations/${name}.qm")
        add_custom_command(OUTPUT "${compiled}"
            COMMAND "${COMMON_UI_QT_LRELEASE}" -silent "${source}" -qm "${compiled}" DEPENDS "${source}" VERBATIM)
        list(APPEND files "${compiled}")
        string(APPEND entries "<file>${name}.qm</file>\n")
    endforeach()
    set(list "${CMAKE_CURRENT_BINARY_DIR}/translations/common_ui_qt.qrc")
    file(WRITE "${list}" "<RCC><qresource prefix=\"/common_ui_qt/translations\">\n${entries}</qresource></RCC>\n")
    qt_add_resources(resources "${list}" OPTIONS --no-compress)
    set_source_files_properties("${list}" PROPERTIES SKIP_AUTOGEN ON)
    target_sources(${target} PRIVATE ${files} ${resources})
    set_property(GLOBAL PROPERTY COMMON_UI_QT_TRANSLATIONS "${ARGN}")
endfunction()
