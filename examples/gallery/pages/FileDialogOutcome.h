#pragma once

#include <QDialog>
#include <QDir>
#include <QString>
#include <QStringList>

namespace gallery {

/// What a file dialog says after it was closed.
struct FileDialogOutcome
{
    bool accepted = false;
    QString directory;
    QStringList files;    ///< absolute paths; empty unless accepted
    QString filter;       ///< empty in a dialog without filters
    int filterIndex = -1; ///< from 0; -1 in a dialog without filters

    /// `dialog`: a QFileDialog or what is shaped like one. `result` is what its exec() returned.
    template <typename Dialog>
    FileDialogOutcome(const Dialog& dialog, int result)
        : accepted(result == QDialog::Accepted)
        , directory(dialog.directory().absolutePath())
        // What was marked in a cancelled dialog was not chosen.
        , files(accepted ? dialog.selectedFiles() : QStringList())
        , filterIndex(dialog.nameFilters().indexOf(dialog.selectedNameFilter()))
    {
        if (filterIndex >= 0)
            filter = dialog.selectedNameFilter();
    }

    /// For people, one fact a line.
    [[nodiscard]] QStringList lines() const;
};

} // namespace gallery
