#pragma once

#include "internal_export.h"

class QFileDialog;

/// For a dialog drawn by Qt, whose accept button is enabled when the typed name exists: Qt looks for it when the text
/// changes, and not again when the folder has been read, or filtered anew, since.
COMMON_UI_QT_INTERNAL_EXPORT void letAcceptButtonFollowFolder(QFileDialog& dialog);
