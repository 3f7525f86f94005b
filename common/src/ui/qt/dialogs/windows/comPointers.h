#pragma once

#include "ui/qt/dialogs/windows/shellapi.h"

#include <boost/smart_ptr/intrusive_ptr.hpp>

#include <memory>

// Holders that give back what the shell hands out.

inline void intrusive_ptr_add_ref(IUnknown* object)
{
    object->AddRef();
}

inline void intrusive_ptr_release(IUnknown* object)
{
    object->Release();
}

/// One counted reference to an object.
template <typename Interface>
using ComPointer = boost::intrusive_ptr<Interface>;

/// Takes over the reference that an operation has put into an output argument; it may be null.
template <typename Interface>
ComPointer<Interface> adopt(Interface* counted)
{
    return ComPointer<Interface>(counted, false);
}

/// Another interface of `object`; null when there is none, or no object.
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

/// A text that was allocated by whoever handed it out.
using TaskText = std::unique_ptr<wchar_t, TaskMemoryDeleter>;
