#include "ui/qt/dialogs/LaunchFileDialog.h"

#include "ui/qt/dialogs/ExtendedFileDialog.h"
#include "ui/qt/dialogs/rules/nameFilterList_p.h"
#include "ui/qt/dialogs/rules/quotedNames_p.h"

#include <QApplication>
#include <QFileInfo>
#include <QWidget>

using namespace zelmar::internal;

namespace {

QFileDialog::FileMode fileMode(bool save, bool multipleFiles)
{
    if (multipleFiles)
        return QFileDialog::ExistingFiles; // Compatibility: several-files-win-over-saving
    return save ? QFileDialog::AnyFile : QFileDialog::ExistingFile;
}

/// Returns whether the filter is selected before the file. Under "*.*", selecting it afterwards would remove the
/// extension of the preselected name.
///
/// Compatibility: filter-before-file
bool selectsFilterFirst(bool save, const std::vector<std::string>& nameFilters)
{
    return save && !nameFilters.empty() && nameFilters.front().find("*.*") != std::string::npos;
}

void selectFilter(ExtendedFileDialog& dialog, const std::vector<std::string>& nameFilters, int index)
{
    if (index >= 0 && static_cast<std::size_t>(index) < nameFilters.size())
        dialog.selectNameFilter(QString::fromStdString(nameFilters[static_cast<std::size_t>(index)]));
}

void selectFiles(ExtendedFileDialog& dialog, const std::vector<std::string>& files, bool multipleFiles)
{
    if (files.empty())
        return;
    dialog.setDirectory(QFileInfo(QString::fromStdString(files.front())).absolutePath());
    dialog.selectFile(QString::fromStdString(multipleFiles ? quotedNames(files) : files.front()));
}

std::vector<std::string> toUtf8(const QStringList& texts)
{
    std::vector<std::string> converted;
    for (const QString& text : texts)
        converted.push_back(text.toStdString());
    return converted;
}

} // namespace

namespace zelmar::ui {

bool LaunchFileDialog(std::vector<std::string>& selectedFiles, int& selectedFilterIndex, const std::string& caption,
                      const std::vector<std::string>& nameFilters, const std::vector<std::string>& initialFiles,
                      bool save, bool multipleFiles, int initialFilterIndex)
{
    QWidget nobody; // is the parent if no window is active
    QWidget* const parent = QApplication::activeWindow();
    ExtendedFileDialog dialog(parent ? *parent : nobody, caption, "", joinNameFilters(nameFilters), "",
                              save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialog.setFileMode(fileMode(save, multipleFiles));

    const bool filterFirst = selectsFilterFirst(save, nameFilters);
    if (filterFirst)
        selectFilter(dialog, nameFilters, initialFilterIndex);
    selectFiles(dialog, initialFiles, multipleFiles);
    if (!filterFirst)
        selectFilter(dialog, nameFilters, initialFilterIndex);

    if (dialog.exec() != QDialog::Accepted)
        return false;
    selectedFiles = toUtf8(dialog.selectedFiles());
    selectedFilterIndex = dialog.nameFilters().indexOf(dialog.selectedNameFilter());
    return true;
}

} // namespace zelmar::ui
