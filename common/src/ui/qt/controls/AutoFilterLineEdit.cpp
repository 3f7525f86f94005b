#include "ui/qt/controls/AutoFilterLineEdit.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QKeyEvent>
#include <QPointer>

namespace zelmar::ui {

namespace {

bool finishesEditing(int key)
{
    return key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Tab;
}

/// A string-based connection that is cut as long as this lives. Not made where there was none.
class CutConnection
{
public:
    CutConnection(QObject& sender, const char* signal, QObject& receiver, const char* slot)
        : m_sender(sender)
        , m_signal(signal)
        , m_receiver(receiver)
        , m_slot(slot)
        , m_wasThere(QObject::disconnect(&sender, signal, &receiver, slot))
    {
    }
    ~CutConnection()
    {
        if (m_wasThere)
            QObject::connect(&m_sender, m_signal, &m_receiver, m_slot);
    }
    CutConnection(const CutConnection&) = delete;
    CutConnection& operator=(const CutConnection&) = delete;

private:
    QObject& m_sender;
    const char* m_signal;
    QObject& m_receiver;
    const char* m_slot;
    bool m_wasThere;
};

} // namespace

bool AutoFilterLineEdit::isTab(const QEvent& event)
{
    if (event.type() != QEvent::KeyPress)
        return false;
    const auto& press = static_cast<const QKeyEvent&>(event);
    return press.key() == Qt::Key_Tab
           && !(press.modifiers() & (Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier));
}

bool AutoFilterLineEdit::event(QEvent* e)
{
    if (!isTab(*e))
        return QLineEdit::event(e);
    keyPressEvent(static_cast<QKeyEvent*>(e));
    return true;
}

void AutoFilterLineEdit::keyPressEvent(QKeyEvent* e)
{
    // Whoever is told that editing has finished may delete the editor at once.
    const QPointer<AutoFilterLineEdit> self(this);
    if (finishesEditing(e->key()))
        Q_EMIT editingFinished();
    else
        QLineEdit::keyPressEvent(e);
    if (self)
        markCurrentCompletion();
}

/// Without the two connections through which QLineEdit would take its text over.
void AutoFilterLineEdit::markCurrentCompletion()
{
    QCompleter* const current = completer();
    if (!current || !current->popup() || current->completionModel()->rowCount() == 0)
        return;
    // Made again in the reverse order of being cut.
    const CutConnection highlighted(*current, SIGNAL(highlighted(QString)), *this,
                                    SLOT(_q_completionHighlighted(QString)));
    const CutConnection activated(*current, SIGNAL(activated(QString)), *this, SLOT(setText(QString)));
    current->popup()->selectionModel()->select(current->currentIndex(), QItemSelectionModel::Select);
    current->popup()->setCurrentIndex(current->currentIndex());
}

/// QLineEdit would finish editing and part with its completer when the list of completions opens.
void AutoFilterLineEdit::focusOutEvent(QFocusEvent*)
{
}

} // namespace zelmar::ui
