#include "ui/qt/dialogs/letAcceptButtonFollowFolder.h"

#include <QFileDialog>
#include <QFileSystemModel>

void letAcceptButtonFollowFolder(QFileDialog& dialog)
{
    const auto* model = dialog.findChild<QFileSystemModel*>(QStringLiteral("qt_filesystem_model"));
    if (!model)
        return;
    for (const char* signal : {SIGNAL(layoutChanged()), SIGNAL(rowsInserted(QModelIndex, int, int)),
                               SIGNAL(rowsRemoved(QModelIndex, int, int)), SIGNAL(directoryLoaded(QString))})
        QObject::connect(model, signal, &dialog, SLOT(_q_updateOkButton()));
}
