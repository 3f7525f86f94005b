cmake_policy(VERSION 3.16)
include("${CMAKE_CURRENT_LIST_DIR}/run.cmake")

function(expect_working program)
    run("${program}")
    if(NOT output MATCHES "the installed library works")
        message(FATAL_ERROR "${program} said: ${output}")
    endif()
endfunction()

file(REMOVE_RECURSE "${SCRATCH}")

# What is installed can be uninstalled, also a component that is installed alone.
foreach(component IN ITEMS "" "--component;runtime")
    run("${CMAKE_COMMAND}" --install "${BUILD}" --prefix "${SCRATCH}/uninstalled" --config "${CONFIG}" ${component})
    file(GLOB_RECURSE files "${SCRATCH}/uninstalled/*")
    if(NOT files)
        message(FATAL_ERROR "nothing was installed")
    endif()
    run("${CMAKE_COMMAND}" -D "FOLDER=${BUILD}" -P "${UNINSTALL}")
    file(GLOB_RECURSE files "${SCRATCH}/uninstalled/*")
    if(files)
        message(FATAL_ERROR "left behind: ${files}")
    endif()
endforeach()

set(staging "${SCRATCH}/staging")
set(prefix "${SCRATCH}/a moved prefix")
run("${CMAKE_COMMAND}" --install "${BUILD}" --prefix "${staging}" --config "${CONFIG}")
file(RENAME "${staging}" "${prefix}")

# The public headers are installed and no others, each as it stands in the source tree.
file(GLOB_RECURSE installed RELATIVE "${prefix}/include/${NAME}" "${prefix}/include/${NAME}/*")
list(REMOVE_ITEM installed
    common_ui_qt_compat.h common_ui_qt_export.h common_ui_qt_testing_export.h common_ui_qt_version.h)
list(SORT installed)
list(SORT PUBLIC_HEADERS)
if(NOT installed STREQUAL PUBLIC_HEADERS)
    message(FATAL_ERROR "Installed are ${installed}; public are ${PUBLIC_HEADERS}")
endif()
foreach(header IN LISTS installed)
    file(READ "${HEADERS}/${header}" source)
    file(READ "${prefix}/include/${NAME}/${header}" copy)
    if(NOT source STREQUAL copy)
        message(FATAL_ERROR "${header} differs from its source")
    endif()
endforeach()

# The library for the other version of Qt can be installed beside it: the path of each file tells the version.
file(GLOB_RECURSE files RELATIVE "${prefix}" "${prefix}/*")
list(FILTER files EXCLUDE REGEX "(^|/)lib${NAME}(_testing)?\\.so|/${NAME}/|/${NAME}(_testing)?\\.pc$|/${QT_FOLDER}/")
if(files)
    message(FATAL_ERROR "Not named after the version of Qt: ${files}")
endif()

# With find_package.
run("${CMAKE_COMMAND}" -S "${CONSUMER}" -B "${SCRATCH}/consumer" -G Ninja
    "-DCMAKE_PREFIX_PATH=${prefix}" -DPACKAGE=${NAME} -DCMAKE_CXX_STANDARD=${STANDARD}
    "-DTESTING=${TESTING}" "-DCMAKE_CXX_COMPILER=${CXX}" -DCMAKE_BUILD_TYPE=Debug)
run("${CMAKE_COMMAND}" --build "${SCRATCH}/consumer")
expect_working("${SCRATCH}/consumer/consumer")
if(TESTING)
    expect_working("${SCRATCH}/consumer/consumer_test")
endif()

# With pkg-config: flags come with blanks escaped, as a shell wants them.
file(GLOB_RECURSE pc "${prefix}/*/${NAME}.pc")
get_filename_component(pc_folder "${pc}" DIRECTORY)
get_filename_component(library_folder "${pc_folder}" DIRECTORY)
set(ENV{LD_LIBRARY_PATH} "${library_folder}")
# expect_working_with_pkg_config(<source> <package>)
function(expect_working_with_pkg_config source package)
    set(program "${SCRATCH}/with_${package}")
    file(WRITE "${program}.sh"
        "set -eu\nexport PKG_CONFIG_PATH='${pc_folder}'\n"
        "eval \"'${CXX}' -std=c++${STANDARD} '${CONSUMER}/${source}' -o '${program}' "
        "$(pkg-config --cflags --libs ${package})\"\n")
    run(sh "${program}.sh")
    expect_working("${program}")
endfunction()

expect_working_with_pkg_config(main.cpp ${NAME})
if(TESTING)
    expect_working_with_pkg_config(test.cpp ${NAME}_testing)
endif()
