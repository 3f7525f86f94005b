# Describes the Debian packages that cpack makes: one for each install component, named after the version of Qt, so that the
# packages for Qt 5 and Qt 6 can be installed side by side.
if(NOT CMAKE_INSTALL_PREFIX STREQUAL "/usr")
    message(FATAL_ERROR "COMMON_UI_QT_PACKAGES needs the CMAKE_INSTALL_PREFIX /usr; it is ${CMAKE_INSTALL_PREFIX}")
endif()
find_program(COMMON_UI_QT_DPKG dpkg REQUIRED)
find_program(COMMON_UI_QT_GZIP gzip REQUIRED)
mark_as_advanced(COMMON_UI_QT_DPKG COMMON_UI_QT_GZIP)
set(COMMON_UI_QT_PACKAGE_MAINTAINER "The common_ui_qt developers <common_ui_qt@localhost>" CACHE STRING
    "Maintainer of the Debian packages, with an e-mail address")

string(REPLACE "_" "-" package_stem "lib${COMMON_UI_QT_NAME}")
set(package_folder "${PROJECT_BINARY_DIR}/package-files")
set(package_release 1)

# common_ui_qt_find_owners(<variable> <file>...)
# Sets the variable to the names of the Debian packages that own the files, without duplicates.
function(common_ui_qt_find_owners variable)
    set(owners "")
    foreach(file IN LISTS ARGN)
        get_filename_component(file "${file}" REALPATH)
        execute_process(COMMAND "${COMMON_UI_QT_DPKG}" --search "${file}" OUTPUT_VARIABLE output RESULT_VARIABLE result)
        if(NOT result EQUAL 0 OR NOT output MATCHES "^([^:, ]+)")
            message(FATAL_ERROR "No Debian package owns ${file}, on which the packages would have to depend")
        endif()
        list(APPEND owners "${CMAKE_MATCH_1}")
    endforeach()
    list(REMOVE_DUPLICATES owners)
    set(${variable} "${owners}" PARENT_SCOPE)
endfunction()

# common_ui_qt_find_package_owners(<variable> <package>...)
# Sets the variable to the names of the Debian packages from which find_package() has taken the CMake packages.
function(common_ui_qt_find_package_owners variable)
    set(files "")
    foreach(package IN LISTS ARGN)
        list(APPEND files "${${package}_DIR}/${package}Config.cmake")
    endforeach()
    common_ui_qt_find_owners(owners ${files})
    set(${variable} "${owners}" PARENT_SCOPE)
endfunction()

# common_ui_qt_find_class_owners(<variable>)
# Sets the variable to the names of the Debian packages that own the installed classes of other libraries (see Compat.cmake).
function(common_ui_qt_find_class_owners variable)
    get_property(classes GLOBAL PROPERTY COMMON_UI_QT_INSTALLED_CLASSES)
    set(files "")
    foreach(class IN LISTS classes)
        list(APPEND files "${COMMON_UI_QT_${class}_LIBRARY}")
        foreach(header IN LISTS compat_${class}_headers)
            list(APPEND files "${COMMON_UI_QT_${header}_FOLDER}/${header}")
        endforeach()
    endforeach()
    common_ui_qt_find_owners(owners ${files})
    set(${variable} "${owners}" PARENT_SCOPE)
endfunction()

# common_ui_qt_compress(<file> <result>)
# Compresses a text as Debian wants it: without its name and time, so that the same text gives the same file.
function(common_ui_qt_compress file result)
    execute_process(COMMAND "${COMMON_UI_QT_GZIP}" -9 --no-name --stdout "${file}" OUTPUT_FILE "${result}" RESULT_VARIABLE status)
    if(NOT status EQUAL 0)
        message(FATAL_ERROR "${file} cannot be compressed")
    endif()
endfunction()

# common_ui_qt_add_package(<component> NAME <name> SECTION <section> TITLE <text> TEXT <text>
#     [COMPONENTS <component>...] [DEPENDS <package>...] [SUGGESTS <package>...] [CONTROL <file>...] [ALL])
#
# Makes a package of a component, if something is installed in it. It depends on the packages of COMPONENTS in the same version,
# on DEPENDS, and on what its own programs are linked with. ALL tells that it is the same for each architecture.
macro(common_ui_qt_add_package component)
    cmake_parse_arguments(arg "ALL" "NAME;SECTION;TITLE;TEXT" "COMPONENTS;DEPENDS;SUGGESTS;CONTROL" ${ARGN})
    if(${component} IN_LIST installed_components)
        list(APPEND CPACK_COMPONENTS_ALL ${component})
        string(TOUPPER ${component} upper)
        set(CPACK_DEBIAN_${upper}_PACKAGE_NAME ${arg_NAME})
        set(CPACK_DEBIAN_${upper}_PACKAGE_SECTION ${arg_SECTION})
        set(CPACK_COMPONENT_${upper}_DESCRIPTION "${arg_TITLE}\n${library_text}\n.\n${arg_TEXT}")
        set(CPACK_COMPONENT_${upper}_DEPENDS ${arg_COMPONENTS})
        list(JOIN arg_DEPENDS ", " CPACK_DEBIAN_${upper}_PACKAGE_DEPENDS)
        list(JOIN arg_SUGGESTS ", " CPACK_DEBIAN_${upper}_PACKAGE_SUGGESTS)
        set(CPACK_DEBIAN_${upper}_PACKAGE_CONTROL_EXTRA ${arg_CONTROL})
        if(arg_ALL)
            set(CPACK_DEBIAN_${upper}_PACKAGE_ARCHITECTURE all)
        endif()
        common_ui_qt_install_package_papers(${component} ${arg_NAME})
    endif()
