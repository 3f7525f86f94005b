#include "ui/qt/dialogs/windows/builtin/ControlOperations_p.h"

#include "ui/qt/dialogs/windows/com/CoTaskMemString_p.h"

namespace zelmar::internal {

namespace {

HRESULT okIf(bool done)
{
    return done ? S_OK : E_INVALIDARG;
}

Control makeControl(DWORD id, Control::Kind kind, LPCWSTR label = nullptr)
{
    Control control;
    control.id = id;
    control.kind = kind;
    control.label = textOf(label);
    return control;
}

} // namespace

HRESULT ControlOperations::EnableOpenDropDown(DWORD control)
{
    return okIf(m_controls.add(makeControl(control, Control::Kind::AcceptMenu)));
}

HRESULT ControlOperations::AddPushButton(DWORD control, LPCWSTR label)
{
    return okIf(m_controls.add(makeControl(control, Control::Kind::PushButton, label)));
}

HRESULT ControlOperations::AddCheckButton(DWORD control, LPCWSTR label, BOOL checked)
{
    Control added = makeControl(control, Control::Kind::CheckButton, label);
    added.checked = checked;
    return okIf(m_controls.add(added));
}

HRESULT ControlOperations::SetControlLabel(DWORD control, LPCWSTR label)
{
    return okIf(m_controls.setLabel(control, textOf(label)));
}

HRESULT ControlOperations::GetControlState(DWORD control, CDCONTROLSTATEF* state)
{
    if (!state)
        return E_POINTER;
    const Control* found = m_controls.find(control);
    *state = found ? found->state : CDCS_INACTIVE;
    return okIf(found);
}

HRESULT ControlOperations::SetControlState(DWORD control, CDCONTROLSTATEF state)
{
    return okIf(m_controls.setState(control, state));
}

HRESULT ControlOperations::GetCheckButtonState(DWORD control, BOOL* checked)
{
    if (!checked)
        return E_POINTER;
    const Control* found = m_controls.find(control);
    *checked = found && found->checked ? TRUE : FALSE;
    return okIf(found && found->kind == Control::Kind::CheckButton);
}

HRESULT ControlOperations::SetCheckButtonState(DWORD control, BOOL checked)
{
    return okIf(m_controls.setChecked(control, checked));
}

HRESULT ControlOperations::AddControlItem(DWORD control, DWORD item, LPCWSTR label)
{
    return okIf(m_controls.addItem(control, {item, textOf(label)}));
}

HRESULT ControlOperations::RemoveControlItem(DWORD control, DWORD item)
{
    return okIf(m_controls.removeItem(control, item));
}

HRESULT ControlOperations::RemoveAllControlItems(DWORD control)
{
    return okIf(m_controls.removeAllItems(control));
}

HRESULT ControlOperations::GetControlItemState(DWORD control, DWORD item, CDCONTROLSTATEF* state)
{
    if (!state)
        return E_POINTER;
    const ControlItem* found = m_controls.findItem(control, item);
    *state = found ? found->state : CDCS_INACTIVE;
    return okIf(found);
}

HRESULT ControlOperations::SetControlItemState(DWORD control, DWORD item, CDCONTROLSTATEF state)
{
    return okIf(m_controls.setItemState(control, item, state));
}

HRESULT ControlOperations::GetSelectedControlItem(DWORD control, DWORD* item)
{
    if (!item)
        return E_POINTER;
    *item = 0;
    const Control* menu = m_controls.find(control);
    if (!menu || menu->kind != Control::Kind::AcceptMenu)
        return E_INVALIDARG;
    const std::optional<DWORD> selected = m_controls.selectedItem(control);
    *item = selected.value_or(0);
    return selected ? S_OK : E_FAIL;
}

HRESULT ControlOperations::SetSelectedControlItem(DWORD control, DWORD item)
{
    return okIf(m_controls.selectItem(control, item));
}

HRESULT ControlOperations::MakeProminent(DWORD control)
{
    return okIf(m_controls.makeProminent(control));
}

HRESULT ControlOperations::SetControlItemText(DWORD control, DWORD item, LPCWSTR label)
{
    return okIf(m_controls.setItemText(control, item, textOf(label)));
}

} // namespace zelmar::internal
