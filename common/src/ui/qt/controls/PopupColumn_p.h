#pragma once

#include <QObject>

class QCompleter;
class QListView;

namespace zelmar::internal {

/// An object that sets the column of a completer's list to QCompleter::completionColumn() after each reset of the
/// completion model. QCompleter sets the column only once, and QListView refuses a column that its model does not have
/// yet. The object is a child of the list, which the completer owns.
class PopupColumn : public QObject
{
public:
    PopupColumn(QListView& list, QCompleter& completer);

private:
    void follow();

    QListView& m_list;
    const QCompleter& m_completer;
};

} // namespace zelmar::internal
