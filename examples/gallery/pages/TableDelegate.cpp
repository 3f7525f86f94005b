#include "TableDelegate.h"

#include "TableModel.h"

#include <QKeyEvent>
#include <QLineEdit>

#include <limits>

namespace gallery {

namespace {

/// Returns whether the event takes the keyboard only until a menu is closed.
bool isForMenu(const QEvent& event)
{
    if (event.type() != QEvent::FocusOut)
        return false;
    const Qt::FocusReason reason = static_cast<const QFocusEvent&>(event).reason();
    return reason == Qt::MenuBarFocusReason || reason == Qt::PopupFocusReason;
}

} // namespace

CellStep stepOfKey(const QKeyEvent& key)
{
    if (key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier))
        return {};
    switch (key.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return {key.modifiers() & Qt::ShiftModifier ? -1 : 1, 0};
    case Qt::Key_Tab:
        return {0, 1};
    case Qt::Key_Backtab:
        return {0, -1};
    default:
        return {};
    }
}

TableDelegate::TableDelegate(QObject* parent)
    : QStyledItemDelegate(parent)
{
}

TableDelegate::~TableDelegate() = default;

QWidget* TableDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                                     const QModelIndex& index) const
{
    QWidget* const editor = QStyledItemDelegate::createEditor(parent, option, index);
    if (editor)
        editor->setAccessibleName(index.model()->headerData(index.column(), Qt::Horizontal).toString());
    if (auto* field = qobject_cast<QLineEdit*>(editor))
        field->setMaxLength(std::numeric_limits<int>::max()); // by default it would cut long texts
    return editor;
}

QString TableDelegate::displayText(const QVariant& value, const QLocale& locale) const
{
    const bool isText = value.userType() == QMetaType::QString;
    return QStyledItemDelegate::displayText(isText ? shownText(value.toString()) : value, locale);
}

QString TableDelegate::refusedText(const QWidget& /*editor*/) const
{
    return {};
}

bool TableDelegate::accepts(const QWidget& editor) const
{
    const QString refused = refusedText(editor);
    if (!refused.isNull())
        Q_EMIT textRefused(refused);
    return refused.isNull();
}

bool TableDelegate::eventFilter(QObject* object, QEvent* event)
{
    if (isForMenu(*event)) // Qt would close the editor, and nothing would have the keyboard after the menu.
        return false;
    const CellStep step = event->type() == QEvent::KeyPress ? stepOfKey(*static_cast<QKeyEvent*>(event)) : CellStep();
    if (step.rows == 0 && step.columns == 0)
        return QStyledItemDelegate::eventFilter(object, event);
    auto* editor = qobject_cast<QWidget*>(object);
    if (accepts(*editor)) // Otherwise the user goes on typing.
        leaveCell(editor, step);
    return true;
}

void TableDelegate::leaveCell(QWidget* editor, CellStep step)
{
    Q_EMIT commitData(editor);
    Q_EMIT closeEditor(editor);
    Q_EMIT cellLeft(step);
}

} // namespace gallery
