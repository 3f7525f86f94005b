# Generates the reference from the comments of the public headers and the guides: pages for a web browser, and a file for Qt
# Assistant and Qt Creator. A warning of doxygen is an error.
find_package(Doxygen 1.9 REQUIRED)
find_program(COMMON_UI_QT_QHELPGENERATOR NAMES qhelpgenerator
    PATHS /usr/lib/qt5/bin /usr/lib/qt6/libexec REQUIRED)
mark_as_advanced(COMMON_UI_QT_QHELPGENERATOR)

set(reference_folder "${PROJECT_BINARY_DIR}/reference")
set(DOXYGEN_OUTPUT_DIRECTORY "${reference_folder}")
set(DOXYGEN_QUIET YES)
set(DOXYGEN_WARN_AS_ERROR FAIL_ON_WARNINGS)
set(DOXYGEN_GENERATE_LATEX NO)
set(DOXYGEN_HAVE_DOT NO)
set(DOXYGEN_EXTRACT_ALL YES)
set(DOXYGEN_JAVADOC_AUTOBRIEF YES)
set(DOXYGEN_STRIP_FROM_PATH "${PROJECT_SOURCE_DIR}/common/src" "${PROJECT_SOURCE_DIR}")
set(DOXYGEN_STRIP_FROM_INC_PATH "${PROJECT_SOURCE_DIR}/common/src")
set(DOXYGEN_MACRO_EXPANSION YES)
set(DOXYGEN_EXPAND_ONLY_PREDEF YES)
set(DOXYGEN_PREDEFINED
    COMMON_UI_QT_EXPORT= COMMON_UI_QT_NO_EXPORT= Q_OBJECT= Q_SIGNALS=signals Q_SLOTS=slots "Q_DISABLE_COPY(x)=")
set(DOXYGEN_FILTER_PATTERNS "*.md=${CMAKE_CURRENT_LIST_DIR}/guides.sed")
set(DOXYGEN_IMAGE_PATH "${PROJECT_SOURCE_DIR}/docs" "${PROJECT_SOURCE_DIR}")
set(DOXYGEN_TOC_INCLUDE_HEADINGS 2)
set(DOXYGEN_GENERATE_QHP YES)
set(DOXYGEN_QHP_NAMESPACE "zelmar.${COMMON_UI_QT_NAME}")
set(DOXYGEN_QHP_VIRTUAL_FOLDER "${COMMON_UI_QT_NAME}")
set(DOXYGEN_QCH_FILE "${reference_folder}/${COMMON_UI_QT_NAME}.qch")
set(DOXYGEN_QHG_LOCATION "${COMMON_UI_QT_QHELPGENERATOR}")

get_property(public_headers GLOBAL PROPERTY COMMON_UI_QT_PUBLIC_HEADERS)
list(TRANSFORM public_headers PREPEND "${PROJECT_SOURCE_DIR}/common/src/")
file(GLOB guides CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/docs/*.md")
set(DOXYGEN_USE_MDFILE_AS_MAINPAGE "${PROJECT_SOURCE_DIR}/README.md")
doxygen_add_docs(reference ${public_headers} ${guides} "${PROJECT_SOURCE_DIR}/README.md" ALL COMMENT "Generating the reference")

install(DIRECTORY "${reference_folder}/html" DESTINATION "${CMAKE_INSTALL_DATADIR}/doc/${COMMON_UI_QT_NAME}")
install(FILES "${DOXYGEN_QCH_FILE}" DESTINATION "${CMAKE_INSTALL_DATADIR}/doc/${COMMON_UI_QT_NAME}")
