#pragma once

#include "ui/qt/dialogs/windows/shellapi.h"

#include <boost/smart_ptr/intrusive_ptr.hpp>

#include <memory>

// Owners of references and memory that the shell hands out.

inline void intrusive_ptr_add_ref(IUnknown* object)
{
    object->AddRef();
}

inline void intrusive_ptr_release(IUnknown* object)
{
    object->Release();
}

/// Holds one reference to a COM object and releases it at its end.
template <typename Interface>
using ComPointer = boost::intrusive_ptr<Interface>;

/// Takes ownership of the reference that a call has put into an output argument, which may be null.
template <typename Interface>
ComPointer<Interface> adopt(Interface* counted)
{
    return ComPointer<Interface>(counted, false);
}

/// Returns another interface of `object`. Null when the object does not have it, or is null itself.
template <typename Interface>
ComPointer<Interface> queryFor(REFIID iid, IUnknown* object)
{
    void* found = nullptr;
    if (!object || FAILED(object->QueryInterface(iid, &found)))
        return nullptr;
    return adopt(static_cast<Interface*>(found));
}

struct TaskMemoryDeleter
{
    void operator()(void* memory) const { CoTaskMemFree(memory); }
};

/// Owns a string that the called object allocated with CoTaskMemAlloc().
using TaskText = std::unique_ptr<wchar_t, TaskMemoryDeleter>;
