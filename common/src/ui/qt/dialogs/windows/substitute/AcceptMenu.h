#pragma once

#include "ui/qt/dialogs/windows/substitute/ControlModel.h"

#include <QIcon>
#include <QObject>
#include <QString>

#include <functional>

class QMenu;
class QPushButton;
class QToolButton;

/// More ways to accept a dialog: a narrow arrow at the trailing edge of its accept button, with a menu. Down opens it
/// from the button, too. It can be used whenever the button can.
class AcceptMenu : public QObject
{
public:
    /// `name` is what a screen reader says of the arrow. `picked` is called with the id of an item when the menu has
    /// closed.
    AcceptMenu(QPushButton& button, const QString& name, std::function<void(DWORD)> picked);

    /// Shows the items of `menu`. Null, hidden, and without a visible item: no arrow.
    void update(const Control* menu);

    void close();
    QWidget* arrow() const;

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void addItem(const ControlItem& item);
    bool opensMenu(const QObject* watched, const QEvent& event) const;
    void placeArrow();
    void reserveRoom();

    QPushButton& m_button;
    QToolButton* m_arrow;
    QMenu* m_menu;
    QIcon m_icon;
    std::function<void(DWORD)> m_picked;
    bool m_needed = false;
};
