#pragma once

#include "common_ui_qt_export.h"

#include <string>

namespace zelmar {

/// Converts UTF-8 to wide text, in the form that the platform's `wchar_t` has: UTF-16 where it has two bytes
/// (characters beyond U+FFFF become a surrogate pair), UTF-32 where it has four.
///
/// Each byte sequence that is not valid UTF-8 becomes U+FFFD; nothing else is changed or lost: text behind an
/// embedded NUL stays, and so does a leading U+FEFF. An empty text gives an empty text.
///
/// Callable from any thread. Throws only what an allocation throws.
COMMON_UI_QT_EXPORT std::wstring utf8ToWideString(const std::string& text);

} // namespace zelmar
