#pragma once

#include "internal_export_p.h"
#include "ui/qt/dialogs/windows/shellapi.h"

#include <QString>

#include <functional>
#include <optional>
#include <vector>

namespace zelmar::internal {

/// An item of a menu.
struct ControlItem
{
    DWORD id = 0;
    QString text;
    CDCONTROLSTATEF state = CDCS_ENABLEDVISIBLE;
};

/// The state of one control that was added to a dialog.
struct Control
{
    enum class Kind { PushButton, CheckButton, AcceptMenu };

    DWORD id = 0;
    Kind kind = Kind::PushButton;
    QString label;
    CDCONTROLSTATEF state = CDCS_ENABLEDVISIBLE;
    bool prominent = false;
    bool checked = false;           ///< for a check button
    std::vector<ControlItem> items; ///< for the menu
    std::optional<DWORD> selected;  ///< for the menu; empty until an item is selected
};

inline bool isShown(CDCONTROLSTATEF state)
{
    return state & CDCS_VISIBLE;
}

inline bool isUsable(CDCONTROLSTATEF state)
{
    return state & CDCS_ENABLED;
}

/// Returns the item whose text the accept button shows, and which is selected when the user presses the button itself:
/// the first visible item, or the first item if all are hidden. Returns null if the menu has no items.
COMMON_UI_QT_INTERNAL_EXPORT const ControlItem* firstItem(const Control& menu);

/// A list of the controls that were added to a dialog, in the order in which they were added. An operation returns
/// false and changes nothing if the id is unknown or belongs to another kind of control, or if a control or item is to
/// be added and its id is already in use.
class COMMON_UI_QT_INTERNAL_EXPORT ControlModel
{
public:
    /// Sets the function that is called after each change. An empty function removes it.
    void setListener(std::function<void()> listener);

    const std::vector<Control>& controls() const { return m_controls; }
    const Control* find(DWORD id) const;
    const ControlItem* findItem(DWORD id, DWORD item) const;
    /// Returns the menu of the accept button, or null.
    const Control* acceptMenu() const;
    /// Returns whether there is any control. Hidden controls count, because they may be shown later; a menu without
    /// items does not count.
    bool hasControls() const;

    /// Adds a control at the end. Returns false for a second menu.
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

    /// Returns the item that was selected last, or else the item that the accept button shows. Returns nothing for a
    /// menu without items.
    std::optional<DWORD> selectedItem(DWORD id) const;

private:
    Control* edit(DWORD id);
    Control* edit(DWORD id, Control::Kind kind);
    ControlItem* editItem(DWORD id, DWORD item);
    template <typename Record, typename Value>
    bool set(Record* record, Value Record::*member, const Value& value);
    bool changed() const;

    std::vector<Control> m_controls;
    std::function<void()> m_listener;
};

} // namespace zelmar::internal
