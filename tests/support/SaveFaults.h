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

/// A fault of a save location and the expected behaviour of a save flow, for an ordinary user who answers Yes to
/// overwriting and No to choosing again.
struct SaveFault
{
    const char* name;
    /// Sets up the fault below `folder`, which is writable for every user, and returns the path to choose. Must run as
    /// the superuser.
    std::function<QString(const QString& folder)> prepare;
    /// The expected questions in order: "overwrite", "unable".
    std::vector<std::string> questions;
    /// The expected result of launch().
    bool accepted;
    /// Runs between the choice of the name and the write probe.
    std::function<void(const QString& folder)> meanwhile = {};
};

/// Returns every fault that can be set up on this machine. Some use pipes and devices, on which a careless write probe
/// would wait forever. Mounted file systems are visible to this thread only.
const std::vector<SaveFault>& saveFaults();

/// Returns why saveFaults() lacks the faults with mounted file systems and devices, or an empty text if it is complete.
QString whyFaultsAreMissing();

/// Returns the entries below `folder` with their types, permissions, contents and modification times, in order to
/// verify that nothing has changed. With `itself` the result includes the modification time of the folder, which shows
/// whether entries were created and removed.
QMap<QString, QByteArray> folderState(const QString& folder, bool itself);

/// Adds the column "fault", an index into saveFaults(), and a row for each fault.
void addSaveFaultRows();

/// A guard that sets up one fault in its own folder. The test runs any kind of save flow on it as an ordinary user.
///
///     SaveFaultTrial trial(saveFaults()[fault], m_folders->path("place"));
///     DialogDriver driver;
///     ... // add a step that accepts trial.chosenName() in the dialog of the flow
///     trial.addAnswers(driver);
///     const bool launched = ...; // with trial.makeHandler()
///     QCOMPARE(trial.problem(launched), QString());
class SaveFaultTrial
{
public:
    /// Creates `folder` and sets up the fault in it. Must run as the superuser, if the system has one.
    SaveFaultTrial(const SaveFault& fault, const QString& folder);
    /// Removes `folder` with its contents.
    ~SaveFaultTrial();
    SaveFaultTrial(const SaveFaultTrial&) = delete;
    SaveFaultTrial& operator=(const SaveFaultTrial&) = delete;

    const QString& folder() const { return m_folder; }
    const QString& chosenName() const { return m_chosenName; }
    /// Returns a handler for the save flow, which must not outlive the trial.
    std::unique_ptr<RecordingMessageHandler> makeHandler();
    /// Adds the answers to `driver`: Yes to overwriting and No to choosing again.
    void addAnswers(DialogDriver& driver) const;

    /// Returns a description of the first difference from the expected result of the flow, its questions, or the state
    /// of the folder. Returns an empty text if there is none.
    QString problem(bool launched) const;

private:
    const SaveFault& m_fault;
    QString m_folder;
    QString m_chosenName;
    QMap<QString, QByteArray> m_before;
    RecordingMessageHandler::Calls m_calls;
};
