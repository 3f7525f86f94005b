#include "TestHome.h"
#include "ui/qt/dialogs/windows/com/ComPtr_p.h"
#include "ui/qt/dialogs/windows/com/RefCounted_p.h"

#include <QtTest>

#include <thread>

using namespace zelmar::internal;

namespace {

constexpr DWORD singleThreaded = COINIT_APARTMENTTHREADED | COINIT_DISABLE_OLE1DDE;

// {6D2F0A11-4C3B-4E0B-9F53-0B8A1D1C7E01}: the id of no existing class.
constexpr CLSID testClass = {0x6d2f0a11, 0x4c3b, 0x4e0b, {0x9f, 0x53, 0x0b, 0x8a, 0x1d, 0x1c, 0x7e, 0x01}};

/// A class object that creates nothing and returns the given result.
class SilentFactory : public RefCounted<IClassFactory>
{
public:
    explicit SilentFactory(HRESULT answer)
        : m_answer(answer)
    {
    }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override
    {
        const QITAB table[] = {{&IID_IClassFactory, 0}, {nullptr, 0}};
        return QISearch(static_cast<IClassFactory*>(this), table, iid, object);
    }
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID iid, void** object) override
    {
        ++asked;
        askedForFileDialog = iid == IID_IFileDialog && !outer && object && !*object;
        return m_answer;
    }
    HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return E_NOTIMPL; }

    int asked = 0;
    bool askedForFileDialog = false;

private:
    HRESULT m_answer;
};

struct FirstInterface : IUnknown
{
};
struct SecondInterface : IUnknown
{
};

class TwoInterfaces : public RefCounted<FirstInterface, SecondInterface>
{
public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override
    {
        const QITAB table[] = {{&IID_IFileDialogEvents, offsetOf<FirstInterface>(this)},
                               {&IID_IFileDialogControlEvents, offsetOf<SecondInterface>(this)},
                               {nullptr, 0}};
        return QISearch(this, table, iid, object);
    }
};

template <typename Object>
ULONG referencesOf(Object& object)
{
    object.AddRef();
    return object.Release();
}

/// Runs `step` in a new thread, which is in no apartment yet.
template <typename Step>
void onFreshThread(Step step)
{
    std::thread(step).join();
}

HRESULT create(REFCLSID classId)
{
    void* object = nullptr;
    const HRESULT result = CoCreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER, IID_IFileDialog, &object);
    if (object)
        static_cast<IUnknown*>(object)->Release();
    return result;
}

/// Compares results in the test's own thread, where QtTest can record a failure.
void check(HRESULT actual, HRESULT expected)
{
    QCOMPARE(actual, expected);
}

} // namespace

class tst_shellObjects : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void countsEntriesOfAThread();
    void refusesTheOtherKindOfApartment();
    void makesNothingOutsideOfAnApartment();
    void takesUnbalancedLeaving();
    void knowsNoOtherClass();
    void asksTheClassObjectThatWasRegisteredLast();
    void holdsAClassObjectWhileItIsRegistered();
    void refusesWhatItCannotRegister();
    void findsInterfacesByTable();
    void answersForIUnknownWithTheFirstInterface();
    void freesTaskMemory();
};

void tst_shellObjects::countsEntriesOfAThread()
{
    HRESULT results[3] = {};
    HRESULT afterLeavingOnce = E_FAIL;
    HRESULT afterLeavingTwice = E_FAIL;
    onFreshThread([&] {
        results[0] = CoInitializeEx(nullptr, singleThreaded);
        results[1] = CoInitializeEx(nullptr, singleThreaded);
        CoUninitialize();
        afterLeavingOnce = create(testClass);
        CoUninitialize();
        afterLeavingTwice = create(testClass);
        results[2] = CoInitializeEx(nullptr, COINIT_MULTITHREADED);
        CoUninitialize();
    });
    check(results[0], S_OK);
    check(results[1], S_FALSE);
    check(afterLeavingOnce, REGDB_E_CLASSNOTREG);
    check(afterLeavingTwice, CO_E_NOTINITIALIZED);
    check(results[2], S_OK); // a thread that has left its apartment may enter the other kind
}

void tst_shellObjects::refusesTheOtherKindOfApartment()
{
    HRESULT refused = E_FAIL;
    HRESULT still = E_FAIL;
    HRESULT left = E_FAIL;
    onFreshThread([&] {
        CoInitializeEx(nullptr, COINIT_MULTITHREADED);
        refused = CoInitializeEx(nullptr, singleThreaded);
        still = create(testClass);
        CoUninitialize(); // undoes the first entry, because the refused one does not count
        left = create(testClass);
    });
    check(refused, RPC_E_CHANGED_MODE);
    check(still, REGDB_E_CLASSNOTREG);
    check(left, CO_E_NOTINITIALIZED);
}

void tst_shellObjects::makesNothingOutsideOfAnApartment()
{
    const auto factory = adopt(new SilentFactory(S_OK));
    DWORD cookie = 0;
    HRESULT result = S_OK;
    onFreshThread([&] {
        CoInitializeEx(nullptr, singleThreaded);
        CoRegisterClassObject(testClass, factory.get(), CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &cookie);
        CoUninitialize();
        result = create(testClass);
        CoInitializeEx(nullptr, singleThreaded);
        CoRevokeClassObject(cookie);
        CoUninitialize();
    });
    check(result, CO_E_NOTINITIALIZED);
    QCOMPARE(factory->asked, 0);
}

