#pragma once

#include "internal_export_p.h"

#include <QString>

#include <string>

namespace zelmar::internal {

/// Returns the extension that a name filter stands for: everything from its last "." on, without white space,
/// parentheses and asterisks. The last of several patterns counts: "Images (*.png *.jpg)" gives ".jpg". A filter
/// without any "." gives its whole text in this form: "All files (*)" gives "Allfiles".
///
/// Compatibility: last-pattern-gives-the-extension, extension-of-the-whole-filter
COMMON_UI_QT_INTERNAL_EXPORT QString extensionOfFilter(const QString& filter);

/// Appends the extension of `filter` to `name` (UTF-8) when the name has none or ends with ".". The result then has "/"
/// as separator. Returns a name with any other extension unchanged.
///
/// A "." anywhere in `name` counts as the start of an extension, also one in the name of a folder.
///
/// Compatibility: dot-in-a-folder-counts
COMMON_UI_QT_INTERNAL_EXPORT std::string withDefaultExtension(const std::string& name, const QString& filter);

} // namespace zelmar::internal
