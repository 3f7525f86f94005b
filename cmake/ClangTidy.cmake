# Disables nearly all checks below the build folder, because it contains the code that moc and rcc generate. clang-tidy
# reports an error if no check at all is enabled.
if(CMAKE_CXX_CLANG_TIDY)
    file(WRITE "${PROJECT_BINARY_DIR}/.clang-tidy" "Checks: '-*,misc-definitions-in-headers'\n")
endif()
