#pragma once

#include "ui/qt/dialogs/windows/builtin/ControlModel_p.h"

#include <QIcon>
#include <QObject>
#include <QString>

#include <functional>

class QMenu;
class QPushButton;

namespace zelmar::internal {

class AcceptMenuArrow;

/// A menu with further ways to accept a dialog. It is opened by a narrow arrow at the trailing edge of the accept
/// button, or by the Down key on the button. The arrow is disabled while the button is disabled.
class AcceptMenu : public QObject
{
public:
    /// Adds the arrow to `button`, which becomes the parent. `name` is the accessible name of the arrow. `picked` is
    /// called with the id of the chosen item after the menu has closed.
    AcceptMenu(QPushButton& button, const QString& name, std::function<void(DWORD)> picked);

    /// Shows the items of `menu` from now on. Hides the arrow if the menu is null, hidden, or has no visible item.
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
    AcceptMenuArrow* m_arrow;
    QMenu* m_menu;
    QIcon m_icon;
    std::function<void(DWORD)> m_picked;
    bool m_needed = false;
};

} // namespace zelmar::internal
