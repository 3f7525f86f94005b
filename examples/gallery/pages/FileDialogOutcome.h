#pragma once

#include <QDialog>
#include <QDir>
#include <QString>
#include <QStringList>

namespace gallery {

/// The result of a file dialog.
struct FileDialogOutcome
{
    bool accepted = false;
    QString directory;
    QStringList files;    ///< absolute paths; empty unless accepted
    QString filter;       ///< empty in a dialog without filters
    int filterIndex = -1; ///< 0-based; -1 in a dialog without filters

    /// Reads the result of `dialog`, a QFileDialog or a class with the same functions. `result` is the return value of
    /// its exec().
    template <typename Dialog>
    FileDialogOutcome(const Dialog& dialog, int result)
        : accepted(result == QDialog::Accepted)
        , directory(dialog.directory().absolutePath())
        // Files that are selected in a cancelled dialog were not chosen.
        , files(accepted ? dialog.selectedFiles() : QStringList())
        , filterIndex(dialog.nameFilters().indexOf(dialog.selectedNameFilter()))
    {
        if (filterIndex >= 0)
            filter = dialog.selectedNameFilter();
    }

    /// Returns the result as text for the user with one fact per line.
    [[nodiscard]] QStringList lines() const;
};

} // namespace gallery
