# Where the library of a class is installed, the class is that library's: for cmake and, by the flags that the pkg-config
# file gets, for a bare compiler. The library is one of the same name that is made here.
cmake_policy(VERSION 3.16)
include("${CMAKE_CURRENT_LIST_DIR}/run.cmake")

file(REMOVE_RECURSE "${SCRATCH}")
set(prefix "${SCRATCH}/prefix")
file(WRITE "${prefix}/include/qxt/QxtCore/qxtglobal.h" "#pragma once\n#define QXT_MADE_HERE\n")
file(WRITE "${prefix}/include/qxt/QxtWidgets/QxtLabel"
    "#pragma once\n#include \"qxtglobal.h\"\nclass QXT_MADE_HERE QxtLabel\n{\npublic:\n"
    "    static bool fromInstalledLibrary();\n};\n")
file(WRITE "${SCRATCH}/QxtLabel.cpp"
    "#include \"QxtLabel\"\nbool QxtLabel::fromInstalledLibrary()\n{\n    return true;\n}\n")
file(MAKE_DIRECTORY "${prefix}/lib")
run("${CXX}" -shared -fPIC "-I${prefix}/include/qxt/QxtWidgets" "-I${prefix}/include/qxt/QxtCore"
    "${SCRATCH}/QxtLabel.cpp" -o "${prefix}/lib/libQxtWidgets.so")

run("${CMAKE_COMMAND}" -S "${PROJECT}" -B "${SCRATCH}/build" -G Ninja "-DSOURCE=${SOURCE}"
    "-DCMAKE_PREFIX_PATH=${prefix}" "-DCMAKE_CXX_COMPILER=${CXX}" -DCMAKE_BUILD_TYPE=Debug)
run("${CMAKE_COMMAND}" --build "${SCRATCH}/build")
run("${SCRATCH}/build/program")

file(READ "${SCRATCH}/build/flags" flags)
separate_arguments(flags UNIX_COMMAND "${flags}")
run("${CXX}" "-I${SOURCE}/common/src" "-I${SCRATCH}/build/generated" "${PROJECT}/main.cpp" ${flags}
    "-Wl,-rpath,${prefix}/lib" -o "${SCRATCH}/with_flags")
run("${SCRATCH}/with_flags")
