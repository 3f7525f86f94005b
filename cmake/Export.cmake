# Generates the header with the export macro.
include(GenerateExportHeader)

function(common_ui_qt_set_exports target header_folder)
    generate_export_header(${target} EXPORT_FILE_NAME "${header_folder}/common_ui_qt_export.h")
    if(COMMON_UI_QT_BUILD_TESTS)
        target_compile_definitions(${target} PUBLIC $<BUILD_INTERFACE:COMMON_UI_QT_EXPORT_INTERNALS>)
    endif()
endfunction()
