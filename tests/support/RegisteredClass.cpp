#include "RegisteredClass.h"

#include "ui/qt/dialogs/windows/com/ComPtr_p.h"
#include "ui/qt/dialogs/windows/com/RefCounted_p.h"

#include <utility>

using namespace zelmar::internal;

namespace {

class ClassObject : public RefCounted<IClassFactory>
{
public:
    explicit ClassObject(RegisteredClass::Create create)
        : m_create(std::move(create))
    {
    }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override
    {
        const QITAB table[] = {{&IID_IClassFactory, offsetOf<IClassFactory>(this)}, {nullptr, 0}};
        return QISearch(this, table, iid, object);
    }
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown*, REFIID iid, void** object) override
    {
        *object = nullptr;
        return m_create(iid, object);
    }
    HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return E_NOTIMPL; }

private:
    const RegisteredClass::Create m_create;
};

} // namespace

RegisteredClass::RegisteredClass(REFCLSID classId, Create create)
{
    const auto classObject = adopt(new ClassObject(std::move(create)));
    CoRegisterClassObject(classId, classObject.get(), CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &m_cookie);
}

RegisteredClass::~RegisteredClass()
{
    CoRevokeClassObject(m_cookie);
}
