#include "ui/qt/dialogs/selectTypedName_p.h"

#include "ui/qt/dialogs/rules/quotedNames_p.h"
#include "ui/qt/dialogs/typedName_p.h"

#include <QAbstractProxyModel>
#include <QFileDialog>
#include <QFileInfo>
#include <QFileSystemModel>
#include <QItemSelectionModel>
#include <QLineEdit>

namespace {

/// Returns the index of `path` in the model of the list. Invalid if the list does not contain it.
QModelIndex rowOf(const QFileDialog& dialog, const QString& path)
{
    const auto* model = dialog.findChild<QFileSystemModel*>(QStringLiteral("qt_filesystem_model"));
    const QModelIndex index = model->index(path);
    return dialog.proxyModel() ? dialog.proxyModel()->mapFromSource(index) : index;
}

/// Selects the rows of `paths`. If `instead` is true, deselects all other rows.
void selectInList(const QFileDialog& dialog, const QStringList& paths, bool instead)
{
    QItemSelectionModel& selection = *listSelection(dialog);
    QModelIndexList others = selection.selectedRows();
    QModelIndexList missing;
    for (const QString& path : paths) {
        const QModelIndex row = rowOf(dialog, path);
        if (row.isValid() && others.removeAll(row) == 0)
            missing += row;
    }
    if (instead) {
        for (const QModelIndex& row : others)
            selection.select(row, QItemSelectionModel::Deselect | QItemSelectionModel::Rows);
    }
    for (const QModelIndex& row : missing)
        selection.select(row, QItemSelectionModel::Select | QItemSelectionModel::Rows);
}

/// Returns the existing files that `text` denotes if QFileDialog would split it wrongly: a single name with double
/// quotes, or several names of which some contain double quotes. Empty otherwise.
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

void followText(QFileDialog& dialog, const QLineEdit& edit, const QString& text)
{
    const QStringList files = filesMisread(dialog, text);
    if (!files.isEmpty())
        selectInList(dialog, files, edit.hasFocus());
    else
        QMetaObject::invokeMethod(&dialog, "_q_autoCompleteFileName", Q_ARG(QString, text));
}

} // namespace

void selectTypedName(QFileDialog& dialog)
{
    const auto* edit = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    if (!edit
        || !QObject::disconnect(edit, SIGNAL(textChanged(QString)), &dialog, SLOT(_q_autoCompleteFileName(QString))))
        return;
    QObject::connect(edit, &QLineEdit::textChanged, &dialog,
                     [&dialog, edit](const QString& text) { followText(dialog, *edit, text); });
}
