#pragma once

#include "common_ui_qt_export.h"

#include <string>

namespace zelmar {

/// Converts UTF-8 to a wide string: to UTF-16 if the platform's `wchar_t` has two bytes (characters beyond U+FFFF
/// become surrogate pairs), to UTF-32 if it has four.
///
/// Each invalid byte sequence becomes U+FFFD. Nothing else is changed or lost: the text after an embedded NUL and a
/// leading U+FEFF are kept. An empty string yields an empty string.
///
/// This function may be called on any thread. Throws only std::bad_alloc.
COMMON_UI_QT_EXPORT std::wstring utf8ToWideString(const std::string& text);

} // namespace zelmar
