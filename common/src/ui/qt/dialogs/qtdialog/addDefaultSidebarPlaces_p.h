#pragma once

#include "internal_export_p.h"

#include <QStandardPaths>
#include <QStringList>

#include <functional>

class QFileDialog;

namespace zelmar::internal {

/// A function that returns the folders of a standard location, as QStandardPaths::standardLocations() does.
using StandardLocations = std::function<QStringList(QStandardPaths::StandardLocation)>;

/// Appends the user's desktop, documents and home folders, in this order, to the sidebar of `dialog`. Skips a location
/// without a folder. Does not check whether the sidebar already contains a folder.
///
/// Logs a boost::filesystem::filesystem_error as a debug message and leaves the sidebar unchanged, because a dialog
/// without these places is better than none. Propagates other exceptions.
COMMON_UI_QT_INTERNAL_EXPORT void addDefaultSidebarPlaces(QFileDialog& dialog, const StandardLocations& locations);

} // namespace zelmar::internal
