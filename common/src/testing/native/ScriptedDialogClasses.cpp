#include "testing/native/ScriptedDialogClasses_p.h"

#include "testing/native/ScriptedDialogObject_p.h"
#include "ui/qt/dialogs/windows/com/Apartment_p.h"

#include <new>

namespace zelmar::internal {

namespace {

/// A class object that creates dialogs of the class `DialogObject`.
template <typename DialogObject>
class ClassObject : public RefCounted<IClassFactory>
{
public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override
    {
        const QITAB table[] = {{&IID_IClassFactory, this->template offsetOf<IClassFactory>(this)}, {nullptr, 0}};
        return QISearch(this, table, iid, object);
    }

    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID iid, void** object) override
    {
        if (!object)
            return E_POINTER;
        *object = nullptr;
        if (outer)
            return CLASS_E_NOAGGREGATION;
        const auto dialog = adopt<IFileDialog>(new (std::nothrow) DialogObject);
        return dialog ? dialog->QueryInterface(iid, object) : E_OUTOFMEMORY;
    }

    HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return E_NOTIMPL; }
};

/// A registered class object.
template <typename DialogObject>
class Registration
{
public:
    explicit Registration(REFCLSID classId)
    {
        const auto classObject = adopt<IClassFactory>(new ClassObject<DialogObject>);
        CoRegisterClassObject(classId, classObject.get(), CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &m_cookie);
    }
    ~Registration() { CoRevokeClassObject(m_cookie); }
    Registration(const Registration&) = delete;
    Registration& operator=(const Registration&) = delete;

private:
    DWORD m_cookie = 0;
};

} // namespace

struct ScriptedDialogClasses::Registrations
{
    const Apartment apartment; // left after the registrations have ended
    const Registration<ScriptedOpenDialogObject> open{CLSID_FileOpenDialog};
    const Registration<ScriptedSaveDialogObject> save{CLSID_FileSaveDialog};
};

std::shared_ptr<ScriptedDialogClasses::Registrations> ScriptedDialogClasses::sharedRegistrations()
{
    static std::weak_ptr<Registrations> shared;
    std::shared_ptr<Registrations> registrations = shared.lock();
    if (!registrations)
        shared = registrations = std::make_shared<Registrations>();
    return registrations;
}

ScriptedDialogClasses::ScriptedDialogClasses()
    : m_registrations(sharedRegistrations())
{
}

ScriptedDialogClasses::~ScriptedDialogClasses() = default;

} // namespace zelmar::internal
