#pragma once

#include "common_ui_qt_export.h"
#include "ui/qt/dialogs/windows/shell/types.h"

#include <cstddef>

// Reference-counted objects, and the functions that make them. Applications that replace the dialog call them, too.

/// The base of every interface. An object deletes itself when its last reference is released.
struct IUnknown
{
    /// Stores a new reference to the interface `iid` in `*object`. Returns E_NOINTERFACE and stores null when the
    /// object does not have it.
    virtual HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) = 0;
    virtual ULONG STDMETHODCALLTYPE AddRef() = 0;
    virtual ULONG STDMETHODCALLTYPE Release() = 0;
};

/// A class object, which creates the objects of one class.
struct IClassFactory : IUnknown
{
    virtual HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID iid, void** object) = 0;
    virtual HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) = 0;
};

constexpr IID IID_IUnknown = {0x00000000, 0x0000, 0x0000, {0xc0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46}};
constexpr IID IID_IClassFactory = {0x00000001, 0x0000, 0x0000, {0xc0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46}};

enum CLSCTX { CLSCTX_INPROC_SERVER = 0x1 };
enum REGCLS { REGCLS_MULTIPLEUSE = 1 };
enum COINIT { COINIT_MULTITHREADED = 0x0, COINIT_APARTMENTTHREADED = 0x2, COINIT_DISABLE_OLE1DDE = 0x4 };

/// Enters an apartment on the calling thread. Returns S_OK the first time and S_FALSE for each further entry; both need
/// a matching CoUninitialize(). Returns RPC_E_CHANGED_MODE, which needs none, when the thread is in the other kind.
COMMON_UI_QT_EXPORT HRESULT CoInitializeEx(void* reserved, DWORD mode);

/// Undoes one successful CoInitializeEx() on the calling thread. Does nothing without one.
COMMON_UI_QT_EXPORT void CoUninitialize();

/// Creates an object with the class object that was registered last for the class, or else a built-in one. Returns
/// CO_E_NOTINITIALIZED on a thread outside of any apartment and REGDB_E_CLASSNOTREG for an unknown class. May be called
/// on any thread.
COMMON_UI_QT_EXPORT HRESULT CoCreateInstance(REFCLSID classId, IUnknown* outer, DWORD context, REFIID iid,
                                             void** object);

/// Registers `classObject`, which must implement IClassFactory, for a class in the whole process. Holds a reference to
/// it until `*cookie`, which is never 0, is revoked. `flags` are always taken as REGCLS_MULTIPLEUSE, as within one
/// process.
COMMON_UI_QT_EXPORT HRESULT CoRegisterClassObject(REFCLSID classId, IUnknown* classObject, DWORD context, DWORD flags,
                                                  DWORD* cookie);

/// Ends a registration. Returns E_INVALIDARG for an unknown cookie.
COMMON_UI_QT_EXPORT HRESULT CoRevokeClassObject(DWORD cookie);

/// Allocates memory whose ownership may pass between an object and its caller. Returns null when memory is exhausted.
COMMON_UI_QT_EXPORT void* CoTaskMemAlloc(std::size_t size);
COMMON_UI_QT_EXPORT void CoTaskMemFree(void* memory);

/// One entry of a table of interfaces: the interface id and its offset in the object, in bytes.
struct QITAB
{
    const IID* piid;
    int dwOffset;
};
using LPCQITAB = const QITAB*;

/// Implements QueryInterface() by a table that ends with a null `piid`. The first entry answers for IUnknown, too.
COMMON_UI_QT_EXPORT HRESULT QISearch(void* object, LPCQITAB table, REFIID iid, void** interfacePointer);
