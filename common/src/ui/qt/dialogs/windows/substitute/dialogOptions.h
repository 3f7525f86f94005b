#pragma once

#include "internal_export.h"
#include "ui/qt/dialogs/windows/substitute/fileDialog.h"

#include <QFileDialog>

enum class DialogKind { Open, Save };

/// The options that a dialog has before anybody sets them.
COMMON_UI_QT_INTERNAL_EXPORT FILEOPENDIALOGOPTIONS defaultOptions(DialogKind kind);

/// What options mean to a QFileDialog. An existing folder (FOS_PATHMUSTEXIST) is nothing that it can be told to ask
/// for.
COMMON_UI_QT_INTERNAL_EXPORT QFileDialog::FileMode fileModeOf(FILEOPENDIALOGOPTIONS options);
COMMON_UI_QT_INTERNAL_EXPORT QFileDialog::Options dialogOptionsOf(FILEOPENDIALOGOPTIONS options);
