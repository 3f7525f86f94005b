# Fails when a source includes a header that its folder must not depend on:
#   property, platform, textsearch and compat do not include the user interface (ui/);
#   ui/qt/controls and ui/qt/dialogs do not include each other;
#   textsearch, controls/numbers and dialogs/rules include no widgets;
#   dialogs/rules does not look at the file system;
#   dialogs/save does not include the facades;
#   of all dialogs, only qtdialog/FileDialogWidgets knows the names of the parts inside QFileDialog;
#   only dialogs/windows uses the shell's interfaces, and only dialogKinds_p.h includes dialogs/windows from outside.
cmake_policy(VERSION 3.16)

set(failures "")

macro(add_failures file lines reason)
    foreach(line IN LISTS ${lines})
        set(failures "${failures}\n${file}: ${line} (${reason})")
    endforeach()
    set(failures "${failures}" PARENT_SCOPE)
endmacro()

function(refuse_text files pattern reason)
    foreach(file IN LISTS files)
        file(STRINGS "${SOURCES}/${file}" lines REGEX "${pattern}")
        add_failures("${file}" lines "${reason}")
    endforeach()
endfunction()

macro(refuse_includes files pattern reason)
    refuse_text("${files}" "^ *# *include.*${pattern}" "${reason}")
endmacro()

function(allow_of_qt files names reason)
    foreach(file IN LISTS files)
        file(STRINGS "${SOURCES}/${file}" includes REGEX "^ *# *include *<Q")
        list(FILTER includes EXCLUDE REGEX "<Q(${names})>")
        add_failures("${file}" includes "${reason}")
    endforeach()
endfunction()

file(GLOB_RECURSE all RELATIVE "${SOURCES}" "${SOURCES}/*.h" "${SOURCES}/*.cpp")
if(NOT all)
    message(FATAL_ERROR "no sources below ${SOURCES}")
endif()

set(foundation ${all})
list(FILTER foundation INCLUDE REGEX "^(property|platform|compat|textsearch)/")
refuse_includes("${foundation}" "[\"<]ui/" "the foundation knows no user interface")

set(property ${all})
list(FILTER property INCLUDE REGEX "^property/")
refuse_includes("${property}" "<Q" "observable values know no Qt")

set(controls ${all})
list(FILTER controls INCLUDE REGEX "^ui/qt/controls/")
refuse_includes("${controls}" "[\"<]ui/qt/dialogs/" "controls know no dialogs")

set(dialogs ${all})
list(FILTER dialogs INCLUDE REGEX "^ui/qt/dialogs/")
refuse_includes("${dialogs}" "[\"<]ui/qt/controls/" "dialogs know no controls")

# compat/<class>.h includes either the other library's class or the stand-in.
set(callers ${all})
list(FILTER callers EXCLUDE REGEX "^compat/")
refuse_includes("${callers}" "[\"<]compat/substitute/" "callers include compat/<class>.h")

set(filter ${all})
list(FILTER filter INCLUDE REGEX "^textsearch/")
allow_of_qt("${filter}" "AbstractItemModel|AbstractProxyModel|Char|MetaMethod|ModelIndex|Object|Pointer|String|StringList|StringListModel|StringView|Vector|t|tAlgorithms|tGlobal"
    "the filter knows no widgets")

set(numbers ${all})
list(FILTER numbers INCLUDE REGEX "^ui/qt/controls/numbers/")
allow_of_qt("${numbers}" "Latin1String|Locale|String|VarLengthArray|Validator|tGlobal" "numbers know no widgets")

set(rules ${all})
list(FILTER rules INCLUDE REGEX "^ui/qt/dialogs/rules/")
allow_of_qt("${rules}" "Char|Latin1String|Map|Pair|RegExp|String|StringList|Vector" "rules know text only, of all Qt")
refuse_includes("${rules}" "<(boost/filesystem/(operations|directory|fstream)\\.hpp|boost/filesystem\\.hpp|filesystem|fstream)>"
    "rules never look at the file system")

set(save ${all})
list(FILTER save INCLUDE REGEX "^ui/qt/dialogs/save/")
refuse_includes("${save}" "dialogs/(dialogKinds|ExtendedFileDialog|SaveFile[A-Za-z]*Dialog|LaunchFileDialog)"
    "the save flow knows no facade")

set(inside ${dialogs})
list(FILTER inside EXCLUDE REGEX "/qtdialog/FileDialogWidgets\\.cpp$")
refuse_text("${inside}" "\"(fileNameEdit|fileTypeCombo|buttonBox|sidebar|listView|treeView|lookInCombo|qt_filesystem_model)\"|[\"(]_q_"
    "FileDialogWidgets knows the inside of QFileDialog")

set(portable ${all})
list(FILTER portable EXCLUDE REGEX "^ui/qt/dialogs/windows/")
refuse_text("${portable}" "shellapi\\.h|windows\\.h|shobjidl|IFileDialog|IShellItem|CoInitialize|CoCreateInstance|CoTaskMem|HRESULT"
    "only dialogs/windows knows the shell")
list(FILTER portable EXCLUDE REGEX "^ui/qt/dialogs/dialogKinds_p\\.h$")
refuse_includes("${portable}" "dialogs/windows/" "only dialogKinds_p.h knows the native half")

if(failures)
    message(FATAL_ERROR "Includes against the direction of dependencies:${failures}")
endif()
