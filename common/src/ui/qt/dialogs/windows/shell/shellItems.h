#pragma once

#include "common_ui_qt_export.h"
#include "ui/qt/dialogs/windows/shell/objects.h"
#include "ui/qt/dialogs/windows/shell/types.h"

// The shell's objects for files and folders. Operations that the library does not use keep the order of virtual
// functions.

struct IBindCtx;
struct IEnumShellItems;
struct PROPERTYKEY;
using REFPROPERTYKEY = const PROPERTYKEY&;

using SFGAOF = ULONG;
using SICHINTF = DWORD;

enum SIGDN {
    SIGDN_NORMALDISPLAY = 0,
    SIGDN_FILESYSPATH = static_cast<int>(0x80058000),
};
enum SIATTRIBFLAGS { SIATTRIBFLAGS_AND = 0x1, SIATTRIBFLAGS_OR = 0x2 };
enum GETPROPERTYSTOREFLAGS { GPS_DEFAULT = 0 };

struct IShellItem : IUnknown
{
    virtual HRESULT STDMETHODCALLTYPE BindToHandler(IBindCtx* context, REFGUID handler, REFIID iid, void** object) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetParent(IShellItem** parent) = 0;
    /// Stores the name in `*name`, which the caller frees with CoTaskMemFree().
    virtual HRESULT STDMETHODCALLTYPE GetDisplayName(SIGDN kind, LPWSTR* name) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetAttributes(SFGAOF mask, SFGAOF* attributes) = 0;
    virtual HRESULT STDMETHODCALLTYPE Compare(IShellItem* other, SICHINTF hint, int* order) = 0;
};

struct IShellItemArray : IUnknown
{
    virtual HRESULT STDMETHODCALLTYPE BindToHandler(IBindCtx* context, REFGUID handler, REFIID iid, void** object) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetPropertyStore(GETPROPERTYSTOREFLAGS flags, REFIID iid, void** store) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetPropertyDescriptionList(REFPROPERTYKEY type, REFIID iid, void** list) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetAttributes(SIATTRIBFLAGS flags, SFGAOF mask, SFGAOF* attributes) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetCount(DWORD* count) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetItemAt(DWORD index, IShellItem** item) = 0;
    virtual HRESULT STDMETHODCALLTYPE EnumItems(IEnumShellItems** items) = 0;
};

constexpr IID IID_IShellItem = {0x43826d1e, 0xe718, 0x42ee, {0xbc, 0x55, 0xa1, 0xe2, 0x61, 0xc3, 0x7b, 0xfe}};
constexpr IID IID_IShellItemArray = {0xb63ea76d, 0x1f85, 0x456f, {0xa1, 0x9c, 0x48, 0x15, 0x9e, 0xfa, 0x85, 0x8b}};

/// Makes the item at an absolute path, whose separators may be slashes or backslashes. Returns the result for
/// ERROR_FILE_NOT_FOUND when nothing exists there, and E_INVALIDARG for a relative path.
COMMON_UI_QT_EXPORT HRESULT SHCreateItemFromParsingName(LPCWSTR path, IBindCtx* context, REFIID iid, void** item);
