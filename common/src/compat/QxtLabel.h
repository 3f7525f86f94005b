#pragma once

// The class QxtLabel: that of LibQxt where the library was built with it, else our stand-in.

#include "common_ui_qt_compat.h"

#if COMMON_UI_QT_HAS_QXTLABEL
#include <QxtLabel>
#else
#include "compat/substitute/QxtLabel.h"
#endif
