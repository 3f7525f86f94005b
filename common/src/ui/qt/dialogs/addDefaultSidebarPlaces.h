#pragma once

#include "internal_export.h"

#include <QStandardPaths>
#include <QStringList>

#include <functional>

class QFileDialog;

/// The folders of a standard place, as QStandardPaths::standardLocations() gives them.
using StandardLocations = std::function<QStringList(QStandardPaths::StandardLocation)>;

/// Adds the user's desktop, documents and home folders, in this order, behind the places that the sidebar of `dialog`
/// has. A place without a folder is left out; a folder that is there already is added all the same.
///
/// A boost::filesystem::filesystem_error on the way is a debug message, and the sidebar stays as it was; the
/// dialog is of more use without its places than not at all. Other exceptions pass.
COMMON_UI_QT_INTERNAL_EXPORT void addDefaultSidebarPlaces(QFileDialog& dialog, const StandardLocations& locations);
