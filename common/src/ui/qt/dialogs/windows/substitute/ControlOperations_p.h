#pragma once

#include "ui/qt/dialogs/windows/substitute/ControlModel_p.h"
#include "ui/qt/dialogs/windows/substitute/fileDialog.h"

/// The part of a dialog object that implements IFileDialogCustomize on top of a ControlModel. The derived dialog object
/// implements the reference count and QueryInterface().
///
/// Operations return E_INVALIDARG for an id that is unknown, already in use, or belongs to another kind of control, and
/// E_NOTIMPL for kinds of controls that the library does not use.
class ControlOperations : public IFileDialogCustomize
{
public:
    HRESULT STDMETHODCALLTYPE EnableOpenDropDown(DWORD control) override;
    HRESULT STDMETHODCALLTYPE AddMenu(DWORD control, LPCWSTR label) override;
    HRESULT STDMETHODCALLTYPE AddPushButton(DWORD control, LPCWSTR label) override;
    HRESULT STDMETHODCALLTYPE AddComboBox(DWORD control) override;
    HRESULT STDMETHODCALLTYPE AddRadioButtonList(DWORD control) override;
    HRESULT STDMETHODCALLTYPE AddCheckButton(DWORD control, LPCWSTR label, BOOL checked) override;
    HRESULT STDMETHODCALLTYPE AddEditBox(DWORD control, LPCWSTR text) override;
    HRESULT STDMETHODCALLTYPE AddSeparator(DWORD control) override;
    HRESULT STDMETHODCALLTYPE AddText(DWORD control, LPCWSTR text) override;
    HRESULT STDMETHODCALLTYPE SetControlLabel(DWORD control, LPCWSTR label) override;
    HRESULT STDMETHODCALLTYPE GetControlState(DWORD control, CDCONTROLSTATEF* state) override;
    HRESULT STDMETHODCALLTYPE SetControlState(DWORD control, CDCONTROLSTATEF state) override;
    HRESULT STDMETHODCALLTYPE GetEditBoxText(DWORD control, WCHAR** text) override;
    HRESULT STDMETHODCALLTYPE SetEditBoxText(DWORD control, LPCWSTR text) override;
    HRESULT STDMETHODCALLTYPE GetCheckButtonState(DWORD control, BOOL* checked) override;
    HRESULT STDMETHODCALLTYPE SetCheckButtonState(DWORD control, BOOL checked) override;
    HRESULT STDMETHODCALLTYPE AddControlItem(DWORD control, DWORD item, LPCWSTR label) override;
    HRESULT STDMETHODCALLTYPE RemoveControlItem(DWORD control, DWORD item) override;
    HRESULT STDMETHODCALLTYPE RemoveAllControlItems(DWORD control) override;
    HRESULT STDMETHODCALLTYPE GetControlItemState(DWORD control, DWORD item, CDCONTROLSTATEF* state) override;
    HRESULT STDMETHODCALLTYPE SetControlItemState(DWORD control, DWORD item, CDCONTROLSTATEF state) override;
    HRESULT STDMETHODCALLTYPE GetSelectedControlItem(DWORD control, DWORD* item) override;
    HRESULT STDMETHODCALLTYPE SetSelectedControlItem(DWORD control, DWORD item) override;
    HRESULT STDMETHODCALLTYPE StartVisualGroup(DWORD control, LPCWSTR label) override;
    HRESULT STDMETHODCALLTYPE EndVisualGroup() override;
    HRESULT STDMETHODCALLTYPE MakeProminent(DWORD control) override;
    HRESULT STDMETHODCALLTYPE SetControlItemText(DWORD control, DWORD item, LPCWSTR label) override;

protected:
    ControlOperations() = default;
    ~ControlOperations() = default;

    ControlModel& controls() { return m_controls; }

private:
    ControlModel m_controls;
};
