// Compares our declarations of the shell's interfaces with those of the Windows headers. A difference is a compiler
// error. Needs mingw-w64 and optimisation: the index of a virtual function is no constant expression, but the optimiser
// computes it.

#include "VirtualSlot.h"
#include "common_ui_qt_export.h"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <type_traits>

namespace ours {
#include "ui/qt/dialogs/windows/shell/fileDialog.h"
#include "ui/qt/dialogs/windows/shell/objects.h"
#include "ui/qt/dialogs/windows/shell/results.h"
#include "ui/qt/dialogs/windows/shell/shellItems.h"
#include "ui/qt/dialogs/windows/shell/types.h"
} // namespace ours

// clang-format off
#define FOR_EACH_RESULT(X) \
    X(S_OK) X(S_FALSE) X(E_NOTIMPL) X(E_NOINTERFACE) X(E_POINTER) X(E_FAIL) X(E_UNEXPECTED) X(E_OUTOFMEMORY) \
    X(E_INVALIDARG) X(CLASS_E_NOAGGREGATION) X(REGDB_E_CLASSNOTREG) X(CO_E_NOTINITIALIZED) X(RPC_E_CHANGED_MODE) \
    X(ERROR_FILE_NOT_FOUND) X(ERROR_CANCELLED)
// clang-format on

// The Windows headers define these names as macros, so our values are stored first.
#define KEEP_OUR_RESULT(name) constexpr long our_##name = ours::name;
FOR_EACH_RESULT(KEEP_OUR_RESULT)
constexpr ours::HRESULT ourCancelled = ours::HRESULT_FROM_WIN32(ours::ERROR_CANCELLED);
constexpr ours::HRESULT ourNoError = ours::HRESULT_FROM_WIN32(0);
static_assert(ours::SUCCEEDED(ours::S_OK) && ours::SUCCEEDED(ours::S_FALSE) && !ours::SUCCEEDED(ours::E_FAIL), "");
static_assert(!ours::FAILED(ours::S_OK) && !ours::FAILED(ours::S_FALSE) && ours::FAILED(ours::E_FAIL), "");
static_assert(TRUE == 1 && FALSE == 0, "ours");
#undef TRUE
#undef FALSE
#undef STDMETHODCALLTYPE

#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

#include <objbase.h>
#include <shlwapi.h>
#include <shobjidl.h>

static_assert(TRUE == 1 && FALSE == 0, "theirs");

#define CHECK_RESULT(name) static_assert(our_##name == name, #name);
FOR_EACH_RESULT(CHECK_RESULT)
static_assert(ourNoError == HRESULT_FROM_WIN32(0), "no error");
static_assert(ourCancelled == static_cast<HRESULT>(0x800704C7), "as the system answers when the user cancels");

// clang-format off
#define FOR_EACH_CONSTANT(X) \
    X(CLSCTX_INPROC_SERVER) X(REGCLS_MULTIPLEUSE) \
    X(COINIT_MULTITHREADED) X(COINIT_APARTMENTTHREADED) X(COINIT_DISABLE_OLE1DDE) \
    X(SIGDN_NORMALDISPLAY) X(SIGDN_FILESYSPATH) X(SIATTRIBFLAGS_AND) X(SIATTRIBFLAGS_OR) X(GPS_DEFAULT) \
    X(FOS_OVERWRITEPROMPT) X(FOS_PICKFOLDERS) X(FOS_ALLOWMULTISELECT) X(FOS_PATHMUSTEXIST) X(FOS_FILEMUSTEXIST) \
    X(FOS_NOREADONLYRETURN) \
    X(FDEOR_DEFAULT) X(FDEOR_ACCEPT) X(FDEOR_REFUSE) X(FDESVR_DEFAULT) X(FDESVR_ACCEPT) X(FDESVR_REFUSE) \
    X(FDAP_BOTTOM) X(FDAP_TOP) \
    X(CDCS_INACTIVE) X(CDCS_ENABLED) X(CDCS_VISIBLE) X(CDCS_ENABLEDVISIBLE)
// clang-format on

#define CHECK_CONSTANT(name) static_assert(static_cast<long>(ours::name) == static_cast<long>(::name), #name);
FOR_EACH_CONSTANT(CHECK_CONSTANT)

constexpr bool sameId(const ours::GUID& left, const GUID& right)
{
    bool same = left.Data1 == right.Data1 && left.Data2 == right.Data2 && left.Data3 == right.Data3;
    for (int i = 0; i < 8; ++i)
        same = same && left.Data4[i] == right.Data4[i];
    return same;
}

// clang-format off
#define FOR_EACH_INTERFACE(X) \
    X(IUnknown) X(IClassFactory) X(IShellItem) X(IShellItemArray) X(IModalWindow) X(IFileDialog) X(IFileOpenDialog) \
    X(IFileSaveDialog) X(IFileDialogEvents) X(IFileDialogControlEvents) X(IFileDialogCustomize)
