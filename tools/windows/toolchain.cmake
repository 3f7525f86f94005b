# Builds for 64-bit Windows with mingw-w64, in the variant with POSIX threads, which Boost and std::thread need.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(prefix x86_64-w64-mingw32)
set(CMAKE_C_COMPILER ${prefix}-gcc-posix)
set(CMAKE_CXX_COMPILER ${prefix}-g++-posix)
set(CMAKE_RC_COMPILER ${prefix}-windres)

# The folder that tools/windows/dependencies fills.
get_filename_component(dependencies "${CMAKE_CURRENT_LIST_DIR}/../../build/windows-dependencies" ABSOLUTE)
set(CMAKE_FIND_ROOT_PATH "/usr/${prefix}" "${dependencies}/qt" "${dependencies}/boost")
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# Boost's CMake package file that CMake would find describes the Boost of this machine.
set(Boost_NO_BOOST_CMAKE ON)
set(Boost_USE_STATIC_LIBS ON)
set(BOOST_ROOT "${dependencies}/boost")
