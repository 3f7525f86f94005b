# Generates the header with the export macro.
include(GenerateExportHeader)

function(common_ui_qt_set_exports target header_folder)
    generate_export_header(${target} EXPORT_FILE_NAME "${header_folder}/common_ui_qt_export.h")
    if(COMMON_UI_QT_BUILD_TESTS)
        target_compile_definitions(${target} PUBLIC $<BUILD_INTERFACE:COMMON_UI_QT_EXPORT_INTERNALS>)
    elseif(COMMON_UI_QT_BUILD_TESTING_LIBRARY)
        target_compile_definitions(${target} PRIVATE COMMON_UI_QT_EXPORT_SEAM)
    endif()
endfunction()
