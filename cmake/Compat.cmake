# Finds the classes of other libraries on which this library builds. If such a library is installed, its class is used.
# Otherwise a substitute of the same name with the needed members is compiled from common/src/compat/substitute/. Callers
# include compat/<class>.h in either case, which selects one by the generated common_ui_qt_compat.h.
#
# To add a class, add its three lines below, its name in common/CMakeLists.txt, compat/<class>.h and the substitute.
#
# This file is also installed with the package, because users of a library that was built with an installed class need
# that class.

set(compat_QxtLabel_headers QxtLabel qxtglobal.h)    # each may be in a different folder
set(compat_QxtLabel_libraries QxtWidgets QxtGui)     # possible names of the library
set(compat_QxtLabel_folders QxtWidgets QxtGui QxtCore qxt/QxtWidgets qxt/QxtGui qxt/QxtCore)

set(compat_ctkCompleter_headers ctkCompleter.h ctkWidgetsExport.h)
set(compat_ctkCompleter_libraries CTKWidgets)
set(compat_ctkCompleter_folders ctk CTK)
set(compat_ctkCompleter_sources NarrowedSource.cpp)  # of the substitute, besides its own

# common_ui_qt_find_class(<class>)
# Creates the target common_ui_qt::<class> if the library that contains the class is installed.
function(common_ui_qt_find_class class)
    if(TARGET common_ui_qt::${class})
        return()
    endif()
    set(folders "")
    foreach(header IN LISTS compat_${class}_headers)
        find_path(COMMON_UI_QT_${header}_FOLDER ${header} PATH_SUFFIXES ${compat_${class}_folders})
        mark_as_advanced(COMMON_UI_QT_${header}_FOLDER)
        if(NOT COMMON_UI_QT_${header}_FOLDER)
            return()
        endif()
        list(APPEND folders "${COMMON_UI_QT_${header}_FOLDER}")
    endforeach()
    find_library(COMMON_UI_QT_${class}_LIBRARY NAMES ${compat_${class}_libraries})
    mark_as_advanced(COMMON_UI_QT_${class}_LIBRARY)
    if(NOT COMMON_UI_QT_${class}_LIBRARY)
        return()
    endif()
    list(REMOVE_DUPLICATES folders)
    add_library(common_ui_qt::${class} INTERFACE IMPORTED GLOBAL)
    set_target_properties(common_ui_qt::${class} PROPERTIES
        INTERFACE_INCLUDE_DIRECTORIES "${folders}"
        INTERFACE_LINK_LIBRARIES "${COMMON_UI_QT_${class}_LIBRARY}")
endfunction()

# common_ui_qt_use_classes(<target> <folder> <class>...)
# Adds each class to the target, either the installed class or the substitute, and writes common_ui_qt_compat.h into the
# folder. Appends the headers of the substitutes to COMMON_UI_QT_PUBLIC_HEADERS.
function(common_ui_qt_use_classes target folder)
    set(definitions "")
    foreach(class IN LISTS ARGN)
        if(COMMON_UI_QT_USE_INSTALLED_CLASSES)
            common_ui_qt_find_class(${class})
        endif()
        if(TARGET common_ui_qt::${class})
            message(STATUS "${class}: the installed one, ${COMMON_UI_QT_${class}_LIBRARY}")
            set(installed 1)
            target_link_libraries(${target} PUBLIC common_ui_qt::${class})
            set_property(GLOBAL APPEND PROPERTY COMMON_UI_QT_INSTALLED_CLASSES ${class})
        else()
            message(STATUS "${class}: the substitute")
            set(installed 0)
            foreach(source IN LISTS compat_${class}_sources ITEMS ${class}.cpp)
                target_sources(${target} PRIVATE src/compat/substitute/${source})
            endforeach()
            list(APPEND COMMON_UI_QT_PUBLIC_HEADERS compat/substitute/${class}.h)
        endif()
        string(TOUPPER ${class} name)
        string(APPEND definitions "#define COMMON_UI_QT_HAS_${name} ${installed}\n")
    endforeach()
    file(GENERATE OUTPUT "${folder}/common_ui_qt_compat.h" CONTENT
        "#pragma once\n\n// The classes with which the library was built: 1 for the installed class, 0 for the substitute.\n${definitions}")
    set(COMMON_UI_QT_PUBLIC_HEADERS "${COMMON_UI_QT_PUBLIC_HEADERS}" PARENT_SCOPE)
endfunction()

# common_ui_qt_get_class_flags(<compiler flags> <linker flags> <class>...)
# Sets both variables to the flags that users of the installed classes need, for a pkg-config file. A blank precedes each
# flag.
function(common_ui_qt_get_class_flags compiler_flags linker_flags)
    set(cflags "")
    set(libs "")
    foreach(class IN LISTS ARGN)
        get_target_property(folders common_ui_qt::${class} INTERFACE_INCLUDE_DIRECTORIES)
        foreach(folder IN LISTS folders)
            string(APPEND cflags " -I${folder}")
        endforeach()
        get_target_property(library common_ui_qt::${class} INTERFACE_LINK_LIBRARIES)
        string(APPEND libs " ${library}")
    endforeach()
    set(${compiler_flags} "${cflags}" PARENT_SCOPE)
    set(${linker_flags} "${libs}" PARENT_SCOPE)
endfunction()
