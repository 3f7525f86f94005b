# Sets what depends on the major version of Qt: QT, the prefix of the names of Qt's targets and packages; QT_MINIMUM, the
# oldest version that is tested; and COMMON_UI_QT_NAME, the name of the library file, its header folder, its CMake package and its
# pkg-config file. The names differ, so that the libraries for both versions of Qt can be installed side by side.
if(NOT COMMON_UI_QT_QT_MAJOR MATCHES "^[56]$")
    message(FATAL_ERROR "COMMON_UI_QT_QT_MAJOR is '${COMMON_UI_QT_QT_MAJOR}'; it has to be 5 or 6")
endif()
set(QT Qt${COMMON_UI_QT_QT_MAJOR})
if(COMMON_UI_QT_QT_MAJOR EQUAL 5)
    set(QT_MINIMUM 5.15)
    set(COMMON_UI_QT_NAME common_ui_qt)
else()
    set(QT_MINIMUM 6.4)
    set(COMMON_UI_QT_NAME common_ui_qt6)
endif()
