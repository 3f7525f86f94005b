#include "ui/qt/dialogs/windows/shellapi.h"

#include "ui/qt/dialogs/windows/builtin/builtInClasses_p.h"
#include "ui/qt/dialogs/windows/com/ComPtr_p.h"

#include <algorithm>
#include <cstdlib>
#include <mutex>
#include <vector>

using namespace zelmar::internal;

namespace {

/// The state of a thread's apartment.
struct ApartmentState
{
    int entered = 0; ///< how many times the thread has entered it without leaving
    DWORD mode = COINIT_MULTITHREADED;
};

ApartmentState& currentApartment()
{
    thread_local ApartmentState apartment;
    return apartment;
}

/// The registered class objects, in the order of registration.
class ClassRegistry
{
public:
    DWORD add(REFCLSID classId, IUnknown* classObject)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_entries.push_back({++m_lastCookie, classId, ComPtr<IUnknown>(classObject)});
        return m_lastCookie;
    }

    bool remove(DWORD cookie)
    {
        ComPtr<IUnknown> removed; // Declared before the lock: when it is released, the object may call this registry.
        const std::lock_guard<std::mutex> lock(m_mutex);
        const auto entry = std::find_if(m_entries.begin(), m_entries.end(),
                                        [cookie](const Entry& other) { return other.cookie == cookie; });
        if (entry == m_entries.end())
            return false;
        removed.swap(entry->classObject);
        m_entries.erase(entry);
        return true;
    }

    /// Returns the class object that was registered last for `classId`, or null if there is none.
    ComPtr<IUnknown> last(REFCLSID classId)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        const auto entry = std::find_if(m_entries.rbegin(), m_entries.rend(),
                                        [&classId](const Entry& other) { return other.classId == classId; });
        return entry == m_entries.rend() ? nullptr : entry->classObject;
    }

private:
    struct Entry
    {
        DWORD cookie;
        CLSID classId;
        ComPtr<IUnknown> classObject;
    };

    std::mutex m_mutex;
    std::vector<Entry> m_entries;
    DWORD m_lastCookie = 0;
};

ClassRegistry& classRegistry()
{
    static ClassRegistry registry;
    return registry;
}

} // namespace

HRESULT CoInitializeEx(void* /*reserved*/, DWORD mode)
{
    ApartmentState& apartment = currentApartment();
    const DWORD kind = mode & COINIT_APARTMENTTHREADED;
    if (apartment.entered > 0 && apartment.mode != kind)
        return RPC_E_CHANGED_MODE;
    apartment.mode = kind;
    return apartment.entered++ == 0 ? S_OK : S_FALSE;
}

void CoUninitialize()
{
    ApartmentState& apartment = currentApartment();
    apartment.entered = std::max(0, apartment.entered - 1);
}

HRESULT CoCreateInstance(REFCLSID classId, IUnknown* outer, DWORD context, REFIID iid, void** object)
{
    if (!object)
        return E_POINTER;
    *object = nullptr;
    if (currentApartment().entered == 0)
        return CO_E_NOTINITIALIZED;
    if (!(context & CLSCTX_INPROC_SERVER))
        return REGDB_E_CLASSNOTREG;
    if (const ComPtr<IUnknown> classObject = classRegistry().last(classId)) {
        const auto factory = queryFor<IClassFactory>(IID_IClassFactory, classObject.get());
        return factory ? factory->CreateInstance(outer, iid, object) : E_NOINTERFACE;
    }
    return outer ? CLASS_E_NOAGGREGATION : createBuiltInObject(classId, iid, object);
}

HRESULT CoRegisterClassObject(REFCLSID classId, IUnknown* classObject, DWORD context, DWORD /*flags*/, DWORD* cookie)
{
    if (!classObject || !cookie || !(context & CLSCTX_INPROC_SERVER))
        return E_INVALIDARG;
    *cookie = classRegistry().add(classId, classObject);
    return S_OK;
}

HRESULT CoRevokeClassObject(DWORD cookie)
{
    return classRegistry().remove(cookie) ? S_OK : E_INVALIDARG;
}

void* CoTaskMemAlloc(std::size_t size)
{
    return std::malloc(size);
}

void CoTaskMemFree(void* memory)
{
    std::free(memory);
}

HRESULT QISearch(void* object, LPCQITAB table, REFIID iid, void** interfacePointer)
{
    if (!interfacePointer)
        return E_POINTER;
    for (LPCQITAB entry = table; entry->piid; ++entry) {
        if (iid != *entry->piid && !(entry == table && iid == IID_IUnknown))
            continue;
        auto* found = reinterpret_cast<IUnknown*>(static_cast<char*>(object) + entry->dwOffset);
        found->AddRef();
        *interfacePointer = found;
        return S_OK;
    }
    *interfacePointer = nullptr;
    return E_NOINTERFACE;
}
