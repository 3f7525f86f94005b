#pragma once

#include <QObject>

class QListView;
class QWidget;

namespace zelmar::ui {

/// Keeps a list that pops up below a narrow field as wide as its items need, and on the screen. Belongs to the list.
class PopupFit : public QObject
{
    Q_OBJECT

public:
    PopupFit(QListView& list, QWidget& field);

    /// What the items of `list` around `shownRow` need, in pixels; not more than the screen has.
    static int widthOf(const QListView& list, int shownRow);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void fit();

    QListView& m_list;
    QWidget& m_field;
};

} // namespace zelmar::ui