// clang-format on

#define CHECK_INTERFACE_ID(name) static_assert(sameId(ours::IID_##name, __mingw_uuidof_s<name>::__uuid_inst), #name);
FOR_EACH_INTERFACE(CHECK_INTERFACE_ID)
#define CHECK_CLASS_ID(name) static_assert(sameId(ours::CLSID_##name, __mingw_uuidof_s<name>::__uuid_inst), #name);
CHECK_CLASS_ID(FileOpenDialog)
CHECK_CLASS_ID(FileSaveDialog)

template <typename Left, typename Right>
constexpr bool sameShape()
{
    return sizeof(Left) == sizeof(Right) && alignof(Left) == alignof(Right)
           && std::is_pointer<Left>::value == std::is_pointer<Right>::value
           && std::is_signed<Left>::value == std::is_signed<Right>::value;
}

// clang-format off
#define FOR_EACH_TYPE(X) \
    X(BOOL) X(INT) X(UINT) X(LONG) X(ULONG) X(DWORD) X(HRESULT) X(WCHAR) X(LPWSTR) X(LPCWSTR) X(HWND) X(GUID) \
    X(SFGAOF) X(SICHINTF) X(FILEOPENDIALOGOPTIONS) X(COMDLG_FILTERSPEC) X(QITAB) X(SIGDN) X(CDCONTROLSTATEF)
// clang-format on

#define CHECK_TYPE(name) static_assert(sameShape<ours::name, ::name>(), #name);
FOR_EACH_TYPE(CHECK_TYPE)
static_assert(offsetof(ours::COMDLG_FILTERSPEC, pszSpec) == offsetof(COMDLG_FILTERSPEC, pszSpec), "name, then pattern");
static_assert(offsetof(ours::QITAB, dwOffset) == offsetof(QITAB, dwOffset), "id, then offset");

/// The type of an argument as it is passed: a reference is a pointer.
template <typename Argument>
using Passed = std::conditional_t<std::is_reference<Argument>::value, std::remove_reference_t<Argument>*, Argument>;

template <typename OurClass, typename OurResult, typename... Ours, typename TheirClass, typename TheirResult,
          typename... Theirs>
constexpr bool sameSignature(OurResult (OurClass::*)(Ours...), TheirResult (TheirClass::*)(Theirs...))
{
    if constexpr (sizeof...(Ours) != sizeof...(Theirs))
        return false;
    else
        return sameShape<OurResult, TheirResult>() && (sameShape<Passed<Ours>, Passed<Theirs>>() && ...);
}

void anotherSlot() __attribute__((error("our operation is not where the Windows headers have it")));

