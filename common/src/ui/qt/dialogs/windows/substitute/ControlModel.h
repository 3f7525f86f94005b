#pragma once

#include "internal_export.h"
#include "ui/qt/dialogs/windows/substitute/fileDialog.h"

#include <QString>

#include <functional>
#include <optional>
#include <vector>

struct ControlItem
{
    DWORD id = 0;
    QString text;
    CDCONTROLSTATEF state = CDCS_ENABLEDVISIBLE;
};

/// What is known of one control that was added to a dialog.
struct Control
{
    enum class Kind { PushButton, CheckButton, AcceptMenu };

    DWORD id = 0;
    Kind kind = Kind::PushButton;
    QString label;
    CDCONTROLSTATEF state = CDCS_ENABLEDVISIBLE;
    bool prominent = false;
    bool checked = false;           ///< of a check button
    std::vector<ControlItem> items; ///< of the menu
    std::optional<DWORD> selected;  ///< of the menu; nothing as long as nobody has chosen
};

inline bool isShown(CDCONTROLSTATEF state)
{
    return state & CDCS_VISIBLE;
}

inline bool isUsable(CDCONTROLSTATEF state)
{
    return state & CDCS_ENABLED;
}

/// The item that stands for `menu` itself, on the button and for who presses it: the first one that is visible, or else
/// the first. Null when it has none.
COMMON_UI_QT_INTERNAL_EXPORT const ControlItem* firstItem(const Control& menu);

/// The controls that were added to a dialog, in order. Operations give false, and change nothing, for an id that is
/// not there, not of the right kind, or there already.
class COMMON_UI_QT_INTERNAL_EXPORT ControlModel
{
public:
    /// `listener` is called after each change; an empty one is nobody.
    void setListener(std::function<void()> listener);

    const std::vector<Control>& controls() const { return m_controls; }
    const Control* find(DWORD id) const;
    const ControlItem* findItem(DWORD id, DWORD item) const;
    /// The menu of the accept button; null when there is none.
    const Control* acceptMenu() const;
    /// Whether there is anything for a user to see: a menu without items is nothing.
    bool hasControls() const;

    /// There can be one menu.
    bool add(Control control);
    bool setLabel(DWORD id, const QString& label);
    bool setState(DWORD id, CDCONTROLSTATEF state);
    bool setChecked(DWORD id, bool checked);
    bool makeProminent(DWORD id);

    bool addItem(DWORD id, ControlItem item);
    bool removeItem(DWORD id, DWORD item);
    bool removeAllItems(DWORD id);
    bool setItemText(DWORD id, DWORD item, const QString& text);
    bool setItemState(DWORD id, DWORD item, CDCONTROLSTATEF state);
    bool selectItem(DWORD id, DWORD item);

    /// The item that was selected last; before, the one that stands for the menu; nothing when there are no items.
    std::optional<DWORD> selectedItem(DWORD id) const;

private:
    Control* edit(DWORD id);
    Control* edit(DWORD id, Control::Kind kind);
    ControlItem* editItem(DWORD id, DWORD item);
    bool changed() const;

    std::vector<Control> m_controls;
    std::function<void()> m_listener;
};
