#pragma once

#include "ui/qt/dialogs/windows/shell/objects.h"
#include "ui/qt/dialogs/windows/shell/shellItems.h"
#include "ui/qt/dialogs/windows/shell/types.h"

// The common file dialog. Operations that the library does not use keep the order of virtual functions.

struct IFileDialog;
struct IFileDialogCustomize;
struct IFileOperationProgressSink;
struct IPropertyDescriptionList;
struct IPropertyStore;
struct IShellItemFilter;

using FILEOPENDIALOGOPTIONS = DWORD;
enum {
    FOS_OVERWRITEPROMPT = 0x2,
    FOS_PICKFOLDERS = 0x20,
    FOS_ALLOWMULTISELECT = 0x200,
    FOS_PATHMUSTEXIST = 0x800,
    FOS_FILEMUSTEXIST = 0x1000,
    FOS_NOREADONLYRETURN = 0x8000,
};

enum FDE_OVERWRITE_RESPONSE { FDEOR_DEFAULT = 0, FDEOR_ACCEPT = 1, FDEOR_REFUSE = 2 };
enum FDE_SHAREVIOLATION_RESPONSE { FDESVR_DEFAULT = 0, FDESVR_ACCEPT = 1, FDESVR_REFUSE = 2 };
enum FDAP { FDAP_BOTTOM = 0, FDAP_TOP = 1 };

enum CDCONTROLSTATEF { CDCS_INACTIVE = 0x0, CDCS_ENABLED = 0x1, CDCS_VISIBLE = 0x2, CDCS_ENABLEDVISIBLE = 0x3 };

struct COMDLG_FILTERSPEC
{
    LPCWSTR pszName;
    LPCWSTR pszSpec;
};

struct IFileDialogEvents : IUnknown
{
    virtual HRESULT STDMETHODCALLTYPE OnFileOk(IFileDialog* dialog) = 0;
    virtual HRESULT STDMETHODCALLTYPE OnFolderChanging(IFileDialog* dialog, IShellItem* folder) = 0;
    virtual HRESULT STDMETHODCALLTYPE OnFolderChange(IFileDialog* dialog) = 0;
    virtual HRESULT STDMETHODCALLTYPE OnSelectionChange(IFileDialog* dialog) = 0;
    virtual HRESULT STDMETHODCALLTYPE OnShareViolation(IFileDialog* dialog, IShellItem* item,
                                                       FDE_SHAREVIOLATION_RESPONSE* response) = 0;
    virtual HRESULT STDMETHODCALLTYPE OnTypeChange(IFileDialog* dialog) = 0;
    virtual HRESULT STDMETHODCALLTYPE OnOverwrite(IFileDialog* dialog, IShellItem* item,
                                                  FDE_OVERWRITE_RESPONSE* response) = 0;
};

struct IFileDialogControlEvents : IUnknown
{
    virtual HRESULT STDMETHODCALLTYPE OnItemSelected(IFileDialogCustomize* dialog, DWORD control, DWORD item) = 0;
    virtual HRESULT STDMETHODCALLTYPE OnButtonClicked(IFileDialogCustomize* dialog, DWORD control) = 0;
    virtual HRESULT STDMETHODCALLTYPE OnCheckButtonToggled(IFileDialogCustomize* dialog, DWORD control,
                                                           BOOL checked) = 0;
    virtual HRESULT STDMETHODCALLTYPE OnControlActivating(IFileDialogCustomize* dialog, DWORD control) = 0;
};

struct IModalWindow : IUnknown
{
    virtual HRESULT STDMETHODCALLTYPE Show(HWND owner) = 0;
};

struct IFileDialog : IModalWindow
{
    virtual HRESULT STDMETHODCALLTYPE SetFileTypes(UINT count, const COMDLG_FILTERSPEC* types) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetFileTypeIndex(UINT index) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetFileTypeIndex(UINT* index) = 0;
    virtual HRESULT STDMETHODCALLTYPE Advise(IFileDialogEvents* events, DWORD* cookie) = 0;
    virtual HRESULT STDMETHODCALLTYPE Unadvise(DWORD cookie) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetOptions(FILEOPENDIALOGOPTIONS options) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetOptions(FILEOPENDIALOGOPTIONS* options) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetDefaultFolder(IShellItem* folder) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetFolder(IShellItem* folder) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetFolder(IShellItem** folder) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetCurrentSelection(IShellItem** item) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetFileName(LPCWSTR name) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetFileName(LPWSTR* name) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetTitle(LPCWSTR title) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetOkButtonLabel(LPCWSTR text) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetFileNameLabel(LPCWSTR label) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetResult(IShellItem** item) = 0;
    virtual HRESULT STDMETHODCALLTYPE AddPlace(IShellItem* folder, FDAP position) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetDefaultExtension(LPCWSTR extension) = 0;
    virtual HRESULT STDMETHODCALLTYPE Close(HRESULT result) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetClientGuid(REFGUID client) = 0;
    virtual HRESULT STDMETHODCALLTYPE ClearClientData() = 0;
    virtual HRESULT STDMETHODCALLTYPE SetFilter(IShellItemFilter* filter) = 0;
};

