#pragma once

#include "internal_export_p.h"
#include "ui/qt/dialogs/windows/shellapi.h"

#include <QFileDialog>

namespace zelmar::internal {

enum class DialogKind { Open, Save };

/// Returns the options of a new dialog object.
COMMON_UI_QT_INTERNAL_EXPORT FILEOPENDIALOGOPTIONS defaultOptions(DialogKind kind);

/// Translate options into the terms of QFileDialog, which has no counterpart of FOS_PATHMUSTEXIST.
COMMON_UI_QT_INTERNAL_EXPORT QFileDialog::FileMode fileModeOf(FILEOPENDIALOGOPTIONS options);
COMMON_UI_QT_INTERNAL_EXPORT QFileDialog::Options dialogOptionsOf(FILEOPENDIALOGOPTIONS options);

} // namespace zelmar::internal
