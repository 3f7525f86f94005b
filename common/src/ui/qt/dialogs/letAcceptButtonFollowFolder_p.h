#pragma once

#include "internal_export_p.h"

class QFileDialog;

/// Makes a Qt-drawn dialog update its accept button also when a folder has been read or filtered. The button is enabled
/// if the typed name exists, but Qt checks this only when the text changes.
COMMON_UI_QT_INTERNAL_EXPORT void letAcceptButtonFollowFolder(QFileDialog& dialog);
