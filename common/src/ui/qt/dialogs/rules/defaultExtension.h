#pragma once

#include "internal_export.h"

#include <QString>

#include <string>

/// The extension that a name filter stands for: everything from its last "." on, without white space, brackets and
/// asterisks. Where a filter has several patterns the last one counts: "Images (*.png *.jpg)" gives ".jpg".
///
/// A filter without any "." gives all of its text in that way, so "All files (*)" gives "Allfiles". This is kept on
/// purpose: files saved under such a filter have always been named so, and are found again by it.
COMMON_UI_QT_INTERNAL_EXPORT QString extensionOfFilter(const QString& filter);

/// `name` (UTF-8) with the extension of `filter` where it has none or ends with "."; the result then has "/" between
/// its folders. A name with any other extension is returned as it is.
///
/// A "." anywhere in `name` counts as the start of an extension, also one in the name of a folder: the name is then
/// left alone. This is kept on purpose: nothing that a user has typed is changed on a guess.
COMMON_UI_QT_INTERNAL_EXPORT std::string withDefaultExtension(const std::string& name, const QString& filter);
