#pragma once

#include "common_ui_qt_export.h"

#include <QComboBox>
#include <QCompleter>
#include <QPointer>

namespace zelmar { // NOLINT(modernize-concat-nested-namespaces): C++14 here
namespace ui {

/// A combo box that offers what contains the typed text, and closes itself when the user has made up his mind. It is
/// meant to live for one editing, as the editor of a table's cell or in the place of a value in a form. A million names
/// take no longer than a few.
///
///     auto* box = new zelmar::ui::ComboBoxAutoFilter(parent);
///     box->setListModel(&names, true, QCompleter::PopupCompletion, Qt::CaseInsensitive, Qt::ElideRight,
///                       Qt::MatchContains);
///     box->setSelectedText("Inlet pressure");
///     connect(box, SIGNAL(selectionComplete()), this, SLOT(takeName()));
///     connect(box, SIGNAL(editingCanceled()), this, SLOT(forgetName()));
///     box->show();
///     box->setFocus();
///
/// Each editing ends with exactly one of two signals, the box being closed (QWidget::close(), so it deletes itself with
/// Qt::WA_DeleteOnClose) before:
///
/// - selectionComplete(): Return, Enter or Tab in the text, Return or Enter in the drop-down list, or a click on one of
///   its items. Picking a completion with the mouse puts it into the text and goes on.
/// - editingCanceled(): Escape. In the drop-down list it takes the index back to that at the start, elsewhere not.
///
/// selectionComplete() does not say that the text names an item: validateEntry() does. A loss of focus ends nothing.
/// Where the keyboard was in the box when it closes, it goes to the parent, and not on to the next field.
///
/// Known traps:
/// - The typed text stands for the first item that contains it, in any case: "blue" for "Light Blue", if that is above
///   "Blue", also when "Blue" was picked.
/// - The index at the start is that of the first drop-down or activation, not that at construction. Before either,
///   Escape in the list clears the selection.
/// - After Escape outside the list, validateEntry() is true for good and changes nothing: a box is for one editing.
/// - A delegate's own event filter (QStyledItemDelegate::eventFilter()) takes Tab, Return and Escape before the box.
///   A delegate with such an editor passes them on, and closes the editor at the signals.
///
/// GUI thread only.
class COMMON_UI_QT_EXPORT ComboBoxAutoFilter : public QComboBox
{
    Q_OBJECT

public:
    /// Without completer and text field, as a QComboBox that is not editable, until one of the next functions is
    /// called: setListModel() or setCompleterAttributes().
    explicit ComboBoxAutoFilter(QWidget* parent);
    ~ComboBoxAutoFilter() override;

    /// Appends `items` to the items.
    void setList(const QStringList& items);

    /// Sets the model, which is not taken over, and then setCompleterAttributes() with the other arguments.
    void setListModel(QAbstractItemModel* model, bool editable, QCompleter::CompletionMode mode,
                      Qt::CaseSensitivity caseSensitivity, Qt::TextElideMode elideMode, Qt::MatchFlag matchFlag);

    /// Makes a text field and a completer over the model, new ones with each call; the former completer stays a child
    /// of the box. `editable` is as good as true, as the text field makes the box so. `elideMode` is for completions
    /// that do not fit. `matchFlag` is not used: what contains the text is offered, ignoring case or not as
    /// `caseSensitivity` says.
    void setCompleterAttributes(bool editable, QCompleter::CompletionMode mode, Qt::CaseSensitivity caseSensitivity,
                                Qt::TextElideMode elideMode, Qt::MatchFlag matchFlag);

    /// Makes the first item that contains the text, ignoring case, the current one. False, and nothing changes, when
    /// there is none. True, and nothing changes, after Escape outside the list. Without a text field, whether there is
    /// a current item.
    bool validateEntry();

    /// Makes the first item of exactly this text the current one, if there is one, and selects as many letters from the
    /// start of the text field as `text` has.
    void setSelectedText(const QString& text);

    /// Makes the first item with `value` at Qt::UserRole the current one; nothing when there is none.
    void setFromValue(const QVariant& value);

    /// Opens the drop-down list with the first item that contains the text, ignoring case, as the current one.
    void showPopup() override;

    /// As QComboBox; of more than 1,000 items, only the first 100 are measured.
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    /// The user has finished. Connect to it with SIGNAL(selectionComplete()).
    Q_SIGNAL void selectionComplete();
    /// The user has given up. Connect to it with SIGNAL(editingCanceled()).
    Q_SIGNAL void editingCanceled();

    bool event(QEvent* e) override;
    bool eventFilter(QObject* watched, QEvent* e) override;
    void inputMethodEvent(QInputMethodEvent* e) override;
    bool focusNextPrevChild(bool next) override;

private Q_SLOTS:
    void onEditingFinished();
    void onEditingCanceled();
    void onItemClicked(const QModelIndex& modelIndex);
    void onItemActivated(int index);
    void onCurrentIndexChanged(const QModelIndex& currentIndex);

private:
    void keyPressEvent(QKeyEvent* e) override;

    void init(bool editable, QCompleter::CompletionMode mode, Qt::CaseSensitivity caseSensitivity,
              Qt::TextElideMode elideMode, Qt::MatchFlag matchFlag);
    void finishEditing();
    void leave();
    void letCompleterFollow();
    int findContaining(const QString& text) const;
    bool selectContaining();
    QSize sizeHintOfFirstItems() const;

    bool m_itemClicked = false;
    bool m_escapePressed = false; ///< never cleared
    int m_indexAtEditStart = -1;  ///< -1: not known yet
    QPointer<QCompleter> m_completer;
    QPointer<QAbstractItemModel> m_completedModel;
};

} // namespace ui
} // namespace zelmar
