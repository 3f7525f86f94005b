#pragma once

#include "common_ui_qt_export.h"
#include "ui/qt/dialogs/windows/substitute/types.h"

#include <cstddef>

// Objects with counted references, and how they are made.

/// The base of every interface. Objects delete themselves with their last reference.
struct IUnknown
{
    /// Puts a counted reference to the interface `iid` into `*object`; E_NOINTERFACE and null where there is none.
    virtual HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) = 0;
    virtual ULONG STDMETHODCALLTYPE AddRef() = 0;
    virtual ULONG STDMETHODCALLTYPE Release() = 0;
};

/// Makes the objects of one class.
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

/// Enters an apartment on the calling thread, or enters it once more: S_OK the first time, S_FALSE after that. Each of
/// these wants a CoUninitialize(). RPC_E_CHANGED_MODE, which wants none, where the thread is in the other kind already.
COMMON_UI_QT_EXPORT HRESULT CoInitializeEx(void* reserved, DWORD mode);

/// Takes one successful CoInitializeEx() back. Without one it does nothing.
COMMON_UI_QT_EXPORT void CoUninitialize();

/// Makes an object: by the class object that was registered last for the class, else one of the built-in ones.
/// CO_E_NOTINITIALIZED on a thread that is in no apartment, REGDB_E_CLASSNOTREG for an unknown class. Any thread.
COMMON_UI_QT_EXPORT HRESULT CoCreateInstance(REFCLSID classId, IUnknown* outer, DWORD context, REFIID iid,
                                             void** object);

/// Puts `classObject`, which must have IClassFactory, in charge of a class in the whole process, until its `*cookie`,
/// never 0, is revoked; it is referenced until then. `flags` are taken as REGCLS_MULTIPLEUSE, as within a process they
/// always are.
COMMON_UI_QT_EXPORT HRESULT CoRegisterClassObject(REFCLSID classId, IUnknown* classObject, DWORD context, DWORD flags,
                                                  DWORD* cookie);

/// E_INVALIDARG for a cookie that stands for nothing.
COMMON_UI_QT_EXPORT HRESULT CoRevokeClassObject(DWORD cookie);

/// Memory that changes hands between an object and its user. Null when there is none left.
COMMON_UI_QT_EXPORT void* CoTaskMemAlloc(std::size_t size);
COMMON_UI_QT_EXPORT void CoTaskMemFree(void* memory);

/// One interface of an object, and where in the object it is, in bytes.
struct QITAB
{
    const IID* piid;
    int dwOffset;
};
using LPCQITAB = const QITAB*;

/// QueryInterface() by a table that ends with a null `piid`; its first entry answers for IUnknown, too.
COMMON_UI_QT_EXPORT HRESULT QISearch(void* object, LPCQITAB table, REFIID iid, void** interfacePointer);
