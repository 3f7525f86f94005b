#pragma once

#include <QString>
#include <QStringList>

class QFileDialog;

namespace gallery {

/// What a file dialog says after it was closed.
struct FileDialogOutcome
{
    bool accepted = false;
    QString directory;
    QStringList files;    ///< absolute paths; empty unless accepted
    QString filter;       ///< empty in a dialog without filters
    int filterIndex = -1; ///< from 0; -1 in a dialog without filters

    /// `result` is what the dialog's exec() returned.
    FileDialogOutcome(const QFileDialog& dialog, int result);

    /// For people, one fact a line.
    [[nodiscard]] QStringList lines() const;
};

} // namespace gallery
