#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>

#include <functional>
#include <string>
#include <vector>

/// One thing that can be wrong with a place to save to, and what a save flow is to make of it for an ordinary user who
/// answers Yes to overwriting and No to another try.
struct SaveFault
{
    const char* name;
    /// Sets it up below `folder`, which any user may write, and returns the path to choose. As the superuser.
    std::function<QString(const QString& folder)> prepare;
    /// The questions that are asked, in order: "overwrite", "unable".
    std::vector<std::string> questions;
    /// What launch() returns.
    bool accepted;
    /// Happens between the choice and the look at the place.
    std::function<void(const QString& folder)> meanwhile = {};
};

/// Every fault that can be set up on this machine. Pipes and devices among them would let a careless probe wait for
/// ever; file systems of their own are mounted where nobody but this thread sees them.
const std::vector<SaveFault>& saveFaults();

/// Takes down what prepare() has set up, and `folder` with it, if it is there.
void removeSaveFault(const QString& folder);

/// Why some faults are not among them, that is those of mounted file systems and of devices; empty when all are.
QString whyFaultsAreMissing();

/// The entries below `folder` with type, permissions, contents and time of modification, to tell that a look at it has
/// changed nothing. With `itself`, also the folder's own time, which tells of entries that have come and gone.
QMap<QString, QByteArray> folderState(const QString& folder, bool itself);
