#pragma once

#include "ui/qt/dialogs/windows/comPointers_p.h"

#include <functional>

/// A class object that is registered during its lifetime and creates the objects of one class, because
/// CoCreateInstance() asks registered class objects first. Its creator owns it, whatever COM references exist.
class RegisteredClass : public IClassFactory
{
public:
    using Create = std::function<HRESULT(REFIID iid, void** object)>;

    RegisteredClass(REFCLSID classId, Create create);
    virtual ~RegisteredClass();
    RegisteredClass(const RegisteredClass&) = delete;
    RegisteredClass& operator=(const RegisteredClass&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID iid, void** object) override;
    HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override;

private:
    Create m_create;
    DWORD m_cookie = 0;
};
