#pragma once

#include "ui/qt/dialogs/windows/shellapi.h"

#include <functional>

/// A class object that is registered during its lifetime and creates the objects of one class, because
/// CoCreateInstance() asks registered class objects first.
class RegisteredClass
{
public:
    using Create = std::function<HRESULT(REFIID iid, void** object)>;

    RegisteredClass(REFCLSID classId, Create create);
    ~RegisteredClass();
    RegisteredClass(const RegisteredClass&) = delete;
    RegisteredClass& operator=(const RegisteredClass&) = delete;

private:
    DWORD m_cookie = 0;
};
