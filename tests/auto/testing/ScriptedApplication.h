#pragma once

#include "ui/qt/dialogs/ExtendedFileDialog.h"
#include "ui/qt/dialogs/LaunchFileDialog.h"
#include "ui/qt/dialogs/QExtendedFileDialog.h"
#include "ui/qt/dialogs/SaveFileDialog.h"
#include "ui/qt/dialogs/SaveFileQtDialog.h"
#include "ui/qt/dialogs/windows/ExtendedWinFileDialog.h"
#include "ui/qt/dialogs/windows/SaveFileWinDialog.h"

#include <QDir>
#include <QStringList>
#include <QWidget>

#include <string>
#include <vector>

/// What an application gets from a dialog or a flow. Paths have slashes.
struct Outcome
{
    bool accepted = false;
    QStringList files;
    int filter = -1; ///< the index of the selected name filter, from 0
    QString folder;  ///< empty for a flow
};

/// A small application that uses each entry point in the same way.
namespace scriptedApplication {

const std::vector<std::string> filters{"Data files (*.dat)", "Tables (*.csv)"};
const char joinedFilters[] = "Data files (*.dat);;Tables (*.csv)";

/// Returns the folder in which the tests start their dialogs.
inline std::string root()
{
    return QDir::rootPath().toStdString();
}

/// Returns an absolute path on each system. `path` begins with a slash.
inline QString at(const QString& path)
{
    return QDir::rootPath() + path.mid(1);
}

inline QStringList withSlashes(const QStringList& paths)
{
    QStringList converted;
    for (const QString& path : paths)
        converted += QDir::fromNativeSeparators(path);
    return converted;
}

/// Runs a dialog of any class.
template <typename Dialog>
Outcome run(Dialog& dialog)
{
    Outcome outcome;
    outcome.accepted = dialog.exec() == QDialog::Accepted;
    if (outcome.accepted)
        outcome.files = withSlashes(dialog.selectedFiles());
    outcome.filter = dialog.nameFilters().indexOf(dialog.selectedNameFilter());
    outcome.folder = dialog.directory().absolutePath();
    return outcome;
}

/// Opens one file with a dialog of the class `Dialog`, whose constructor may take more arguments.
template <typename Dialog, typename... More>
Outcome openWith(const std::string& folder, More... more)
{
    QWidget window;
    Dialog dialog(window, "Open run", folder, joinedFilters, "help.html", QFileDialog::AcceptOpen, more...);
    dialog.setFileMode(QFileDialog::ExistingFile);
    return run(dialog);
}

/// Saves with a flow of the class `Flow`.
template <typename Flow>
Outcome saveWith(const std::string& folder)
{
    QWidget window;
    Flow flow(&window, "Save run", folder, "run", filters, 0, "");
    Outcome outcome;
    outcome.accepted = flow.launch();
    if (outcome.accepted)
        outcome.files = withSlashes({QString::fromStdString(flow.selectedFilename())});
    outcome.filter = flow.selectedWriter();
    return outcome;
}

inline Outcome launch(const std::string& folder, bool save)
{
    std::vector<std::string> files;
    Outcome outcome;
    outcome.accepted = zelmar::ui::LaunchFileDialog(files, outcome.filter, save ? "Save run" : "Open run", filters,
                                                    {folder + "/run.dat"}, save, false, 0);
    for (const std::string& file : files)
        outcome.files += QString::fromStdString(file);
    outcome.files = withSlashes(outcome.files);
    return outcome;
}

} // namespace scriptedApplication
