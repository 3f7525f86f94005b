#pragma once

#include <QDeadlineTimer>
#include <QDialog>
#include <QObject>
#include <QString>

#include <functional>
#include <queue>

/// Plays the user of modal dialogs: takes steps one after the other, each inside the event loop of the dialog that it
/// is meant for, while the code under test waits in exec().
///
///     DialogDriver driver;
///     driver.onDialog<QFileDialog>("type a name", [](QFileDialog& dialog) { acceptName(dialog, "a.dat"); });
///     driver.onDialog<QMessageBox>("answer no", [](QMessageBox& box) { box.button(QMessageBox::No)->click(); });
///     QVERIFY(flow.launch());
///     QVERIFY2(driver.finished(), qPrintable(driver.problem()));
///
/// A step waits until the modal dialog is of its type and has the active window, and, where it has one, until its
/// condition holds. When that takes longer than the deadline, or a dialog stays open so long after the last step, the
/// driver remembers what was wrong and rejects every modal dialog from then on, so that the code under test comes back.
class DialogDriver : public QObject
{
    Q_OBJECT

public:
    /// `deadline`: how long one step may wait, in milliseconds.
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
        addStep({name,
                 [condition = std::move(condition)](QDialog& dialog) {
                     auto* typed = qobject_cast<Dialog*>(&dialog);
                     return typed && condition(*typed);
                 },
                 [action = std::move(action)](QDialog& dialog) { action(static_cast<Dialog&>(dialog)); }});
    }

    /// True when every step was taken in time, and no dialog stayed open after the last one.
    bool finished() const;

    /// What went wrong, for a test's message; empty when nothing did.
    QString problem() const;

private:
    struct Step
    {
        QString name;
        std::function<bool(QDialog&)> isDue;
        std::function<void(QDialog&)> action;
    };

    void addStep(Step step);
    void poll();
    void takeStep(QDialog& dialog);
    void fail(const QDialog* dialog);

    int m_deadlineLength;
    std::queue<Step> m_steps;
    QDeadlineTimer m_deadline;
    QString m_problem;
};
