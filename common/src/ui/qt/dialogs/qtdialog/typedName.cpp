#include "ui/qt/dialogs/qtdialog/typedName_p.h"

#include "ui/qt/dialogs/qtdialog/FileDialogWidgets_p.h"
#include "ui/qt/dialogs/rules/quotedNames_p.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QItemSelectionModel>
#include <QLineEdit>

namespace zelmar::internal {

namespace {

/// Returns the absolute path of the single name `text` without a default suffix. A leading "~/" denotes the home folder
/// unless that path exists in the shown folder.
QString pathOf(const QFileDialog& dialog, const QString& text)
{
    const QString path = dialog.directory().absoluteFilePath(text);
    if (text.startsWith(QLatin1String("~/")) && !QFileInfo::exists(path))
        return QDir::cleanPath(QDir::homePath() + text.mid(1));
    return QDir::cleanPath(path);
}

QString withDefaultSuffix(const QFileDialog& dialog, const QString& path, const QString& text)
{
    const QString suffix = dialog.defaultSuffix();
    const bool lacksSuffix = !text.contains(QLatin1Char('.')) && !QFileInfo(path).isDir();
    return lacksSuffix && !suffix.isEmpty() ? path + QLatin1Char('.') + suffix : path;
}

bool isOneName(const QFileDialog& dialog, const QString& text, const QString& path)
{
    const bool inQuotes = startsWithQuotedName(text);
    if (dialog.fileMode() == QFileDialog::ExistingFiles)
        return !inQuotes && (text.count(QLatin1Char('"')) % 2 == 1 || QFileInfo::exists(path));
    const bool saving = dialog.acceptMode() == QFileDialog::AcceptSave && dialog.fileMode() == QFileDialog::AnyFile;
    return saving || !inQuotes || QFileInfo::exists(path);
}

} // namespace

std::optional<QString> nameWithQuotesIn(const QFileDialog& dialog, const QString& text)
{
    if (!text.contains(QLatin1Char('"')))
        return std::nullopt;
    const QString path = withDefaultSuffix(dialog, pathOf(dialog, text), text);
    return isOneName(dialog, text, path) ? std::make_optional(path) : std::nullopt;
}

std::optional<QString> typedNameWithQuotes(const QFileDialog& dialog)
{
    if (!FileDialogWidgets::existIn(dialog))
        return std::nullopt;
    const FileDialogWidgets widgets(dialog);
    if (!widgets.selection().selectedRows().isEmpty())
        return std::nullopt;
    return nameWithQuotesIn(dialog, widgets.fileNameEdit().text());
}

QStringList chosenFiles(const QFileDialog& dialog)
{
    const std::optional<QString> name = typedNameWithQuotes(dialog);
    return name ? QStringList(*name) : dialog.QFileDialog::selectedFiles();
}

} // namespace zelmar::internal
