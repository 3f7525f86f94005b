#include "ui/qt/controls/AutoFilterItemView_p.h"

#include <QKeyEvent>
#include <QPointer>

namespace zelmar::ui {

void AutoFilterItemView::keyPressEvent(QKeyEvent* e)
{
    // Slots may delete the editor, which owns the list.
    const QPointer<AutoFilterItemView> self(this);
    const int key = e->key();
    if (key == Qt::Key_Return || key == Qt::Key_Enter)
        Q_EMIT editingFinished();
    else if (key == Qt::Key_Escape)
        Q_EMIT editingCanceled();
    if (!self)
        return;
    QAbstractItemView::keyPressEvent(e); // QListView's own handler adds nothing for these keys
    if (key == Qt::Key_Up || key == Qt::Key_Down)
        Q_EMIT currentIndexChanged(currentIndex());
}

} // namespace zelmar::ui
