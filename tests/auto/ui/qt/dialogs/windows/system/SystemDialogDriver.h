#pragma once

#include "StepQueue.h"
#include "SystemDialog.h"

#include <QObject>
#include <QString>

#include <functional>

/// A driver that plays the user of the system's file dialog. It takes its steps in order, each inside the dialog's own
/// event loop, while the code under test waits in exec().
///
///     SystemDialogDriver driver;
///     driver.inDialog("type a name", [](const SystemDialog& dialog) { dialog.acceptName("a.dat"); });
///     QCOMPARE(dialog.exec(), QDialog::Accepted);
///
/// The end of the driver fails the test unless every step was taken.
///
/// A step waits until its window exists and is enabled, and until its condition, if any, is true. If that takes longer
/// than the deadline, or if a dialog stays open for that time after the last step, the driver records the problem and
/// from then on closes every window of the system on its thread, so that the code under test returns.
///
/// It may be used together with a DialogDriver, which handles Qt's dialogs. Works in any thread with a running event
/// loop, for the windows of that thread.
class SystemDialogDriver : public QObject
{
public:
    /// Drives dialogs with the title `title`, or any dialog if it is empty. A step may wait `deadline` milliseconds.
    explicit SystemDialogDriver(const QString& title = {}, int deadline = 15000);

    void inDialog(const QString& name, std::function<void(const SystemDialog&)> action);
    void inDialogWhen(const QString& name, std::function<bool(const SystemDialog&)> condition,
                      std::function<void(const SystemDialog&)> action);
    /// Adds a step in a message box that the dialog has opened.
    void inQuestion(const QString& name, std::function<void(const SystemQuestion&)> action);
    /// Adds a step in the open menu of the accept button.
    void inMenu(const QString& name, std::function<void(const SystemMenu&)> action);

    /// Returns whether every step was taken in time and no dialog stayed open after the last step.
    bool finished() const { return problem().isEmpty(); }

    /// Returns a description of the problem, or an empty text if there was none.
    QString problem() const { return m_steps.problem(); }

private:
    using Step = std::function<bool()>; ///< returns false when the step is not due yet

    void poll();
    bool takeStep();

    QString m_title;
    StepQueue<Step> m_steps;
    bool m_isTakingStep = false;
};