#define CHECK_OPERATION(interfaceName, operation)                                                                      \
    static_assert(sameSignature(&ours::interfaceName::operation, &::interfaceName::operation), #operation);            \
    if (virtualSlot(&ours::interfaceName::operation) != virtualSlot(&::interfaceName::operation))                      \
        anotherSlot();

void checkOperations()
{
    // The Windows headers overload QueryInterface().
    constexpr HRESULT (STDMETHODCALLTYPE ::IUnknown::*theirQuery)(REFIID, void**) = &::IUnknown::QueryInterface;
    static_assert(sameSignature(&ours::IUnknown::QueryInterface, theirQuery), "QueryInterface");
    if (virtualSlot(&ours::IUnknown::QueryInterface) != virtualSlot(theirQuery))
        anotherSlot();
    CHECK_OPERATION(IUnknown, AddRef)
    CHECK_OPERATION(IUnknown, Release)
    CHECK_OPERATION(IClassFactory, CreateInstance)
    CHECK_OPERATION(IClassFactory, LockServer)
    CHECK_OPERATION(IShellItem, BindToHandler)
    CHECK_OPERATION(IShellItem, GetParent)
    CHECK_OPERATION(IShellItem, GetDisplayName)
    CHECK_OPERATION(IShellItem, GetAttributes)
    CHECK_OPERATION(IShellItem, Compare)
    CHECK_OPERATION(IShellItemArray, BindToHandler)
    CHECK_OPERATION(IShellItemArray, GetPropertyStore)
    CHECK_OPERATION(IShellItemArray, GetPropertyDescriptionList)
    CHECK_OPERATION(IShellItemArray, GetAttributes)
    CHECK_OPERATION(IShellItemArray, GetCount)
    CHECK_OPERATION(IShellItemArray, GetItemAt)
    CHECK_OPERATION(IShellItemArray, EnumItems)
    CHECK_OPERATION(IFileDialogEvents, OnFileOk)
    CHECK_OPERATION(IFileDialogEvents, OnFolderChanging)
    CHECK_OPERATION(IFileDialogEvents, OnFolderChange)
    CHECK_OPERATION(IFileDialogEvents, OnSelectionChange)
    CHECK_OPERATION(IFileDialogEvents, OnShareViolation)
    CHECK_OPERATION(IFileDialogEvents, OnTypeChange)
    CHECK_OPERATION(IFileDialogEvents, OnOverwrite)
    CHECK_OPERATION(IFileDialogControlEvents, OnItemSelected)
    CHECK_OPERATION(IFileDialogControlEvents, OnButtonClicked)
    CHECK_OPERATION(IFileDialogControlEvents, OnCheckButtonToggled)
    CHECK_OPERATION(IFileDialogControlEvents, OnControlActivating)
    CHECK_OPERATION(IModalWindow, Show)
    CHECK_OPERATION(IFileDialog, SetFileTypes)
    CHECK_OPERATION(IFileDialog, SetFileTypeIndex)
    CHECK_OPERATION(IFileDialog, GetFileTypeIndex)
    CHECK_OPERATION(IFileDialog, Advise)
    CHECK_OPERATION(IFileDialog, Unadvise)
    CHECK_OPERATION(IFileDialog, SetOptions)
    CHECK_OPERATION(IFileDialog, GetOptions)
    CHECK_OPERATION(IFileDialog, SetDefaultFolder)
    CHECK_OPERATION(IFileDialog, SetFolder)
    CHECK_OPERATION(IFileDialog, GetFolder)
    CHECK_OPERATION(IFileDialog, GetCurrentSelection)
    CHECK_OPERATION(IFileDialog, SetFileName)
    CHECK_OPERATION(IFileDialog, GetFileName)
    CHECK_OPERATION(IFileDialog, SetTitle)
    CHECK_OPERATION(IFileDialog, SetOkButtonLabel)
    CHECK_OPERATION(IFileDialog, SetFileNameLabel)
    CHECK_OPERATION(IFileDialog, GetResult)
    CHECK_OPERATION(IFileDialog, AddPlace)
    CHECK_OPERATION(IFileDialog, SetDefaultExtension)
    CHECK_OPERATION(IFileDialog, Close)
    CHECK_OPERATION(IFileDialog, SetClientGuid)
    CHECK_OPERATION(IFileDialog, ClearClientData)
    CHECK_OPERATION(IFileDialog, SetFilter)
    CHECK_OPERATION(IFileOpenDialog, GetResults)
    CHECK_OPERATION(IFileOpenDialog, GetSelectedItems)
    CHECK_OPERATION(IFileSaveDialog, SetSaveAsItem)
    CHECK_OPERATION(IFileSaveDialog, SetProperties)
    CHECK_OPERATION(IFileSaveDialog, SetCollectedProperties)
    CHECK_OPERATION(IFileSaveDialog, GetProperties)
    CHECK_OPERATION(IFileSaveDialog, ApplyProperties)
    CHECK_OPERATION(IFileDialogCustomize, EnableOpenDropDown)
    CHECK_OPERATION(IFileDialogCustomize, AddMenu)
    CHECK_OPERATION(IFileDialogCustomize, AddPushButton)
    CHECK_OPERATION(IFileDialogCustomize, AddComboBox)
    CHECK_OPERATION(IFileDialogCustomize, AddRadioButtonList)
    CHECK_OPERATION(IFileDialogCustomize, AddCheckButton)
    CHECK_OPERATION(IFileDialogCustomize, AddEditBox)
    CHECK_OPERATION(IFileDialogCustomize, AddSeparator)
    CHECK_OPERATION(IFileDialogCustomize, AddText)
    CHECK_OPERATION(IFileDialogCustomize, SetControlLabel)
    CHECK_OPERATION(IFileDialogCustomize, GetControlState)
    CHECK_OPERATION(IFileDialogCustomize, SetControlState)
    CHECK_OPERATION(IFileDialogCustomize, GetEditBoxText)
    CHECK_OPERATION(IFileDialogCustomize, SetEditBoxText)
    CHECK_OPERATION(IFileDialogCustomize, GetCheckButtonState)
    CHECK_OPERATION(IFileDialogCustomize, SetCheckButtonState)
    CHECK_OPERATION(IFileDialogCustomize, AddControlItem)
    CHECK_OPERATION(IFileDialogCustomize, RemoveControlItem)
    CHECK_OPERATION(IFileDialogCustomize, RemoveAllControlItems)
    CHECK_OPERATION(IFileDialogCustomize, GetControlItemState)
    CHECK_OPERATION(IFileDialogCustomize, SetControlItemState)
    CHECK_OPERATION(IFileDialogCustomize, GetSelectedControlItem)
    CHECK_OPERATION(IFileDialogCustomize, SetSelectedControlItem)
    CHECK_OPERATION(IFileDialogCustomize, StartVisualGroup)
    CHECK_OPERATION(IFileDialogCustomize, EndVisualGroup)
    CHECK_OPERATION(IFileDialogCustomize, MakeProminent)
    CHECK_OPERATION(IFileDialogCustomize, SetControlItemText)
}
