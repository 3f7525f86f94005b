#include "ui/qt/controls/AutoFilterLineEdit_p.h"

#include "ui/qt/controls/KeptText_p.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QKeyEvent>
#include <QPointer>

#include <optional>

namespace zelmar::ui {

namespace {

bool finishesEditing(int key)
{
    return key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Tab;
}

/// A guard that disconnects a string-based connection and restores it in its destructor, unless there was no such
/// connection or one of the two objects has been destroyed.
class CutConnection
{
public:
    CutConnection(QObject& sender, const char* signal, QObject& receiver, const char* slot)
        : m_sender(&sender)
        , m_signal(signal)
        , m_receiver(&receiver)
        , m_slot(slot)
        , m_wasThere(QObject::disconnect(&sender, signal, &receiver, slot))
    {
    }
    ~CutConnection()
    {
        if (m_wasThere && m_sender && m_receiver)
            QObject::connect(m_sender, m_signal, m_receiver, m_slot);
    }
    CutConnection(const CutConnection&) = delete;
    CutConnection& operator=(const CutConnection&) = delete;

private:
    QPointer<QObject> m_sender;
    const char* m_signal;
    QPointer<QObject> m_receiver;
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

void AutoFilterLineEdit::takeNameOfBox(const QString& name)
{
    if (name == m_nameOfBox || accessibleName() != m_nameOfBox)
        return;
    m_nameOfBox = name;
    setAccessibleName(name);
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
    // Slots may delete the editor.
    const QPointer<AutoFilterLineEdit> self(this);
    if (finishesEditing(e->key()))
        Q_EMIT editingFinished();
    else
        QLineEdit::keyPressEvent(e);
    if (self)
        markCurrentCompletion();
}

/// Highlights the completer's current completion. Disconnects meanwhile the two connections by which QLineEdit would
/// copy the completion into the text. Slots connected to the selection may replace or delete the completer.
void AutoFilterLineEdit::markCurrentCompletion()
{
    const QPointer<QCompleter> current(completer());
    if (!current || !current->popup() || current->completionModel()->rowCount() == 0)
        return;
    // Destructors restore the connections in reverse order: activated() first, as QLineEdit connected them.
    const CutConnection highlighted(*current, SIGNAL(highlighted(QString)), *this,
                                    SLOT(_q_completionHighlighted(QString)));
    const CutConnection activated(*current, SIGNAL(activated(QString)), *this, SLOT(setText(QString)));
    // A newer Qt may connect the two by pointers, which only its own code can disconnect.
    std::optional<internal::KeptText> kept;
    if (QLineEdit::staticMetaObject.indexOfSlot("_q_completionHighlighted(QString)") < 0)
        kept.emplace(*this);
    current->popup()->selectionModel()->select(current->currentIndex(), QItemSelectionModel::Select);
    if (current && current->popup())
        current->popup()->setCurrentIndex(current->currentIndex());
}

/// Does nothing. QLineEdit would finish editing and disconnect its completer when the list of completions opens.
void AutoFilterLineEdit::focusOutEvent(QFocusEvent*)
{
    // Compatibility: no-end-by-focus
}

} // namespace zelmar::ui
