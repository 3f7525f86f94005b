#include "ui/qt/dialogs/windows/builtin/AcceptMenu_p.h"

#include "ui/qt/dialogs/windows/builtin/AcceptMenuArrow_p.h"

#include <QKeyEvent>
#include <QMenu>
#include <QPushButton>
#include <QStyle>

#include <utility>

namespace zelmar::internal {

AcceptMenu::AcceptMenu(QPushButton& button, const QString& name, std::function<void(DWORD)> picked)
    : QObject(&button)
    , m_button(button)
    , m_arrow(new AcceptMenuArrow(&button))
    , m_menu(new QMenu(m_arrow))
    , m_icon(button.icon())
    , m_picked(std::move(picked))
{
    m_menu->setObjectName(QStringLiteral("acceptMenu"));
    m_arrow->setMenu(m_menu);
    m_arrow->setAccessibleName(name);
    m_arrow->setToolTip(name);
    m_arrow->hide();
    m_button.installEventFilter(this);
    m_arrow->installEventFilter(this);
}

void AcceptMenu::update(const Control* menu)
{
    m_menu->clear();
    if (menu && isShown(menu->state)) {
        for (const ControlItem& item : menu->items)
            addItem(item);
    }
    m_needed = !m_menu->isEmpty();
    m_arrow->setVisible(m_needed);
    m_arrow->setEnabled(menu && isUsable(menu->state));
    reserveRoom();
    placeArrow();
}

void AcceptMenu::addItem(const ControlItem& item)
{
    if (!isShown(item.state))
        return;
    QAction* action = m_menu->addAction(item.text);
    action->setEnabled(isUsable(item.state));
    // The call is queued so that the menu closes first: the function may run for a long time or change the items.
    const auto callPicked = [this, id = item.id] { m_picked(id); };
    connect(action, &QAction::triggered, this,
            [this, callPicked] { QMetaObject::invokeMethod(this, callPicked, Qt::QueuedConnection); });
}

void AcceptMenu::close()
{
    m_menu->close();
}

QWidget* AcceptMenu::arrow() const
{
    return m_arrow;
}

bool AcceptMenu::eventFilter(QObject* watched, QEvent* event)
{
    if (opensMenu(watched, *event)) {
        m_arrow->showMenu();
        return true;
    }
    if (watched == &m_button) {
        const QEvent::Type type = event->type();
        if (type == QEvent::StyleChange || type == QEvent::FontChange || type == QEvent::LayoutDirectionChange)
            reserveRoom();
        if (type == QEvent::Resize || type == QEvent::StyleChange || type == QEvent::LayoutDirectionChange)
            placeArrow();
    }
    return QObject::eventFilter(watched, event);
}

bool AcceptMenu::opensMenu(const QObject* watched, const QEvent& event) const
{
    if (event.type() != QEvent::KeyPress || !m_needed || !m_arrow->isEnabled())
        return false;
    const int key = static_cast<const QKeyEvent&>(event).key();
    // Return opens the menu only from the arrow. On the button it accepts the dialog.
    return key == Qt::Key_Down || (watched == m_arrow && (key == Qt::Key_Return || key == Qt::Key_Enter));
}

void AcceptMenu::placeArrow()
{
    const QRect inside = m_button.rect();
    const int width = m_arrow->widthOnButton();
    const QRect trailing(inside.right() - width, inside.top() + 1, width, inside.height() - 2);
    m_arrow->setGeometry(QStyle::visualRect(m_button.layoutDirection(), inside, trailing));
}

/// Makes the button wide enough for its label and the arrow. The label is centred, so that the width of the arrow is
/// needed on both sides. In a right-to-left layout, styles centre the label only if the button has no icon.
void AcceptMenu::reserveRoom()
{
    const bool iconInTheWay = m_needed && m_button.layoutDirection() == Qt::RightToLeft;
    m_button.setIcon(iconInTheWay ? QIcon() : m_icon);
    const int arrowWidth = m_arrow->widthOnButton();
    m_button.setMinimumWidth(m_needed ? m_button.sizeHint().width() + 2 * arrowWidth : 0);
}

} // namespace zelmar::internal
