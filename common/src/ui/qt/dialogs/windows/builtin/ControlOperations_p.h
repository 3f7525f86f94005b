#pragma once

#include "ui/qt/dialogs/windows/builtin/ControlModel_p.h"

namespace zelmar::internal {

/// The part of a dialog object that implements IFileDialogCustomize on top of a ControlModel. The derived dialog object
/// implements the reference count and QueryInterface().
///
/// Operations return E_INVALIDARG for an id that is unknown, already in use, or belongs to another kind of control, and
/// E_NOTIMPL for kinds of controls that the library does not use.
class ControlOperations : public IFileDialogCustomize
{
public:
    HRESULT STDMETHODCALLTYPE EnableOpenDropDown(DWORD control) override;
    HRESULT STDMETHODCALLTYPE AddMenu(DWORD, LPCWSTR) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE AddPushButton(DWORD control, LPCWSTR label) override;
    HRESULT STDMETHODCALLTYPE AddComboBox(DWORD) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE AddRadioButtonList(DWORD) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE AddCheckButton(DWORD control, LPCWSTR label, BOOL checked) override;
    HRESULT STDMETHODCALLTYPE AddEditBox(DWORD, LPCWSTR) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE AddSeparator(DWORD) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE AddText(DWORD, LPCWSTR) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetControlLabel(DWORD control, LPCWSTR label) override;
    HRESULT STDMETHODCALLTYPE GetControlState(DWORD control, CDCONTROLSTATEF* state) override;
    HRESULT STDMETHODCALLTYPE SetControlState(DWORD control, CDCONTROLSTATEF state) override;
    HRESULT STDMETHODCALLTYPE GetEditBoxText(DWORD, WCHAR**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetEditBoxText(DWORD, LPCWSTR) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetCheckButtonState(DWORD control, BOOL* checked) override;
    HRESULT STDMETHODCALLTYPE SetCheckButtonState(DWORD control, BOOL checked) override;
    HRESULT STDMETHODCALLTYPE AddControlItem(DWORD control, DWORD item, LPCWSTR label) override;
    HRESULT STDMETHODCALLTYPE RemoveControlItem(DWORD control, DWORD item) override;
    HRESULT STDMETHODCALLTYPE RemoveAllControlItems(DWORD control) override;
    HRESULT STDMETHODCALLTYPE GetControlItemState(DWORD control, DWORD item, CDCONTROLSTATEF* state) override;
    HRESULT STDMETHODCALLTYPE SetControlItemState(DWORD control, DWORD item, CDCONTROLSTATEF state) override;
    HRESULT STDMETHODCALLTYPE GetSelectedControlItem(DWORD control, DWORD* item) override;
    HRESULT STDMETHODCALLTYPE SetSelectedControlItem(DWORD control, DWORD item) override;
    HRESULT STDMETHODCALLTYPE StartVisualGroup(DWORD, LPCWSTR) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE EndVisualGroup() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE MakeProminent(DWORD control) override;
    HRESULT STDMETHODCALLTYPE SetControlItemText(DWORD control, DWORD item, LPCWSTR label) override;

protected:
    ControlOperations() = default;
    ~ControlOperations() = default;

    ControlModel& controls() { return m_controls; }
    const ControlModel& controls() const { return m_controls; }

private:
    ControlModel m_controls;
};

} // namespace zelmar::internal
