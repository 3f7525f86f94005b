#pragma once

#include "common_ui_qt_export.h"

// Marks internals that only tests reach through the library's boundary. A build without tests exports none of them.
#ifdef COMMON_UI_QT_EXPORT_INTERNALS
#define COMMON_UI_QT_INTERNAL_EXPORT COMMON_UI_QT_EXPORT
#else
#define COMMON_UI_QT_INTERNAL_EXPORT
#endif

// Marks internals that the library for tests of applications reaches. A build without that library and without tests
// exports none of them.
#if defined(COMMON_UI_QT_EXPORT_INTERNALS) || defined(COMMON_UI_QT_EXPORT_SEAM)
#define COMMON_UI_QT_SEAM_EXPORT COMMON_UI_QT_EXPORT
#else
#define COMMON_UI_QT_SEAM_EXPORT
#endif
