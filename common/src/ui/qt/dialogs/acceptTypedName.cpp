#include "ui/qt/dialogs/acceptTypedName_p.h"

#include "ui/qt/dialogs/typedName_p.h"

#include <QCoreApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>

namespace {

bool choosesFolder(const QFileDialog& dialog)
{
    return dialog.fileMode() != QFileDialog::AnyFile && dialog.fileMode() != QFileDialog::ExistingFile
           && dialog.fileMode() != QFileDialog::ExistingFiles;
}

bool isWanted(const QFileDialog& dialog, const QFileInfo& file)
{
    return choosesFolder(dialog) ? file.isDir() : file.exists() || dialog.fileMode() == QFileDialog::AnyFile;
}

/// Shows a message box with `text` over the dialog, which may be deleted meanwhile, and returns the chosen button.
QMessageBox::StandardButton ask(QFileDialog& dialog, const QString& text, QMessageBox::StandardButtons buttons)
{
    // The box is on the heap, because the dialog deletes it when it is destroyed meanwhile.
    const QPointer<QMessageBox> box =
        new QMessageBox(QMessageBox::Warning, dialog.windowTitle(), text, buttons, &dialog);
    box->setTextFormat(Qt::PlainText);
    box->setDefaultButton(buttons.testFlag(QMessageBox::No) ? QMessageBox::No : QMessageBox::NoButton);
    const int answer = box->exec();
    delete box;
    return static_cast<QMessageBox::StandardButton>(answer);
}

void refuse(QFileDialog& dialog, const QFileInfo& file)
{
    ask(dialog, QCoreApplication::translate("FileDialogWindow", "%1 does not exist.").arg(file.fileName()),
        QMessageBox::Ok);
}

void enter(QFileDialog& dialog, const QFileInfo& folder)
{
    dialog.setDirectory(folder.absoluteFilePath());
    if (dialog.fileMode() != QFileDialog::AnyFile) // QFileDialog does the same for names without quotes.
        dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->clear();
}

bool mayReplace(QFileDialog& dialog, const QFileInfo& file)
{
    if (dialog.acceptMode() != QFileDialog::AcceptSave || dialog.testOption(QFileDialog::DontConfirmOverwrite)
        || dialog.fileMode() != QFileDialog::AnyFile || !file.exists())
        return true;
    const QString question =
        QCoreApplication::translate("FileDialogWindow", "%1 exists. Do you want to replace it?").arg(file.fileName());
    return ask(dialog, question, QMessageBox::Yes | QMessageBox::No) == QMessageBox::Yes;
}

void choose(const QPointer<QFileDialog>& dialog, const QString& path)
{
    Q_EMIT dialog->filesSelected({path});
    if (dialog)
        Q_EMIT dialog->fileSelected(path);
    if (dialog)
        dialog->QDialog::accept(); // skips QFileDialog::accept(), which would split the name at the quotes
}

} // namespace

bool acceptTypedName(QFileDialog& dialog)
{
    const std::optional<QString> name = typedNameWithQuotes(dialog);
    if (!name)
        return false;
    const QPointer<QFileDialog> guarded(&dialog);
    const QFileInfo file(*name);
    if (file.isDir() && !choosesFolder(dialog))
        enter(dialog, file);
    else if (!isWanted(dialog, file))
        refuse(dialog, file);
    else if (mayReplace(dialog, file) && guarded)
        choose(guarded, *name);
    return true;
}
