#pragma once

#include <QListView>

namespace zelmar::ui {

/// The drop-down list of a ComboBoxAutoFilter: tells what the keyboard does in it.
class AutoFilterItemView : public QListView
{
    Q_OBJECT

public:
    using QListView::QListView;

Q_SIGNALS:
    /// Return or Enter.
    void editingFinished();
    /// Escape.
    void editingCanceled();
    /// Up or Down: the index that is current now.
    void currentIndexChanged(const QModelIndex& index);

protected:
    void keyPressEvent(QKeyEvent* e) override;
};

} // namespace zelmar::ui
