#pragma once

#include "ui/qt/dialogs/windows/substitute/FileTypes.h"
#include "ui/qt/dialogs/windows/substitute/dialogOptions.h"

#include <QString>

/// What a dialog is to be shown with. Empty texts leave it to QFileDialog.
struct FileDialogRequest
{
    explicit FileDialogRequest(DialogKind dialogKind)
        : kind(dialogKind)
        , options(defaultOptions(dialogKind))
    {
    }

    DialogKind kind;
    FILEOPENDIALOGOPTIONS options;
    QString title;
    QString acceptLabel;
    QString fileNameLabel;
    QString folder;
    QString defaultFolder; ///< where `folder` is empty
    QString fileName;      ///< as in the file-name box: several names are quoted
    QString defaultExtension;
    FileTypes types;
    int type = 0; ///< a place in `types`, or any number
};
