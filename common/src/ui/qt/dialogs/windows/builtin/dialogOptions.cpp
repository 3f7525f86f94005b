#include "ui/qt/dialogs/windows/builtin/dialogOptions_p.h"

namespace zelmar::internal {

FILEOPENDIALOGOPTIONS defaultOptions(DialogKind kind)
{
    return kind == DialogKind::Open ? FOS_PATHMUSTEXIST | FOS_FILEMUSTEXIST
                                    : FOS_OVERWRITEPROMPT | FOS_PATHMUSTEXIST | FOS_NOREADONLYRETURN;
}

QFileDialog::FileMode fileModeOf(FILEOPENDIALOGOPTIONS options)
{
    if (options & FOS_PICKFOLDERS)
        return QFileDialog::Directory;
    if (options & FOS_ALLOWMULTISELECT)
        return QFileDialog::ExistingFiles;
    return options & FOS_FILEMUSTEXIST ? QFileDialog::ExistingFile : QFileDialog::AnyFile;
}

QFileDialog::Options dialogOptionsOf(FILEOPENDIALOGOPTIONS options)
{
    QFileDialog::Options result;
    result.setFlag(QFileDialog::ShowDirsOnly, options & FOS_PICKFOLDERS);
    result.setFlag(QFileDialog::DontConfirmOverwrite, !(options & FOS_OVERWRITEPROMPT));
    return result;
}

} // namespace zelmar::internal
