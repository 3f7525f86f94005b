#include "ui/qt/dialogs/letAcceptButtonFollowFolder_p.h"

#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFileSystemModel>
#include <QLineEdit>
#include <QPushButton>

namespace {

/// Returns whether the Open button is disabled although a name is typed. In all other cases the button is up to date,
/// and another update would replace its label.
bool waitsForAFile(const QFileDialog& dialog)
{
    const auto* edit = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    const auto* box = dialog.findChild<QDialogButtonBox*>(QStringLiteral("buttonBox"));
    const QPushButton* open = box->button(QDialogButtonBox::Open);
    return open && !open->isEnabled() && !edit->text().isEmpty();
}

} // namespace

void letAcceptButtonFollowFolder(QFileDialog& dialog)
{
    const auto* model = dialog.findChild<QFileSystemModel*>(QStringLiteral("qt_filesystem_model"));
    if (!model)
        return;
    const auto lookAgain = [&dialog] {
        if (waitsForAFile(dialog))
            QMetaObject::invokeMethod(&dialog, "_q_updateOkButton");
    };
    QObject::connect(model, &QFileSystemModel::layoutChanged, &dialog, lookAgain);
    QObject::connect(model, &QFileSystemModel::rowsInserted, &dialog, lookAgain);
    QObject::connect(model, &QFileSystemModel::rowsRemoved, &dialog, lookAgain);
    QObject::connect(model, &QFileSystemModel::directoryLoaded, &dialog, lookAgain);
}
