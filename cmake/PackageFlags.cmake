# Compiles what goes into Debian packages with Debian's own flags, which harden the programs and keep the folders of this machine
# out of them. Debug information is needed for comparing interfaces; cpack strips the packaged files.
set(package_flags_command "${CMAKE_COMMAND}" -E env "DEB_BUILD_MAINT_OPTIONS=hardening=+all reproducible=+all" dpkg-buildflags --get)
foreach(kind IN ITEMS CPPFLAGS CXXFLAGS LDFLAGS)
    execute_process(COMMAND ${package_flags_command} ${kind}
        WORKING_DIRECTORY "${PROJECT_SOURCE_DIR}" OUTPUT_VARIABLE output RESULT_VARIABLE result)
    if(NOT result EQUAL 0)
        message(FATAL_ERROR "Packages need Debian's dpkg-buildflags, of the package dpkg-dev")
    endif()
    separate_arguments(package_${kind} UNIX_COMMAND "${output}")
endforeach()
add_compile_options(${package_CPPFLAGS} ${package_CXXFLAGS})
add_link_options(${package_LDFLAGS})
