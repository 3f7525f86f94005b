#include "ui/qt/dialogs/unselectShownFolder_p.h"

#include <QFileDialog>
#include <QLineEdit>
#include <QListView>

void unselectShownFolder(QFileDialog& dialog)
{
    const auto* edit = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    const auto* list = dialog.findChild<QListView*>(QStringLiteral("listView"));
    if (edit && list && !edit->text().isEmpty())
        list->selectionModel()->select(list->rootIndex(), QItemSelectionModel::Deselect | QItemSelectionModel::Rows);
}
