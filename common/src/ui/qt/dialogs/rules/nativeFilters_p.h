#pragma once

#include "internal_export_p.h"

#include <QString>

#include <string>

namespace zelmar::internal {

// Pure functions that translate QFileDialog's name filters into the file types of the native dialog.

/// The two parts of a file type of the native dialog.
struct NativeFilter
{
    QString name;
    QString pattern; ///< several patterns are separated by ";"
};

/// The name of a file type that is made from a filter without a description.
inline const QLatin1String unnamedFileType("File of Type");

/// Splits a name filter: "Images (*.png *.jpg)" becomes "Images" and "*.png;*.jpg". Drops what follows the last ")". A
/// filter without a blank and a parenthesised part, or with a line break, becomes the pattern of the type "File of
/// Type".
///
/// Compatibility: greedy-file-type
COMMON_UI_QT_INTERNAL_EXPORT NativeFilter nativeFilter(const QString& filter);

/// Returns the extension, without its dot, that the native dialog gives a name under `filter`: the text between the
/// last " (*." and the last ")". Empty if there is none, as in "All files (*)". Several patterns are not separated, so
/// that "Images (*.png *.jpg)" gives "png *.jpg".
///
/// Compatibility: greedy-extension
COMMON_UI_QT_INTERNAL_EXPORT QString extensionOfNativeFilter(const QString& filter);

/// Replaces the extension of `name` (UTF-8) by that of `filter`, or removes it when the filter has none. The result has
/// slashes as separators.
COMMON_UI_QT_INTERNAL_EXPORT std::string withExtensionOfFilter(const std::string& name, const QString& filter);

} // namespace zelmar::internal
