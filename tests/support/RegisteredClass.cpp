#include "RegisteredClass.h"

#include <utility>

RegisteredClass::RegisteredClass(REFCLSID classId, Create create)
    : m_create(std::move(create))
{
    CoRegisterClassObject(classId, this, CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &m_cookie);
}

RegisteredClass::~RegisteredClass()
{
    CoRevokeClassObject(m_cookie);
}

HRESULT RegisteredClass::QueryInterface(REFIID iid, void** object)
{
    *object = iid == IID_IClassFactory || iid == IID_IUnknown ? this : nullptr;
    return *object ? S_OK : E_NOINTERFACE;
}

HRESULT RegisteredClass::CreateInstance(IUnknown* /*outer*/, REFIID iid, void** object)
{
    *object = nullptr;
    return m_create(iid, object);
}

HRESULT RegisteredClass::LockServer(BOOL /*lock*/)
{
    return E_NOTIMPL;
}
