#include "ui/qt/dialogs/qtdialog/handleTypedNames_p.h"

#include "ui/qt/dialogs/qtdialog/AcceptButtonGuide_p.h"
#include "ui/qt/dialogs/qtdialog/FileDialogWidgets_p.h"
#include "ui/qt/dialogs/qtdialog/typedName_p.h"
#include "ui/qt/dialogs/rules/quotedNames_p.h"

#include <QAbstractProxyModel>
#include <QApplication>
#include <QCoreApplication>
#include <QEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QFileSystemModel>
#include <QItemSelectionModel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>

namespace zelmar::internal {

namespace {

// Selecting the typed files

/// Returns the index of `path` in the model of the list, or an invalid index if the list does not contain it.
QModelIndex rowOf(const QFileDialog& dialog, const QString& path)
{
    const QModelIndex index = FileDialogWidgets(dialog).model().index(path);
    return dialog.proxyModel() ? dialog.proxyModel()->mapFromSource(index) : index;
}

/// Selects the rows of `paths`. If `exclusively` is true, deselects all other rows.
void selectInList(const QFileDialog& dialog, const QStringList& paths, bool exclusively)
{
    QItemSelectionModel& selection = FileDialogWidgets(dialog).selection();
    QModelIndexList others = selection.selectedRows();
    QModelIndexList missing;
    for (const QString& path : paths) {
        const QModelIndex row = rowOf(dialog, path);
        if (row.isValid() && others.removeAll(row) == 0)
            missing += row;
    }
    if (exclusively) {
        for (const QModelIndex& row : others)
            selection.select(row, QItemSelectionModel::Deselect | QItemSelectionModel::Rows);
    }
    for (const QModelIndex& row : missing)
        selection.select(row, QItemSelectionModel::Select | QItemSelectionModel::Rows);
}

/// Returns the files that `text` denotes if QFileDialog would split it wrongly: a single name with double quotes, or
/// the names of several existing files of which some contain double quotes. Returns an empty list otherwise.
QStringList filesMisread(const QFileDialog& dialog, const QString& text)
{
    if (const std::optional<QString> path = nameWithQuotesIn(dialog, text))
        return {*path};
    const QStringList names = namesOfQuotedText(text);
    if (dialog.fileMode() != QFileDialog::ExistingFiles || names.filter(QStringLiteral("\"")).isEmpty())
        return {};
    QStringList paths;
    for (const QString& name : names) {
        paths += dialog.directory().absoluteFilePath(name);
        if (!QFileInfo::exists(paths.last()))
            return {};
    }
    return paths;
}

void selectTypedNames(const QFileDialog& dialog)
{
    const FileDialogWidgets widgets(dialog);
    widgets.selectTypedFilesBy([&dialog, &edit = widgets.fileNameEdit()](const QString& text) {
        const QStringList files = filesMisread(dialog, text);
        if (!files.isEmpty())
            selectInList(dialog, files, edit.hasFocus());
        return !files.isEmpty();
    });
}

// Hiding outdated completions

/// An object that hides the list of completions when another folder is shown or the dialog is hidden.
class CompletionsHider : public QObject
{
public:
    explicit CompletionsHider(QFileDialog& dialog)
        : QObject(&dialog)
        , m_edit(FileDialogWidgets(dialog).fileNameEdit())
    {
        connect(&FileDialogWidgets(dialog).model(), &QFileSystemModel::rootPathChanged, this, &CompletionsHider::hide);
        dialog.installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Hide)
            hide();
        return QObject::eventFilter(watched, event);
    }

private:
    /// Hides the open list, if any. Does not call QCompleter::popup(), which would create a list.
    void hide() const
    {
        QWidget* const popup = QApplication::activePopupWidget();
        if (popup && popup->focusProxy() == &m_edit)
            popup->hide();
    }

    const QLineEdit& m_edit;
};

// Accepting a name with quotes

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
    ask(dialog, QCoreApplication::translate("common_ui_qt", "%1 does not exist.").arg(file.fileName()),
        QMessageBox::Ok);
}

void enter(QFileDialog& dialog, const QFileInfo& folder)
{
    dialog.setDirectory(folder.absoluteFilePath());
    if (dialog.fileMode() != QFileDialog::AnyFile) // QFileDialog does the same for a name without quotes.
        FileDialogWidgets(dialog).fileNameEdit().clear();
}

bool mayReplace(QFileDialog& dialog, const QFileInfo& file)
{
    if (dialog.acceptMode() != QFileDialog::AcceptSave || dialog.testOption(QFileDialog::DontConfirmOverwrite)
        || dialog.fileMode() != QFileDialog::AnyFile || !file.exists())
        return true;
    const QString question =
        QCoreApplication::translate("common_ui_qt", "%1 exists. Do you want to replace it?").arg(file.fileName());
    return ask(dialog, question, QMessageBox::Yes | QMessageBox::No) == QMessageBox::Yes;
}

} // namespace

void handleTypedNames(QFileDialog& dialog)
{
    selectTypedNames(dialog);
    new AcceptButtonGuide(dialog);
    new CompletionsHider(dialog);
}

void unselectShownFolder(QFileDialog& dialog)
{
    if (!FileDialogWidgets::existIn(dialog))
        return;
    const FileDialogWidgets widgets(dialog);
    if (!widgets.fileNameEdit().text().isEmpty())
        widgets.selection().select(widgets.shownFolder(), QItemSelectionModel::Deselect | QItemSelectionModel::Rows);
}

bool acceptTypedName(QFileDialog& dialog)
{
    if (typedNameIsTooLong(dialog))
        return true;
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
        acceptFiles(dialog, {*name}); // QFileDialog::accept() would split the name at the quotes.
    return true;
}

void acceptFiles(QFileDialog& dialog, const QStringList& files)
{
    const QPointer<QFileDialog> guarded(&dialog);
    Q_EMIT dialog.filesSelected(files);
    if (guarded && files.size() == 1)
        Q_EMIT dialog.fileSelected(files.first());
    if (guarded)
        dialog.QDialog::accept();
}

} // namespace zelmar::internal
