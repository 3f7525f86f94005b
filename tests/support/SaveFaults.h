#pragma once

#include "RecordingMessageHandler.h"

#include <QByteArray>
#include <QMap>
#include <QString>
#include <QStringList>

#include <functional>
#include <memory>
#include <string>
#include <vector>

class DialogDriver;

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

/// Why some faults are not among them, that is those of mounted file systems and of devices; empty when all are.
QString whyFaultsAreMissing();

/// The entries below `folder` with type, permissions, contents and time of modification, to tell that a look at it has
/// changed nothing. With `itself`, also the folder's own time, which tells of entries that have come and gone.
QMap<QString, QByteArray> folderState(const QString& folder, bool itself);

/// Adds a row with the column "fault", an index in saveFaults(), for each of them but those named in `except`.
void addSaveFaultRows(const QStringList& except = {});

/// One fault set up in a folder of its own, for a save flow of any kind to be run on it as an ordinary user.
///
///     SaveFaultTrial trial(saveFaults()[fault], m_folders->path("place"));
///     DialogDriver driver;
///     ... // what accepts trial.chosenName() in the flow's dialog
///     trial.addAnswers(driver);
///     const bool launched = ...; // with trial.makeHandler()
///     QCOMPARE(trial.problem(launched), QString());
class SaveFaultTrial
{
public:
    /// Makes `folder`. As the superuser, where there is one.
    SaveFaultTrial(const SaveFault& fault, const QString& folder);
    /// Removes `folder` with all that is in it.
    ~SaveFaultTrial();
    SaveFaultTrial(const SaveFaultTrial&) = delete;
    SaveFaultTrial& operator=(const SaveFaultTrial&) = delete;

    const QString& folder() const { return m_folder; }
    const QString& chosenName() const { return m_chosenName; }
    /// Must not outlive the trial.
    std::unique_ptr<RecordingMessageHandler> makeHandler();
    /// Yes to overwriting, No to another try.
    void addAnswers(DialogDriver& driver) const;

    /// What is not as it is to be: the result of the flow, its questions, or the state of the folder. Empty when all
    /// is.
    QString problem(bool launched) const;

private:
    const SaveFault& m_fault;
    QString m_folder;
    QString m_chosenName;
    QMap<QString, QByteArray> m_before;
    RecordingMessageHandler::Calls m_calls;
};
