#include "ui/qt/dialogs/windows/builtin/ControlModel_p.h"

#include <algorithm>
#include <utility>

namespace zelmar::internal {

namespace {

template <typename Records>
auto findById(Records& records, DWORD id)
{
    return std::find_if(records.begin(), records.end(), [id](const auto& record) { return record.id == id; });
}

} // namespace

const ControlItem* firstItem(const Control& menu)
{
    if (menu.items.empty())
        return nullptr;
    const auto visible =
        std::find_if(menu.items.begin(), menu.items.end(), [](const ControlItem& item) { return isShown(item.state); });
    return visible == menu.items.end() ? &menu.items.front() : &*visible;
}

void ControlModel::setListener(std::function<void()> listener)
{
    m_listener = std::move(listener);
}

const Control* ControlModel::find(DWORD id) const
{
    const auto control = findById(m_controls, id);
    return control == m_controls.end() ? nullptr : &*control;
}

const ControlItem* ControlModel::findItem(DWORD id, DWORD item) const
{
    const Control* control = find(id);
    if (!control)
        return nullptr;
    const auto found = findById(control->items, item);
    return found == control->items.end() ? nullptr : &*found;
}

const Control* ControlModel::acceptMenu() const
{
    const auto menu = std::find_if(m_controls.begin(), m_controls.end(),
                                   [](const Control& control) { return control.kind == Control::Kind::AcceptMenu; });
    return menu == m_controls.end() ? nullptr : &*menu;
}

bool ControlModel::hasControls() const
{
    return std::any_of(m_controls.begin(), m_controls.end(), [](const Control& control) {
        return control.kind != Control::Kind::AcceptMenu || !control.items.empty();
    });
}

bool ControlModel::add(Control control)
{
    if (find(control.id) || (control.kind == Control::Kind::AcceptMenu && acceptMenu()))
        return false;
    m_controls.push_back(std::move(control));
    return changed();
}

bool ControlModel::setLabel(DWORD id, const QString& label)
{
    return set(edit(id), &Control::label, label);
}

bool ControlModel::setState(DWORD id, CDCONTROLSTATEF state)
{
    return set(edit(id), &Control::state, state);
}

bool ControlModel::setChecked(DWORD id, bool checked)
{
    return set(edit(id, Control::Kind::CheckButton), &Control::checked, checked);
}

bool ControlModel::makeProminent(DWORD id)
{
    Control* control = edit(id);
    if (!control || control->kind == Control::Kind::AcceptMenu)
        return false;
    control->prominent = true;
    return changed();
}

bool ControlModel::addItem(DWORD id, ControlItem item)
{
    Control* menu = edit(id, Control::Kind::AcceptMenu);
    if (!menu || findItem(id, item.id))
        return false;
    menu->items.push_back(std::move(item));
    return changed();
}

bool ControlModel::removeItem(DWORD id, DWORD item)
{
    if (!findItem(id, item))
        return false;
    Control& menu = *edit(id);
    menu.items.erase(findById(menu.items, item));
    if (menu.selected == item)
        menu.selected.reset();
    return changed();
}

bool ControlModel::removeAllItems(DWORD id)
{
    Control* menu = edit(id, Control::Kind::AcceptMenu);
    if (!menu)
        return false;
    menu->items.clear();
    menu->selected.reset();
    return changed();
}

bool ControlModel::setItemText(DWORD id, DWORD item, const QString& text)
{
    return set(editItem(id, item), &ControlItem::text, text);
}

bool ControlModel::setItemState(DWORD id, DWORD item, CDCONTROLSTATEF state)
{
    return set(editItem(id, item), &ControlItem::state, state);
}

bool ControlModel::selectItem(DWORD id, DWORD item)
{
    if (!findItem(id, item))
        return false;
    edit(id)->selected = item;
    return changed();
}

std::optional<DWORD> ControlModel::selectedItem(DWORD id) const
{
    const Control* menu = find(id);
    const ControlItem* first = menu ? firstItem(*menu) : nullptr;
    if (!first)
        return std::nullopt;
    return menu->selected.value_or(first->id);
}

Control* ControlModel::edit(DWORD id)
{
    return const_cast<Control*>(find(id));
}

Control* ControlModel::edit(DWORD id, Control::Kind kind)
{
    Control* control = edit(id);
    return control && control->kind == kind ? control : nullptr;
}

ControlItem* ControlModel::editItem(DWORD id, DWORD item)
{
    return const_cast<ControlItem*>(findItem(id, item));
}

/// Sets a member of a control or an item. Returns false if `record` is null.
template <typename Record, typename Value>
bool ControlModel::set(Record* record, Value Record::*member, const Value& value)
{
    if (!record)
        return false;
    record->*member = value;
    return changed();
}

/// Calls the listener after a change. Returns true, which is the result of the operation that made the change.
bool ControlModel::changed() const
{
    if (m_listener)
        m_listener();
    return true;
}

} // namespace zelmar::internal