void tst_shellObjects::takesUnbalancedLeaving()
{
    HRESULT result = E_FAIL;
    onFreshThread([&] {
        CoUninitialize();
        CoUninitialize();
        result = CoInitializeEx(nullptr, singleThreaded);
        CoUninitialize();
    });
    check(result, S_OK);
}

void tst_shellObjects::knowsNoOtherClass()
{
    QCOMPARE(CoInitializeEx(nullptr, singleThreaded), S_OK);
    QCOMPARE(create(testClass), REGDB_E_CLASSNOTREG);
    CoUninitialize();
}

void tst_shellObjects::asksTheClassObjectThatWasRegisteredLast()
{
    const auto first = adopt(new SilentFactory(E_OUTOFMEMORY));
    const auto second = adopt(new SilentFactory(E_UNEXPECTED));
    DWORD firstCookie = 0;
    DWORD secondCookie = 0;
    QCOMPARE(CoInitializeEx(nullptr, singleThreaded), S_OK);
    QCOMPARE(CoRegisterClassObject(CLSID_FileOpenDialog, first.get(), CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE,
                                   &firstCookie),
             S_OK);
    QVERIFY(firstCookie != 0);
    QCOMPARE(create(CLSID_FileOpenDialog), E_OUTOFMEMORY); // used in place of the built-in class
    QVERIFY(first->askedForFileDialog);
    QCOMPARE(CoRevokeClassObject(firstCookie), S_OK);
    QCOMPARE(CoRegisterClassObject(CLSID_FileOpenDialog, second.get(), CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE,
                                   &secondCookie),
             S_OK);
    QVERIFY(secondCookie != firstCookie);
    QCOMPARE(create(CLSID_FileOpenDialog), E_UNEXPECTED);
    QCOMPARE(first->asked, 1);
    QCOMPARE(CoRevokeClassObject(secondCookie), S_OK);
    CoUninitialize();
}

void tst_shellObjects::holdsAClassObjectWhileItIsRegistered()
{
    const auto factory = adopt(new SilentFactory(E_FAIL));
    DWORD cookie = 0;
    QCOMPARE(CoInitializeEx(nullptr, singleThreaded), S_OK);
    QCOMPARE(CoRegisterClassObject(testClass, factory.get(), CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &cookie), S_OK);
    QVERIFY(referencesOf(*factory) > 1);
    create(testClass);
    QCOMPARE(CoRevokeClassObject(cookie), S_OK);
    QCOMPARE(referencesOf(*factory), ULONG(1));
    QVERIFY(FAILED(CoRevokeClassObject(cookie)));
    QCOMPARE(create(testClass), REGDB_E_CLASSNOTREG);
    CoUninitialize();
}

void tst_shellObjects::refusesWhatItCannotRegister()
{
    const auto factory = adopt(new SilentFactory(E_FAIL));
    DWORD cookie = 0;
    QCOMPARE(CoInitializeEx(nullptr, singleThreaded), S_OK);
    QVERIFY(FAILED(CoRegisterClassObject(testClass, nullptr, CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &cookie)));
    QVERIFY(FAILED(CoRegisterClassObject(testClass, factory.get(), CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, nullptr)));
    QCOMPARE(referencesOf(*factory), ULONG(1));
    CoUninitialize();
}

void tst_shellObjects::findsInterfacesByTable()
{
    const auto object = adopt(new TwoInterfaces);
    auto* const second = static_cast<SecondInterface*>(object.get());
    void* found = nullptr;
    QCOMPARE(object->QueryInterface(IID_IFileDialogControlEvents, &found), S_OK);
    QCOMPARE(found, static_cast<void*>(second));
    QCOMPARE(referencesOf(*object), ULONG(2));
    second->Release();

    QCOMPARE(object->QueryInterface(IID_IFileDialog, &found), E_NOINTERFACE);
    QVERIFY(!found);
    QCOMPARE(object->QueryInterface(IID_IFileDialogEvents, nullptr), E_POINTER);
    QCOMPARE(referencesOf(*object), ULONG(1));
}

void tst_shellObjects::answersForIUnknownWithTheFirstInterface()
{
    const auto object = adopt(new TwoInterfaces);
    const auto found = queryFor<IUnknown>(IID_IUnknown, static_cast<SecondInterface*>(object.get()));
    QCOMPARE(found.get(), static_cast<IUnknown*>(static_cast<FirstInterface*>(object.get())));
    QCOMPARE(referencesOf(*object), ULONG(2));
}

void tst_shellObjects::freesTaskMemory()
{
    auto* memory = static_cast<char*>(CoTaskMemAlloc(100));
    QVERIFY(memory);
    memory[99] = 1;
    CoTaskMemFree(memory);
    CoTaskMemFree(nullptr);
}

CORE_TEST_MAIN(tst_shellObjects)
#include "tst_shellObjects.moc"
