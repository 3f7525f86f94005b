#pragma once

#include "internal_export.h"

#include <QString>

#include <string>

// How QFileDialog's name filters become what the native dialog shows, and what its file types mean for a name.

/// A name filter taken apart for the native dialog.
struct NativeFilter
{
    QString name;
    QString pattern; ///< several are separated by ";"
};

/// "Images (*.png *.jpg)" becomes "Images" and "*.png;*.jpg"; what comes behind the last ")" is left out. A filter
/// without a bracketed part behind a blank is a pattern altogether, and shown as "File of Type". So is one that has a
/// line break in it.
COMMON_UI_QT_INTERNAL_EXPORT NativeFilter nativeFilter(const QString& filter);

/// The extension that `filter` gives a name, without its dot: what stands between the last " (*." and the last ")".
/// Empty when there is no such thing, as in "All files (*)". Of several patterns everything behind the first dot is
/// taken, so "Images (*.png *.jpg)" gives "png *.jpg": it is kept on purpose, and such a name shows what is wrong.
COMMON_UI_QT_INTERNAL_EXPORT QString extensionOfNativeFilter(const QString& filter);

/// `name` (UTF-8) with its extension replaced by that of `filter`, or taken away where the filter has none; with
/// slashes between the names of folders.
COMMON_UI_QT_INTERNAL_EXPORT std::string withExtensionOfFilter(const std::string& name, const QString& filter);
