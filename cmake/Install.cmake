# Installs the public headers below one include root, the library, a CMake package and a pkg-config file. Internal headers
# are not installed: only the list of public headers counts. The folders and files are named after the major version of Qt, and
# the target is zelmar::common_ui_qt in each package. The component runtime is what a program needs to run, development what it
# needs to be built; the plugin for Qt Designer and the reference have components of their own, designer and documentation.
include(CMakePackageConfigHelpers)

set(package_folder "${CMAKE_INSTALL_LIBDIR}/cmake/${COMMON_UI_QT_NAME}")
set(header_root "${CMAKE_INSTALL_INCLUDEDIR}/${COMMON_UI_QT_NAME}")

install(TARGETS common_ui_qt EXPORT ${COMMON_UI_QT_NAME}Targets
    RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}" COMPONENT runtime
    LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT runtime NAMELINK_COMPONENT development
    ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT development)
install(EXPORT ${COMMON_UI_QT_NAME}Targets NAMESPACE zelmar:: DESTINATION "${package_folder}" COMPONENT development)

get_property(public_headers GLOBAL PROPERTY COMMON_UI_QT_PUBLIC_HEADERS)
foreach(header IN LISTS public_headers)
    get_filename_component(folder "${header}" DIRECTORY)
    install(FILES "common/src/${header}" DESTINATION "${header_root}/${folder}" COMPONENT development)
endforeach()
install(FILES
    "${PROJECT_BINARY_DIR}/common/generated/common_ui_qt_compat.h"
    "${PROJECT_BINARY_DIR}/common/generated/common_ui_qt_export.h"
    "${PROJECT_BINARY_DIR}/common/generated/common_ui_qt_version.h"
    DESTINATION "${header_root}" COMPONENT development)

get_property(installed_classes GLOBAL PROPERTY COMMON_UI_QT_INSTALLED_CLASSES)
configure_package_config_file(cmake/common_ui_qtConfig.cmake.in
    "${PROJECT_BINARY_DIR}/${COMMON_UI_QT_NAME}Config.cmake" INSTALL_DESTINATION "${package_folder}")
write_basic_package_version_file("${PROJECT_BINARY_DIR}/${COMMON_UI_QT_NAME}ConfigVersion.cmake"
    COMPATIBILITY SameMinorVersion)
install(FILES
    "${PROJECT_BINARY_DIR}/${COMMON_UI_QT_NAME}Config.cmake"
    "${PROJECT_BINARY_DIR}/${COMMON_UI_QT_NAME}ConfigVersion.cmake"
    DESTINATION "${package_folder}" COMPONENT development)
install(FILES cmake/Compat.cmake DESTINATION "${package_folder}" RENAME ${COMMON_UI_QT_NAME}Compat.cmake COMPONENT development)

# The pkg-config file contains flags of GCC and clang. The paths have a first folder, because "/" alone is not an absolute
# path on Windows.
if(NOT MSVC)
    file(RELATIVE_PATH prefix_from_pkgconfig "/prefix/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/prefix")
    common_ui_qt_get_class_flags(compat_cflags compat_libs ${installed_classes})
    configure_file(cmake/common_ui_qt.pc.in "${PROJECT_BINARY_DIR}/${COMMON_UI_QT_NAME}.pc" @ONLY)
    install(FILES "${PROJECT_BINARY_DIR}/${COMMON_UI_QT_NAME}.pc" DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig" COMPONENT development)
endif()

# Removes what was installed from this build folder.
if(IS_MAIN_PROJECT)
    add_custom_target(uninstall
        COMMAND "${CMAKE_COMMAND}" -D "FOLDER=${CMAKE_BINARY_DIR}"
            -P "${PROJECT_SOURCE_DIR}/cmake/uninstall.cmake"
        COMMENT "Uninstalling" VERBATIM)
endif()
