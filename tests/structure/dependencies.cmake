# Fails when a source has an include or a name that its compiler accepts, and that has no place there.
cmake_policy(VERSION 3.16)

file(GLOB_RECURSE all RELATIVE "${SOURCES}" "${SOURCES}/*.h" "${SOURCES}/*.cpp")
if(NOT all)
    message(FATAL_ERROR "no sources below ${SOURCES}")
endif()
set(failures "")

# refuse(INCLUDE|EXCLUDE <path> <text> <reason>)
# No line matches the expression <text> in the files whose paths match the expression <path>, or in all other files.
function(refuse those path text reason)
    list(FILTER all ${those} REGEX "^${path}")
    foreach(file IN LISTS all)
        file(STRINGS "${SOURCES}/${file}" lines REGEX "${text}")
        foreach(line IN LISTS lines)
            string(APPEND failures "\n${file}: ${line} (${reason})")
        endforeach()
    endforeach()
    set(failures "${failures}" PARENT_SCOPE)
endfunction()

set(include "^ *# *include *[\"<]")
# compat/<class>.h includes either the other library's class or the stand-in.
refuse(EXCLUDE compat/ "${include}compat/substitute/" "callers include compat/<class>.h")
# All modules of Qt may be in one folder, where every layer finds them under their full names.
refuse(EXCLUDE ui/qt/designer/ "${include}Qt[A-Z][A-Za-z]*/" "a header of Qt goes without its module")
refuse(EXCLUDE "(ui/qt/dialogs/windows|testing/native)/"
    "shellapi\\.h|windows\\.h|shobjidl|IFileDialog|IShellItem|CoInitialize|CoCreateInstance|CoTaskMem|HRESULT"
    "only dialogs/windows and the scripted dialog know the shell")
refuse(EXCLUDE "(ui/qt/dialogs/(windows/|dialogKinds_p\\.h$)|testing/native/)" "${include}ui/qt/dialogs/windows/"
    "only the facades know the native half")
refuse(INCLUDE ui/qt/dialogs/rules/
    "<(boost/filesystem/(operations|directory|fstream)\\.hpp|boost/filesystem\\.hpp|filesystem|fstream)>"
    "rules never look at the file system")
refuse(INCLUDE ui/qt/dialogs/save/
    "${include}ui/qt/dialogs/(dialogKinds|ExtendedFileDialog|SaveFile[A-Za-z]*Dialog|LaunchFileDialog)"
    "the save flow knows no facade")
refuse(EXCLUDE "ui/qt/(controls/|dialogs/qtdialog/FileDialogWidgets\\.cpp$)"
    "\"(fileNameEdit|fileTypeCombo|buttonBox|sidebar|listView|treeView|lookInCombo|qt_filesystem_model)\"|[\"(]_q_"
    "FileDialogWidgets knows the inside of QFileDialog")
refuse(EXCLUDE ui/qt/designer/ "translate\\(\"([^c]|c[^o])" "the library's texts have the context common_ui_qt")
refuse(EXCLUDE "qtVersion_p\\.h$" "QT_VERSION" "qtVersion_p.h hides what differs between the versions of Qt")

if(failures)
    message(FATAL_ERROR "Includes and names that have no place there:${failures}")
endif()
