#pragma once

// Declares the class QxtLabel: LibQxt's class if the library was built with LibQxt, otherwise the substitute.

#include "common_ui_qt_compat.h"

#if COMMON_UI_QT_HAS_QXTLABEL
#include <QxtLabel>
#else
#include "compat/substitute/QxtLabel.h"
#endif
