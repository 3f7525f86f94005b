#include "ui/qt/controls/PopupColumn_p.h"

#include <QAbstractItemModel>
#include <QCompleter>
#include <QListView>

namespace zelmar::internal {

PopupColumn::PopupColumn(QListView& list, QCompleter& completer)
    : QObject(&list)
    , m_list(list)
    , m_completer(completer)
{
    connect(completer.completionModel(), &QAbstractItemModel::modelReset, this, &PopupColumn::follow);
}

void PopupColumn::follow()
{
    if (m_list.modelColumn() != m_completer.completionColumn())
        m_list.setModelColumn(m_completer.completionColumn());
}

} // namespace zelmar::internal
