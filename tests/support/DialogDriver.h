#pragma once

#include "StepQueue.h"

#include <QDialog>
#include <QObject>
#include <QString>

#include <functional>
#include <utility>

/// A driver that acts as the user of modal dialogs. It performs steps one after the other, each in the event loop of
/// the dialog for which it is meant, while the code under test waits in exec().
///
///     DialogDriver driver;
///     driver.onDialog<QFileDialog>("type a name", [](QFileDialog& dialog) { acceptName(dialog, "a.dat"); });
///     driver.onDialog<QMessageBox>("answer no", [](QMessageBox& box) { box.button(QMessageBox::No)->click(); });
///     QVERIFY(flow.launch());
///
/// The end of the driver fails the test unless every step was taken.
///
/// A step waits until the modal dialog has its type and is the active window and, if the step has a condition, until
/// the condition holds. If that takes longer than the deadline, or if a dialog stays open longer than the deadline
/// after the last step, the driver records the problem and rejects every modal dialog from then on, so that the code
/// under test returns.
class DialogDriver : public QObject
{
    Q_OBJECT

public:
    /// Creates a driver whose steps wait for at most `deadline` milliseconds each.
    explicit DialogDriver(int deadline = 15000);

    template <typename Dialog>
    void onDialog(const QString& name, std::function<void(Dialog&)> action)
    {
        onDialogWhen<Dialog>(
            name, [](Dialog&) { return true; }, std::move(action));
    }

    template <typename Dialog>
    void onDialogWhen(const QString& name, std::function<bool(Dialog&)> condition, std::function<void(Dialog&)> action)
    {
        m_steps.add(name, {[condition = std::move(condition)](QDialog& dialog) {
                               auto* typed = qobject_cast<Dialog*>(&dialog);
                               return typed && condition(*typed);
                           },
                           [action = std::move(action)](QDialog& dialog) { action(static_cast<Dialog&>(dialog)); }});
    }

    /// Returns whether every step was performed in time and no dialog stayed open after the last one.
    bool finished() const { return problem().isEmpty(); }

    /// Returns a description of the problem, or an empty text if there was none.
    QString problem() const { return m_steps.problem(); }

private:
    struct Step
    {
        std::function<bool(QDialog&)> isDue;
        std::function<void(QDialog&)> action;
    };

    void poll();
    void takeStep(QDialog& dialog);

    StepQueue<Step> m_steps;
};
