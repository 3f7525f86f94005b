#pragma once

#include "ui/qt/dialogs/windows/comPointers.h"

#include <functional>

/// Makes the objects of one class while it is there: CoCreateInstance() comes to it first. It belongs to whoever made
/// it, whoever references it.
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