endmacro()

# Installs what each package tells about itself: licence, changelogs, and the reasons for what lintian would complain about.
function(common_ui_qt_install_package_papers component package)
    set(folder "${CMAKE_INSTALL_DATADIR}/doc/${package}")
    install(FILES "${PROJECT_SOURCE_DIR}/LICENSE" RENAME copyright DESTINATION "${folder}" COMPONENT ${component})
    install(FILES "${package_folder}/changelog.gz" "${package_folder}/changelog.Debian.gz"
        DESTINATION "${folder}" COMPONENT ${component})
    file(READ "${PROJECT_SOURCE_DIR}/cmake/lintian/all" overrides)
    if(EXISTS "${PROJECT_SOURCE_DIR}/cmake/lintian/${component}")
        file(READ "${PROJECT_SOURCE_DIR}/cmake/lintian/${component}" more_overrides)
        string(APPEND overrides "${more_overrides}")
    endif()
    file(WRITE "${package_folder}/overrides/${package}" "${overrides}")
    install(FILES "${package_folder}/overrides/${package}"
        DESTINATION "${CMAKE_INSTALL_DATADIR}/lintian/overrides" COMPONENT ${component})
endfunction()

set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/CHANGELOG.md")
string(TIMESTAMP package_date "%a, %d %b %Y %H:%M:%S +0000" UTC) # the one of SOURCE_DATE_EPOCH, if that is set
file(WRITE "${package_folder}/changelog.Debian" "common-ui-qt (${PROJECT_VERSION}-${package_release}) unstable; urgency=medium\n\n"
    "  * Package version ${PROJECT_VERSION}. What is new in it is in changelog.gz.\n\n"
    " -- ${COMMON_UI_QT_PACKAGE_MAINTAINER}  ${package_date}\n")
common_ui_qt_compress("${package_folder}/changelog.Debian" "${package_folder}/changelog.Debian.gz")
common_ui_qt_compress("${PROJECT_SOURCE_DIR}/CHANGELOG.md" "${package_folder}/changelog.gz")
# Has dpkg tell the dynamic linker of the library.
file(WRITE "${package_folder}/triggers" "activate-noawait ldconfig\n")

get_cmake_property(installed_components COMPONENTS)
if(Unspecified IN_LIST installed_components)
    message(FATAL_ERROR "Something is installed without a component, and would be in no package")
endif()
common_ui_qt_find_package_owners(needed_packages ${QT}Core ${QT}Gui ${QT}Widgets Boost)
common_ui_qt_find_class_owners(class_packages)
list(APPEND needed_packages ${class_packages})

get_target_property(soversion common_ui_qt SOVERSION)
set(runtime_package "${package_stem}${soversion}")
if(package_stem MATCHES "[0-9]$")
    set(runtime_package "${package_stem}-${soversion}")
endif()
set(library_text "User-interface components for desktop applications that work with data,
for Qt ${COMMON_UI_QT_QT_MAJOR}: file dialogs, a save flow, number fields, a combo box with a fast
filter, labels and helpers.")

set(CPACK_COMPONENTS_ALL "")
common_ui_qt_add_package(runtime NAME ${runtime_package} SECTION libs CONTROL "${package_folder}/triggers"
    TITLE "Qt ${COMMON_UI_QT_QT_MAJOR} user-interface components - shared library"
    TEXT "This package contains the shared library.")
common_ui_qt_add_package(development NAME ${package_stem}-dev SECTION libdevel
    COMPONENTS runtime DEPENDS ${needed_packages} SUGGESTS ${package_stem}-doc
    TITLE "Qt ${COMMON_UI_QT_QT_MAJOR} user-interface components - development files"
    TEXT "This package contains the headers, a CMake package and a pkg-config file.")
common_ui_qt_add_package(testing NAME ${package_stem}-testing-dev SECTION libdevel
    COMPONENTS development runtime CONTROL "${package_folder}/triggers"
    TITLE "Qt ${COMMON_UI_QT_QT_MAJOR} user-interface components - library for tests"
    TEXT "This package contains a library with which the tests of an application
drive its dialogs.")
common_ui_qt_add_package(designer NAME ${package_stem}-designer SECTION libdevel
    COMPONENTS runtime
    TITLE "Qt ${COMMON_UI_QT_QT_MAJOR} user-interface components - plugin for Qt Designer"
    TEXT "This package contains a plugin with which Qt Designer and QUiLoader know
the widgets.")
common_ui_qt_add_package(documentation NAME ${package_stem}-doc SECTION doc ALL
    TITLE "Qt ${COMMON_UI_QT_QT_MAJOR} user-interface components - documentation"
    TEXT "This package contains the guides and the reference, for web browsers and
for Qt Assistant.")

set(CPACK_GENERATOR DEB)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_GROUPING IGNORE)
set(CPACK_PACKAGE_NAME common-ui-qt)
set(CPACK_PACKAGE_CONTACT "${COMMON_UI_QT_PACKAGE_MAINTAINER}")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "") # would be the title of each package
set(CPACK_PACKAGE_DIRECTORY "${PROJECT_BINARY_DIR}/packages")
set(CPACK_POST_BUILD_SCRIPTS "${PROJECT_SOURCE_DIR}/cmake/finishPackages.cmake")
set(CPACK_PACKAGING_INSTALL_PREFIX "/usr")
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_DEBIAN_PACKAGE_SOURCE common-ui-qt)
set(CPACK_DEBIAN_PACKAGE_RELEASE ${package_release})
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "${PROJECT_BINARY_DIR}/common") # holds the library; COMPONENTS depends on it
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
include(CPack)
