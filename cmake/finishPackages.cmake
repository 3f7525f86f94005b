# Removes the maintainer scripts that cpack generates for shared libraries: they only call ldconfig, which Debian's packages leave
# to a trigger. cpack runs this script after it has made the packages.
function(run_dpkg_deb)
    execute_process(COMMAND dpkg-deb ${ARGN} RESULT_VARIABLE result OUTPUT_QUIET)
    if(NOT result EQUAL 0)
        message(FATAL_ERROR "dpkg-deb ${ARGN} failed")
    endif()
endfunction()

set(folder "${CPACK_TEMPORARY_DIRECTORY}/finished")
foreach(package IN LISTS CPACK_PACKAGE_FILES)
    file(REMOVE_RECURSE "${folder}")
    run_dpkg_deb(--raw-extract "${package}" "${folder}")
    file(REMOVE "${folder}/DEBIAN/postinst" "${folder}/DEBIAN/postrm")
    run_dpkg_deb(--root-owner-group -Zxz --build "${folder}" "${package}")
endforeach()
file(REMOVE_RECURSE "${folder}")
