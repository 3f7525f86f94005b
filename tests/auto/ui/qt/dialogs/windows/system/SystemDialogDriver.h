#pragma once

#include "SystemDialog.h"

#include <QDeadlineTimer>
#include <QObject>
#include <QString>

#include <functional>
#include <queue>

/// Plays the user of the system's file dialog: takes steps one after the other, each inside the dialog's own loop,
/// while the code under test waits in exec().
///
///     SystemDialogDriver driver;
///     driver.inDialog("type a name", [](const SystemDialog& dialog) { dialog.acceptName("a.dat"); });
///     QCOMPARE(dialog.exec(), QDialog::Accepted);
///     QVERIFY2(driver.finished(), qPrintable(driver.problem()));
///
/// A step waits until its window is there and can be used, and, where it has one, until its condition holds. When that
/// takes longer than the deadline, or a dialog stays open so long after the last step, the driver remembers what was
/// wrong and ends every window of the system's on its thread from then on, so that the code under test comes back.
///
/// Beside a DialogDriver it leaves Qt's dialogs to that one. Works in any thread whose event loop runs, for that
/// thread.
class SystemDialogDriver : public QObject
{
public:
    /// `title`: the dialog's; empty for any. `deadline`: how long one step may wait, in milliseconds.
    explicit SystemDialogDriver(const QString& title = {}, int deadline = 15000);

    void inDialog(const QString& name, std::function<void(const SystemDialog&)> action);
    void inDialogWhen(const QString& name, std::function<bool(const SystemDialog&)> condition,
                      std::function<void(const SystemDialog&)> action);
    /// In a message box that the dialog has opened.
    void inQuestion(const QString& name, std::function<void(const SystemQuestion&)> action);
    /// In the open menu of the accept button.
    void inMenu(const QString& name, std::function<void(const SystemMenu&)> action);

    /// True when every step was taken in time, and no dialog stayed open after the last one.
    bool finished() const;

    /// What went wrong, for a test's message; empty when nothing did.
    QString problem() const;

private:
    struct Step
    {
        QString name;
        std::function<bool()> take; ///< false: not due
    };

    void addStep(Step step);
    void poll();
    bool takeStep();
    void fail();

    QString m_title;
    int m_deadlineLength;
    std::queue<Step> m_steps;
    bool m_isTakingStep = false;
    QDeadlineTimer m_deadline;
    QString m_problem;
};
