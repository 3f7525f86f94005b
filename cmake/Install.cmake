# Installs the public headers below one include root, the library, a CMake package and a pkg-config file. Internal headers
# are not installed: only the list of public headers counts.
include(CMakePackageConfigHelpers)

set(package_folder "${CMAKE_INSTALL_LIBDIR}/cmake/common_ui_qt")
set(header_root "${CMAKE_INSTALL_INCLUDEDIR}/common_ui_qt")

install(TARGETS common_ui_qt EXPORT common_ui_qtTargets
    RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}"
    LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}"
    ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}")
install(EXPORT common_ui_qtTargets NAMESPACE zelmar:: DESTINATION "${package_folder}")

get_property(public_headers GLOBAL PROPERTY COMMON_UI_QT_PUBLIC_HEADERS)
foreach(header IN LISTS public_headers)
    get_filename_component(folder "${header}" DIRECTORY)
    install(FILES "common/src/${header}" DESTINATION "${header_root}/${folder}")
endforeach()
install(FILES
    "${PROJECT_BINARY_DIR}/common/generated/common_ui_qt_compat.h"
    "${PROJECT_BINARY_DIR}/common/generated/common_ui_qt_export.h"
    DESTINATION "${header_root}")

get_property(installed_classes GLOBAL PROPERTY COMMON_UI_QT_INSTALLED_CLASSES)
configure_package_config_file(cmake/common_ui_qtConfig.cmake.in
    "${PROJECT_BINARY_DIR}/common_ui_qtConfig.cmake" INSTALL_DESTINATION "${package_folder}")
write_basic_package_version_file("${PROJECT_BINARY_DIR}/common_ui_qtConfigVersion.cmake"
    COMPATIBILITY SameMinorVersion)
install(FILES
    "${PROJECT_BINARY_DIR}/common_ui_qtConfig.cmake"
    "${PROJECT_BINARY_DIR}/common_ui_qtConfigVersion.cmake"
    DESTINATION "${package_folder}")
install(FILES cmake/Compat.cmake DESTINATION "${package_folder}" RENAME common_ui_qtCompat.cmake)

# The pkg-config file contains flags of GCC and clang. The paths have a first folder, because "/" alone is not an absolute
# path on Windows.
if(NOT MSVC)
    file(RELATIVE_PATH prefix_from_pkgconfig "/prefix/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/prefix")
    common_ui_qt_get_class_flags(compat_cflags compat_libs ${installed_classes})
    configure_file(cmake/common_ui_qt.pc.in "${PROJECT_BINARY_DIR}/common_ui_qt.pc" @ONLY)
    install(FILES "${PROJECT_BINARY_DIR}/common_ui_qt.pc" DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig")
endif()
