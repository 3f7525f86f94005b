# The command that starts a test program, if one is needed.
set(COMMON_UI_QT_EMULATOR "")
if(WIN32 AND CMAKE_CROSSCOMPILING)
    set(COMMON_UI_QT_EMULATOR "${PROJECT_SOURCE_DIR}/tools/windows/run-test")
endif()

# The command that starts a test program on a virtual screen of its own. On Windows all tests share the desktop.
set(COMMON_UI_QT_SCREEN "")
if(NOT CMAKE_HOST_WIN32)
    set(COMMON_UI_QT_SCREEN "${PROJECT_SOURCE_DIR}/tools/with-screen" ${COMMON_UI_QT_EMULATOR})
endif()

# add_ui_test(<name> SOURCES <file>... [MOC_HEADERS <file>...] [LIBRARIES <target>...] [NO_SCREEN])
#
# Adds a test program. It runs on a virtual screen of its own with a window manager, or without a screen (NO_SCREEN), and
# fails on every Qt warning that it has not announced with QTest::ignoreMessage().
function(add_ui_test name)
    cmake_parse_arguments(arg "NO_SCREEN" "" "SOURCES;MOC_HEADERS;LIBRARIES" ${ARGN})
    qt_wrap_cpp(moc_sources ${arg_MOC_HEADERS})
    add_executable(${name} ${arg_SOURCES} ${moc_sources})
    set_target_properties(${name} PROPERTIES CXX_EXTENSIONS OFF)
    common_ui_qt_moc_test(${name} ${arg_SOURCES})
    target_compile_definitions(${name} PRIVATE QT_NO_KEYWORDS)
    target_link_libraries(${name} PRIVATE ui_test_support zelmar::common_ui_qt ${arg_LIBRARIES})
    common_ui_qt_set_warnings(${name})
    common_ui_qt_reuse_precompiled_headers(${name} ui_driver)
    # Qt 5's QSKIP omits a variadic macro argument, about which clang warns.
    target_compile_options(${name} PRIVATE $<$<CXX_COMPILER_ID:Clang>:-Wno-gnu-zero-variadic-macro-arguments>)

    if(arg_NO_SCREEN)
        add_test(NAME ${name} COMMAND ${COMMON_UI_QT_EMULATOR} $<TARGET_FILE:${name}>)
    else()
        add_test(NAME ${name} COMMAND ${COMMON_UI_QT_SCREEN} $<TARGET_FILE:${name}>)
    endif()
    common_ui_qt_set_test_properties(${name})
endfunction()

# add_offscreen_ui_test(<name> <argument of add_ui_test>...)
#
# Adds a test program with widgets that needs no screen. It has one nevertheless under Wine, where Qt runs with the system's
# platform plugin, and under the sanitizers, because Qt's offscreen plugin leaks its screen.
function(add_offscreen_ui_test name)
    if(WIN32 OR COMMON_UI_QT_SANITIZERS)
        add_ui_test(${name} ${ARGN})
    else()
        add_ui_test(${name} NO_SCREEN ${ARGN})
        set_property(TEST ${name} APPEND PROPERTY ENVIRONMENT "QT_QPA_PLATFORM=offscreen")
    endif()
endfunction()

# Generates the moc file that a test includes at its end. AUTOMOC would need three build steps for each program, which
# together take a third of the build time.
function(common_ui_qt_moc_test name)
    set(folder "${CMAKE_CURRENT_BINARY_DIR}/${name}_moc")
    foreach(source IN LISTS ARGN)
        if(source MATCHES "(tst_[^/]*)\\.cpp$")
            file(MAKE_DIRECTORY "${folder}")
            qt_generate_moc("${source}" "${folder}/${CMAKE_MATCH_1}.moc" TARGET ${name})
            target_sources(${name} PRIVATE "${folder}/${CMAKE_MATCH_1}.moc")
        endif()
    endforeach()
    target_include_directories(${name} PRIVATE "${folder}")
endfunction()

# add_scaled_ui_test(<name> <factor>)
#
# Runs the test program again with the scale factor <factor>.
function(add_scaled_ui_test name factor)
    add_test(NAME ${name}_scaled
        COMMAND ${CMAKE_COMMAND} -E env QT_SCALE_FACTOR=${factor} ${COMMON_UI_QT_SCREEN} $<TARGET_FILE:${name}>)
    common_ui_qt_set_test_properties(${name}_scaled)
endfunction()

function(common_ui_qt_set_test_properties name)
    set(suppressions "${PROJECT_SOURCE_DIR}/tests/support/leaks.supp")
    set_tests_properties(${name} PROPERTIES
        TIMEOUT 300
        FAIL_REGULAR_EXPRESSION "QWARN  :;QCRITICAL:;QFATAL :;QSYSTEM:"
        ENVIRONMENT "LSAN_OPTIONS=suppressions=${suppressions}:print_suppressions=0;UBSAN_OPTIONS=print_stacktrace=1")
    if(CMAKE_HOST_WIN32)
        common_ui_qt_let_test_start(${name})
    endif()
endfunction()

# common_ui_qt_overwrite_freed_memory(<name>)
#
# Has GNU's C library overwrite what the test's program frees. Qt's own code is not built with the sanitizers, which do not
# see it use an object that a test has deleted; such an object mostly looks as before.
function(common_ui_qt_overwrite_freed_memory name)
    set_property(TEST ${name} APPEND PROPERTY
        ENVIRONMENT "GLIBC_TUNABLES=glibc.malloc.tcache_count=0:glibc.malloc.perturb=165")
endfunction()

# Adds the folders of the libraries to PATH, where Windows looks for them. ENVIRONMENT_MODIFICATION needs CMake 3.22.
function(common_ui_qt_let_test_start name)
    set(changes "")
    foreach(library IN ITEMS common_ui_qt ${QT}::Core Boost::filesystem)
        get_target_property(type ${library} TYPE)
        if(type STREQUAL "SHARED_LIBRARY")
            list(APPEND changes "PATH=path_list_prepend:$<TARGET_FILE_DIR:${library}>")
        endif()
    endforeach()
    set_tests_properties(${name} PROPERTIES ENVIRONMENT_MODIFICATION "${changes}")
endfunction()
