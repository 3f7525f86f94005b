#pragma once

#include "ui/qt/dialogs/windows/builtin/FileTypes_p.h"
#include "ui/qt/dialogs/windows/builtin/dialogOptions_p.h"

#include <QString>

namespace zelmar::internal {

/// The settings with which a dialog opens. QFileDialog uses its default in place of an empty string.
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
    QString defaultFolder; ///< used if `folder` is empty
    QString fileName;      ///< as shown in the file-name box, where several names are quoted
    QString defaultExtension;
    FileTypes types;
    int type = 0; ///< an index into `types`; may be out of range
};

} // namespace zelmar::internal
