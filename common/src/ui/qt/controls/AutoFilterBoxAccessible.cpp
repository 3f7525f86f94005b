#include "ui/qt/controls/AutoFilterBoxAccessible_p.h"

#include "accessibleFactory_p.h"
#include "ui/qt/controls/AutoFilterLineEdit_p.h"
#include "ui/qt/controls/ComboBoxAutoFilter.h"

#include <QAbstractItemView>
#include <QAccessibleWidget>
#include <QVector>

namespace zelmar::internal {

namespace {

/// An accessible interface of a ComboBoxAutoFilter. Its children are the drop-down list and, in an editable box, the
/// field, as for any other combo box of Qt. While the box is being destroyed, it is a mere widget.
class AutoFilterBoxAccessible : public QAccessibleWidget
{
public:
    explicit AutoFilterBoxAccessible(ui::ComboBoxAutoFilter* box)
        : QAccessibleWidget(box, QAccessible::ComboBox)
    {
    }

    QString text(QAccessible::Text kind) const override
    {
        if (kind == QAccessible::Value && box())
            return box()->currentText();
        if (kind == QAccessible::Name)
            nameField();
        return QAccessibleWidget::text(kind);
    }

    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.editable = field() != nullptr;
        state.hasPopup = true;
        state.expandable = true;
        state.expanded = isListShown();
        return state;
    }

    int childCount() const override { return int(children().size()); }

    QAccessibleInterface* child(int index) const override
    {
        QWidget* const widget = children().value(index);
        if (!widget)
            return nullptr;
        nameField();
        return QAccessible::queryAccessibleInterface(widget);
    }

    int indexOfChild(const QAccessibleInterface* child) const override
    {
        return child ? int(children().indexOf(qobject_cast<QWidget*>(child->object()))) : -1;
    }

    QAccessibleInterface* childAt(int x, int y) const override
    {
        QAccessibleInterface* const accessible = child(1);
        return accessible && accessible->rect().contains(x, y) ? accessible : nullptr;
    }

    QStringList actionNames() const override
    {
        return QStringList(showMenuAction()) + QAccessibleWidget::actionNames();
    }

    void doAction(const QString& name) override
    {
        if (name != showMenuAction() || !box())
            QAccessibleWidget::doAction(name);
        else if (isListShown())
            box()->hidePopup();
        else if (box()->isEnabled())
            box()->showPopup();
    }

private:
    ui::ComboBoxAutoFilter* box() const { return qobject_cast<ui::ComboBoxAutoFilter*>(object()); }
    QLineEdit* field() const { return box() ? box()->lineEdit() : nullptr; }
    bool isListShown() const { return box() && box()->view()->isVisible(); }

    QVector<QWidget*> children() const
    {
        if (!box())
            return {};
        return field() ? QVector<QWidget*>{box()->view(), field()} : QVector<QWidget*>{box()->view()};
    }

    void nameField() const
    {
        if (auto* const own = dynamic_cast<ui::AutoFilterLineEdit*>(field()))
            own->takeNameOfBox(QAccessibleWidget::text(QAccessible::Name));
    }
};

} // namespace

void makeAutoFilterBoxesAccessible()
{
    makeAccessible<ui::ComboBoxAutoFilter, AutoFilterBoxAccessible>();
}

} // namespace zelmar::internal
