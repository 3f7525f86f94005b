#pragma once

#include <QListView>

namespace zelmar::ui {

/// The drop-down list of a ComboBoxAutoFilter. It emits signals for the keys that the box handles.
class AutoFilterItemView : public QListView
{
    Q_OBJECT

public:
    using QListView::QListView;

Q_SIGNALS:
    /// Emitted when the user presses Return or Enter, before the list handles the key.
    void editingFinished();
    /// Emitted when the user presses Escape, before the list handles the key.
    void editingCanceled();
    /// Emitted after the user has pressed Up or Down, with the index that is current after the move.
    void currentIndexChanged(const QModelIndex& index);

protected:
    void keyPressEvent(QKeyEvent* e) override;
};

} // namespace zelmar::ui
