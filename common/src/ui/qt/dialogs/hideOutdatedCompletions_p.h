#pragma once

#include "internal_export_p.h"

class QFileDialog;

/// Makes a Qt-drawn dialog hide the list of completions of its file-name box when another folder is shown or the dialog
/// is hidden. The list is a separate window, which would stay open after Return is pressed in the box. Call this
/// function once for each dialog.
COMMON_UI_QT_INTERNAL_EXPORT void hideOutdatedCompletions(QFileDialog& dialog);
