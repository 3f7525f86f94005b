#pragma once

#include <QObject>
#include <QPointer>

class QListView;
class QWidget;

namespace zelmar::internal {

/// An event filter that makes a pop-up list at least as wide as its items and its field, and keeps it on the screen. It
/// is a child of the list.
class PopupFit : public QObject
{
public:
    PopupFit(QListView& list, QWidget& field);

    /// Returns the width in pixels that about 100 items of `list` around row `shownRow` need, including the scroll bar
    /// and the frame. It is at most what the screen has room for. Returns 0 if the list has no model.
    static int widthOf(const QListView& list, int shownRow);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void fit();

    QListView& m_list;
    QPointer<QWidget> m_field; ///< may be destroyed before the list
};

} // namespace zelmar::internal