struct IFileOpenDialog : IFileDialog
{
    virtual HRESULT STDMETHODCALLTYPE GetResults(IShellItemArray** items) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetSelectedItems(IShellItemArray** items) = 0;
};

struct IFileSaveDialog : IFileDialog
{
    virtual HRESULT STDMETHODCALLTYPE SetSaveAsItem(IShellItem* item) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetProperties(IPropertyStore* store) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetCollectedProperties(IPropertyDescriptionList* list, BOOL appendDefault) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetProperties(IPropertyStore** store) = 0;
    virtual HRESULT STDMETHODCALLTYPE ApplyProperties(IShellItem* item, IPropertyStore* store, HWND window,
                                                      IFileOperationProgressSink* sink) = 0;
};

struct IFileDialogCustomize : IUnknown
{
    virtual HRESULT STDMETHODCALLTYPE EnableOpenDropDown(DWORD control) = 0;
    virtual HRESULT STDMETHODCALLTYPE AddMenu(DWORD control, LPCWSTR label) = 0;
    virtual HRESULT STDMETHODCALLTYPE AddPushButton(DWORD control, LPCWSTR label) = 0;
    virtual HRESULT STDMETHODCALLTYPE AddComboBox(DWORD control) = 0;
    virtual HRESULT STDMETHODCALLTYPE AddRadioButtonList(DWORD control) = 0;
    virtual HRESULT STDMETHODCALLTYPE AddCheckButton(DWORD control, LPCWSTR label, BOOL checked) = 0;
    virtual HRESULT STDMETHODCALLTYPE AddEditBox(DWORD control, LPCWSTR text) = 0;
    virtual HRESULT STDMETHODCALLTYPE AddSeparator(DWORD control) = 0;
    virtual HRESULT STDMETHODCALLTYPE AddText(DWORD control, LPCWSTR text) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetControlLabel(DWORD control, LPCWSTR label) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetControlState(DWORD control, CDCONTROLSTATEF* state) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetControlState(DWORD control, CDCONTROLSTATEF state) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetEditBoxText(DWORD control, WCHAR** text) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetEditBoxText(DWORD control, LPCWSTR text) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetCheckButtonState(DWORD control, BOOL* checked) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetCheckButtonState(DWORD control, BOOL checked) = 0;
    virtual HRESULT STDMETHODCALLTYPE AddControlItem(DWORD control, DWORD item, LPCWSTR label) = 0;
    virtual HRESULT STDMETHODCALLTYPE RemoveControlItem(DWORD control, DWORD item) = 0;
    virtual HRESULT STDMETHODCALLTYPE RemoveAllControlItems(DWORD control) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetControlItemState(DWORD control, DWORD item, CDCONTROLSTATEF* state) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetControlItemState(DWORD control, DWORD item, CDCONTROLSTATEF state) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetSelectedControlItem(DWORD control, DWORD* item) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetSelectedControlItem(DWORD control, DWORD item) = 0;
    virtual HRESULT STDMETHODCALLTYPE StartVisualGroup(DWORD control, LPCWSTR label) = 0;
    virtual HRESULT STDMETHODCALLTYPE EndVisualGroup() = 0;
    virtual HRESULT STDMETHODCALLTYPE MakeProminent(DWORD control) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetControlItemText(DWORD control, DWORD item, LPCWSTR label) = 0;
};

constexpr CLSID CLSID_FileOpenDialog = {0xdc1c5a9c, 0xe88a, 0x4dde, {0xa5, 0xa1, 0x60, 0xf8, 0x2a, 0x20, 0xae, 0xf7}};
constexpr CLSID CLSID_FileSaveDialog = {0xc0b4e2f3, 0xba21, 0x4773, {0x8d, 0xba, 0x33, 0x5e, 0xc9, 0x46, 0xeb, 0x8b}};
constexpr IID IID_IModalWindow = {0xb4db1657, 0x70d7, 0x485e, {0x8e, 0x3e, 0x6f, 0xcb, 0x5a, 0x5c, 0x18, 0x02}};
constexpr IID IID_IFileDialog = {0x42f85136, 0xdb7e, 0x439c, {0x85, 0xf1, 0xe4, 0x07, 0x5d, 0x13, 0x5f, 0xc8}};
constexpr IID IID_IFileOpenDialog = {0xd57c7288, 0xd4ad, 0x4768, {0xbe, 0x02, 0x9d, 0x96, 0x95, 0x32, 0xd9, 0x60}};
constexpr IID IID_IFileSaveDialog = {0x84bccd23, 0x5fde, 0x4cdb, {0xae, 0xa4, 0xaf, 0x64, 0xb8, 0x3d, 0x78, 0xab}};
constexpr IID IID_IFileDialogEvents = {0x973510db, 0x7d7f, 0x452b, {0x89, 0x75, 0x74, 0xa8, 0x58, 0x28, 0xd3, 0x54}};
constexpr IID IID_IFileDialogControlEvents = {
    0x36116642, 0xd713, 0x4b97, {0x9b, 0x83, 0x74, 0x84, 0xa9, 0xd0, 0x04, 0x33}};
constexpr IID IID_IFileDialogCustomize = {0xe6fdd21a, 0x163f, 0x4975, {0x9c, 0x8c, 0xa6, 0x9f, 0x1b, 0xa3, 0x70, 0x34}};
