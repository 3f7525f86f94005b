#include "NameDelegate.h"

#include "ui/qt/controls/ComboBoxAutoFilter.h"

#include <QAbstractItemView>
#include <QEvent>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QLineEdit>
#include <QSignalBlocker>

#include <limits>
#include <memory>
#include <utility>

using zelmar::ui::ComboBoxAutoFilter;

namespace gallery {

namespace {

/// The property of the editor with the text that the user has typed or selected last. When the combo box closes, it
/// takes the first name that contains this text, which must not become the value of a cell that accepts any text.
const char* const ownText = "ownText";

/// Unselects the completion that the combo box selects after each key, because the cell takes the text as typed.
void unmarkCompletion(const ComboBoxAutoFilter& box)
{
    if (!box.completer() || !box.completer()->popup())
        return;
    QAbstractItemView& list = *box.completer()->popup();
    // The completer would answer by setting the typed text once more, with the cursor at its end.
    const QSignalBlocker blocker(list.selectionModel());
    list.selectionModel()->clear();
    list.viewport()->update();
}

} // namespace

NameDelegate::NameDelegate(Entry entry, NamesFor namesFor, QObject* parent)
    : TableDelegate(parent)
    , m_entry(entry)
    , m_namesFor(std::move(namesFor))
{
}

NameDelegate::~NameDelegate() = default;

QWidget* NameDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    auto box = std::make_unique<ComboBoxAutoFilter>(parent);
    QAbstractItemModel* const names = m_namesFor(index, box.get());
    if (!names)
        return TableDelegate::createEditor(parent, option, index);
    box->setListModel(names, true, QCompleter::PopupCompletion, Qt::CaseInsensitive, Qt::ElideRight, Qt::MatchContains);
    box->lineEdit()->setMaxLength(std::numeric_limits<int>::max()); // by default it would cut long texts
    box->setAccessibleName(index.model()->headerData(index.column(), Qt::Horizontal).toString());
    connect(box.get(), SIGNAL(selectionComplete()), this, SLOT(commit()));
    connect(box.get(), SIGNAL(editingCanceled()), this, SLOT(revert()));
    followText(*box);
    // Open lists receive the keys, and not the box.
    for (QAbstractItemView* list : {box->view(), box->completer()->popup()})
        list->installEventFilter(const_cast<NameDelegate*>(this));
    return box.release();
}

void NameDelegate::followText(ComboBoxAutoFilter& box) const
{
    const auto follow = [&box](const QString& text) { box.setProperty(ownText, text); };
    connect(box.lineEdit(), &QLineEdit::textEdited, &box, follow);
    if (m_entry == Entry::AnyText) {
        // Queued until the box has marked the completion.
        connect(
            box.lineEdit(), &QLineEdit::textEdited, &box, [&box] { unmarkCompletion(box); }, Qt::QueuedConnection);
    }
    connect(box.completer(), QOverload<const QString&>::of(&QCompleter::highlighted), &box, [&box, follow] {
        // Queued until the line edit contains the text. The first completion is only highlighted.
        QMetaObject::invokeMethod(
            &box, [&box, follow] { follow(box.lineEdit()->text()); }, Qt::QueuedConnection);
    });
    connect(&box, QOverload<int>::of(&QComboBox::activated), &box,
            [&box, follow](int item) { follow(box.itemText(item)); });
}

void NameDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const
{
    auto* box = qobject_cast<ComboBoxAutoFilter*>(editor);
    if (!box)
        return TableDelegate::setEditorData(editor, index);
    const QString text = index.data(Qt::EditRole).toString();
    box->setSelectedText(text);
    if (box->currentText() != text) {
        box->setCurrentIndex(-1);
        box->setEditText(text);
    }
    box->lineEdit()->selectAll();
    box->setProperty(ownText, text);
}

void NameDelegate::setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const
{
    auto* box = qobject_cast<ComboBoxAutoFilter*>(editor);
    if (!box) {
        TableDelegate::setModelData(editor, model, index);
    } else if (m_entry == Entry::AnyText) {
        model->setData(index, box->property(ownText));
    } else if (box->validateEntry()) {
        model->setData(index, box->currentText());
        Q_EMIT textTaken();
    } else {
        Q_EMIT textRefused(box->property(ownText).toString());
    }
}

bool NameDelegate::eventFilter(QObject* object, QEvent* event)
{
    const auto* key = event->type() == QEvent::KeyPress || event->type() == QEvent::ShortcutOverride
                          ? static_cast<QKeyEvent*>(event)
                          : nullptr;
    if (key)
        m_step = stepOfKey(*key);
    auto* box = qobject_cast<ComboBoxAutoFilter*>(object);
    const auto* widget = qobject_cast<QWidget*>(object);
    // A list of completions is a mere window while it is being destroyed.
    const bool isList = qobject_cast<QAbstractItemView*>(object) || (!box && widget && widget->isWindow());
    if (isList)
        return false;
    if (!box)
        return TableDelegate::eventFilter(object, event);
    if (key && key->key() == Qt::Key_Backtab) { // which the box does not know
        box->completer()->popup()->hide();
        return event->type() == QEvent::KeyPress && TableDelegate::eventFilter(object, event);
    }
    // The combo box handles the other keys and reports by a signal how editing ended. A click elsewhere commits the
    // current text.
    const bool isLeft = event->type() == QEvent::FocusOut && box->isVisible();
    return isLeft && TableDelegate::eventFilter(object, event);
}

void NameDelegate::commit()
{
    leaveCell(qobject_cast<QWidget*>(sender()), std::exchange(m_step, {}));
}

void NameDelegate::revert()
{
    Q_EMIT closeEditor(qobject_cast<QWidget*>(sender()), RevertModelCache);
}

} // namespace gallery
