# Code that moc and rcc make is not ours to tidy: below the build folder next to nothing is checked. (Nothing at all
# would be an error of clang-tidy's.)
if(CMAKE_CXX_CLANG_TIDY)
    file(WRITE "${PROJECT_BINARY_DIR}/.clang-tidy" "Checks: '-*,misc-definitions-in-headers'\n")
endif()
