#include "ui/qt/dialogs/windows/builtin/AcceptMenuArrow_p.h"

#include "accessibleFactory_p.h"

#include <QAccessibleWidget>
#include <QMenu>
#include <QPainter>
#include <QStyleOption>
#include <QStyleOptionFocusRect>

#include <algorithm>

namespace zelmar::internal {

namespace {

/// Presents an arrow to assistive technology as a button with a menu, which its action opens and closes. Qt's interface
/// of tool buttons has the action, but the action does nothing. While the arrow is being destroyed, it is a mere
/// widget.
class ArrowAccessible : public QAccessibleWidget
{
public:
    explicit ArrowAccessible(AcceptMenuArrow* arrow)
        : QAccessibleWidget(arrow, QAccessible::ButtonMenu)
    {
    }

    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.hasPopup = true;
        state.expandable = true;
        state.expanded = isMenuShown();
        return state;
    }

    QStringList actionNames() const override
    {
        const QStringList inherited = QAccessibleWidget::actionNames();
        return canShowMenu() ? QStringList(showMenuAction()) + inherited : inherited;
    }

    void doAction(const QString& name) override
    {
        if (name != showMenuAction())
            QAccessibleWidget::doAction(name);
        else if (isMenuShown())
            arrow()->menu()->hide();
        else if (canShowMenu())
            QMetaObject::invokeMethod(arrow(), &QToolButton::showMenu,
                                      Qt::QueuedConnection); // returns at the menu's end
    }

private:
    AcceptMenuArrow* arrow() const { return qobject_cast<AcceptMenuArrow*>(object()); }
    bool canShowMenu() const { return arrow() && arrow()->isEnabled(); }
    bool isMenuShown() const { return arrow() && arrow()->menu() && arrow()->menu()->isVisible(); }
};

} // namespace

AcceptMenuArrow::AcceptMenuArrow(QWidget* button)
{
    makeAccessible<AcceptMenuArrow, ArrowAccessible>();
    setParent(button); // only now: see makeAccessible()
    setObjectName(QStringLiteral("acceptMenuArrow"));
    setPopupMode(QToolButton::InstantPopup);
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::ArrowCursor);
}

int AcceptMenuArrow::widthOnButton() const
{
    return style()->pixelMetric(QStyle::PM_MenuButtonIndicator, nullptr, this) + 8;
}

void AcceptMenuArrow::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    if (isEnabled() && (underMouse() || isDown()))
        painter.fillRect(rect().adjusted(2, 2, -2, -2), shade(isDown() ? 40 : 20));
    const int x = layoutDirection() == Qt::LeftToRight ? 0 : width() - 1;
    painter.fillRect(x, 3, 1, height() - 6, shade(70));

    QStyleOption arrow;
    arrow.initFrom(this);
    const int side = std::min({width(), height(), widthOnButton()}) / 2;
    arrow.rect = QStyle::alignedRect(layoutDirection(), Qt::AlignCenter, QSize(side, side), rect());
    style()->drawPrimitive(QStyle::PE_IndicatorArrowDown, &arrow, &painter, this);
    if (hasFocus())
        drawFocus(painter);
}

QColor AcceptMenuArrow::shade(int alpha) const
{
    QColor color = palette().color(QPalette::ButtonText);
    color.setAlpha(alpha);
    return color;
}

void AcceptMenuArrow::drawFocus(QPainter& painter)
{
    QStyleOptionFocusRect option;
    option.initFrom(this);
    option.rect = rect().adjusted(3, 3, -3, -3);
    option.backgroundColor = palette().color(QPalette::Button);
    style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
}

} // namespace zelmar::internal
