#pragma once

// Declares ctkCompleter: the class of the CTK widgets if the library was built with them, else the substitute.

#include "common_ui_qt_compat.h"

#if COMMON_UI_QT_HAS_CTKCOMPLETER
#include <ctkCompleter.h>
#else
#include "compat/substitute/ctkCompleter.h"
#endif
