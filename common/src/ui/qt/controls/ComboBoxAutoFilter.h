#pragma once

#include "common_ui_qt_export.h"

#include <QComboBox>
#include <QCompleter>
#include <QPointer>

namespace zelmar { // NOLINT(modernize-concat-nested-namespaces): C++14 here
namespace ui {

/// A combo box that lists the items containing the typed text and closes itself when the user has chosen or cancelled.
/// It is meant for a single editing, for example as the editor of a table cell. It stays responsive with a million
/// items.
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
/// Each editing ends with exactly one of two signals. Before the signal is emitted, the box closes itself by
/// QWidget::close(), which deletes it later if Qt::WA_DeleteOnClose is set. Slots may delete the box at once.
///
/// - selectionComplete() is emitted when the user presses Return, Enter or Tab in the text field, presses Return or
///   Enter in the drop-down list, or clicks an item of that list. If the user picks a completion with the mouse, its
///   text is put into the text field and editing continues.
/// - editingCanceled() is emitted when the user presses Escape.
///
/// If the box had the keyboard focus when it closed, its parent widget receives the focus instead of the next widget in
/// the tab order.
///
/// Known traps:
/// - selectionComplete() does not mean that the text matches an item. validateEntry() returns whether it does.
///   Kept for existing callers, see docs/compatibility.md: completed-without-a-match.
/// - The typed text selects the first item that contains it, ignoring case: "blue" selects "Light Blue" if that is
///   above "Blue", even if the user picked "Blue" from the completions.
///   Kept for existing callers, see docs/compatibility.md: first-containing-item-wins.
/// - Escape in the drop-down list restores the index that was current when the list was first opened or an item was
///   first activated, which need not be the index at construction. If neither has happened, it clears the selection.
/// - Escape outside the drop-down list does not restore the index.
///   Kept for existing callers, see docs/compatibility.md: escape-keeps-the-index.
/// - After Escape outside the drop-down list, validateEntry() always returns true and changes nothing.
///   Kept for existing callers, see docs/compatibility.md: valid-after-escape.
/// - Losing the keyboard focus does not end editing.
///   Kept for existing callers, see docs/compatibility.md: no-end-by-focus.
/// - An item delegate's event filter (QStyledItemDelegate::eventFilter()) receives Tab, Return and Escape before the
///   box does. A delegate whose editor is this box must pass these keys on and close the editor at the signals.
///
/// GUI thread only.
class COMMON_UI_QT_EXPORT ComboBoxAutoFilter : public QComboBox
{
    Q_OBJECT

public:
    /// Constructs a box that is not editable and has neither a text field nor a completer. setListModel() and
    /// setCompleterAttributes() create them.
    explicit ComboBoxAutoFilter(QWidget* parent);
    ~ComboBoxAutoFilter() override;

    /// Appends `items` to the existing items.
    void setList(const QStringList& items);

    /// Sets the model and then calls setCompleterAttributes() with the other arguments. The caller keeps ownership of
    /// `model`.
    void setListModel(QAbstractItemModel* model, bool editable, QCompleter::CompletionMode mode,
                      Qt::CaseSensitivity caseSensitivity, Qt::TextElideMode elideMode, Qt::MatchFlag matchFlag);

    /// Creates a new text field and a new completer over the current model. The former completer stays a child of the
    /// box.
    ///
    /// The box is editable afterwards even if `editable` is false, because it has a text field. `caseSensitivity` is
    /// used for completions only. `elideMode` is used for completions that are wider than their list. `matchFlag` has
    /// no effect: in a mode with a list, the completions are always the items that contain the typed text.
    ///
    /// Kept for existing callers, see docs/compatibility.md: former-completers-stay.
    ///
    /// Kept for existing callers, see docs/compatibility.md: match-flag-unused.
    void setCompleterAttributes(bool editable, QCompleter::CompletionMode mode, Qt::CaseSensitivity caseSensitivity,
                                Qt::TextElideMode elideMode, Qt::MatchFlag matchFlag);

    /// Makes the first item that contains the text, ignoring case, the current one and returns true. Returns false and
    /// changes nothing if there is no such item. After Escape outside the drop-down list, returns true and changes
    /// nothing. Without a text field, returns whether there is a current item.
    bool validateEntry();

    /// Makes the first item whose text equals `text`, respecting case, the current one if there is such an item. In
    /// either case, selects the first text.size() code units of the text field.
    void setSelectedText(const QString& text);

    /// Makes the first item whose Qt::UserRole data equals `value` the current one, if there is such an item.
    void setFromValue(const QVariant& value);

    /// Makes the first item that contains the text, ignoring case, the current one and opens the drop-down list.
    void showPopup() override;

    /// Returns the size hint of QComboBox, except that only the first 100 items are measured if there are more than
    /// 1,000.
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    /// Emitted after the box has closed because the user has finished. Connect to it with SIGNAL(selectionComplete()).
    Q_SIGNAL void selectionComplete();
    /// Emitted after the box has closed because the user has cancelled. Connect to it with SIGNAL(editingCanceled()).
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
    bool takesAsChoice(QObject& viewport, QEvent& release);
    void letCompleterFollow();
    int findContaining(const QString& text) const;
    bool selectContaining();
    QSize sizeHintOfFirstItems() const;

    bool m_itemClicked = false;
    bool m_escapePressed = false; ///< set by Escape outside the drop-down list, never cleared
    bool m_isInKeyPress = false;  ///< whether keyPressEvent() is running

    /// Whether QComboBox is processing the release of a mouse button, and whether that release ends editing.
    enum class Click : char { None, UnderWay, EndsEditing };
    Click m_click = Click::None;

    int m_indexAtEditStart = -1; ///< -1 until the list is first opened or an item is first activated
    QPointer<QCompleter> m_completer;
    QPointer<QAbstractItemModel> m_completedModel; ///< the model that the completer was last given
};

} // namespace ui
} // namespace zelmar
