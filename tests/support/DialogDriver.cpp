#include "DialogDriver.h"

#include "Keyboard.h"

#include <QApplication>
#include <QTimer>

#include <utility>

DialogDriver::DialogDriver(int deadline)
    : m_deadlineLength(deadline)
    , m_deadline(deadline)
{
    poll();
}

bool DialogDriver::finished() const
{
    return problem().isEmpty();
}

QString DialogDriver::problem() const
{
    if (m_problem.isEmpty() && !m_steps.empty())
        return QStringLiteral("the step \"%1\" was never due").arg(m_steps.front().name);
    return m_problem;
}

void DialogDriver::addStep(Step step)
{
    m_steps.push(std::move(step));
    m_deadline.setRemainingTime(m_deadlineLength);
}

namespace {

/// Returns whether the dialog is active and its focus widget, or that of a menu over it, receives the keyboard. Some
/// platforms send separate events for these.
bool canBeUsed(QDialog& dialog)
{
    if (!hasKeyboard(dialog))
        return false;
    const QWidget* const focus = QApplication::focusWidget();
    return !dialog.focusWidget() || dialog.isAncestorOf(focus) || (focus && focus->windowType() == Qt::Popup);
}

} // namespace

void DialogDriver::poll()
{
    // Starts a new timer before each step, because a step may open the next dialog and a timer does not fire while its
    // own slot is running.
    QTimer::singleShot(0, this, &DialogDriver::poll);
    auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (!m_problem.isEmpty()) {
        if (dialog)
            dialog->reject();
    } else if (!m_steps.empty() && dialog && canBeUsed(*dialog) && m_steps.front().isDue(*dialog)) {
        takeStep(*dialog);
    } else if (m_steps.empty() && !dialog) {
        m_deadline.setRemainingTime(m_deadlineLength);
    } else if (m_deadline.hasExpired()) {
        fail(dialog);
    }
}

void DialogDriver::takeStep(QDialog& dialog)
{
    const Step step = std::move(m_steps.front());
    m_steps.pop();
    // The action may run a nested event loop that performs the next steps, so their deadline starts here.
    m_deadline.setRemainingTime(m_deadlineLength);
    step.action(dialog);
    m_deadline.setRemainingTime(m_deadlineLength);
}

void DialogDriver::fail(const QDialog* dialog)
{
    const QString modal = dialog ? QString::fromLatin1(dialog->metaObject()->className()) : QStringLiteral("none");
    if (m_steps.empty())
        m_problem = QStringLiteral("a dialog is open after the last step: %1").arg(modal);
    else
        m_problem = QStringLiteral("the step \"%1\" was not due in time; the modal dialog is: %2")
                        .arg(m_steps.front().name, modal);
}
