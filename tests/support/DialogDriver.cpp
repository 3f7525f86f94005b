#include "DialogDriver.h"

#include "Keyboard.h"

#include <QApplication>
#include <QTimer>

DialogDriver::DialogDriver(int deadline)
    : m_steps(deadline)
{
    poll();
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
    if (m_steps.hasFailed()) {
        if (dialog)
            dialog->reject();
    } else if (!m_steps.isEmpty() && dialog && canBeUsed(*dialog) && m_steps.next().isDue(*dialog)) {
        takeStep(*dialog);
    } else if (m_steps.isEmpty() && !dialog) {
        m_steps.restartDeadline();
    } else if (m_steps.isLate()) {
        m_steps.failLate(dialog ? QString::fromLatin1(dialog->metaObject()->className()) : QStringLiteral("none"));
    }
}

void DialogDriver::takeStep(QDialog& dialog)
{
    // The action may run a nested event loop that performs the next steps, so their deadline starts before it.
    m_steps.takeNext().action(dialog);
    m_steps.restartDeadline();
}
