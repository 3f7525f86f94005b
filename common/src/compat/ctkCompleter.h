#pragma once

// The class ctkCompleter: that of the CTK widgets where the library was built with them, else our stand-in.

#include "common_ui_qt_compat.h"

#if COMMON_UI_QT_HAS_CTKCOMPLETER
#include <ctkCompleter.h>
#else
#include "compat/substitute/ctkCompleter.h"
#endif
