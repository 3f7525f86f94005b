#include "ui/qt/controls/AutoFilterItemView.h"

#include <QKeyEvent>
#include <QPointer>

namespace zelmar::ui {

void AutoFilterItemView::keyPressEvent(QKeyEvent* e)
{
    // Whoever is told that editing has ended may delete the editor at once, and the list with it.
    const QPointer<AutoFilterItemView> self(this);
    const int key = e->key();
    if (key == Qt::Key_Return || key == Qt::Key_Enter)
        Q_EMIT editingFinished();
    else if (key == Qt::Key_Escape)
        Q_EMIT editingCanceled();
    if (!self)
        return;
    // Not QListView's, which does nothing more with these keys.
    QAbstractItemView::keyPressEvent(e);
    if (key == Qt::Key_Up || key == Qt::Key_Down)
        Q_EMIT currentIndexChanged(currentIndex());
}

} // namespace zelmar::ui
