#pragma once

#include "internal_export_p.h"
#include "ui/qt/dialogs/windows/shellapi.h"

#include <QFileDialog>

namespace zelmar::internal {

enum class DialogKind { Open, Save };

/// Returns the options of a new dialog object.
COMMON_UI_QT_INTERNAL_EXPORT FILEOPENDIALOGOPTIONS defaultOptions(DialogKind kind);

/// Returns the file mode that corresponds to `options`.
COMMON_UI_QT_INTERNAL_EXPORT QFileDialog::FileMode fileModeOf(FILEOPENDIALOGOPTIONS options);

/// Returns the options of QFileDialog that correspond to `options`. FOS_PATHMUSTEXIST has no counterpart.
COMMON_UI_QT_INTERNAL_EXPORT QFileDialog::Options dialogOptionsOf(FILEOPENDIALOGOPTIONS options);

} // namespace zelmar::internal
