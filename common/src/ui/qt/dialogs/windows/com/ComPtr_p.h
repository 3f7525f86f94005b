#pragma once

#include "ui/qt/dialogs/windows/shellapi.h"

#include <boost/smart_ptr/intrusive_ptr.hpp>

#include <type_traits>

// boost::intrusive_ptr looks these functions up in the namespace of IUnknown. They are templates, because a pointer to
// an object with several interfaces does not convert to IUnknown.
template <typename Object>
std::enable_if_t<std::is_base_of<IUnknown, Object>::value> intrusive_ptr_add_ref(Object* object)
{
    object->AddRef();
}

template <typename Object>
std::enable_if_t<std::is_base_of<IUnknown, Object>::value> intrusive_ptr_release(Object* object)
{
    object->Release();
}

namespace zelmar::internal {

/// A smart pointer that holds one reference to a COM object and releases it at its end.
template <typename Interface>
using ComPtr = boost::intrusive_ptr<Interface>;

/// Takes ownership of a reference that was counted already, for example in an output argument of a call. The pointer
/// may be null.
template <typename Interface>
ComPtr<Interface> adopt(Interface* counted)
{
    return ComPtr<Interface>(counted, false);
}

/// Returns another interface of `object`, or null if the object is null or does not implement it.
template <typename Interface>
ComPtr<Interface> queryFor(REFIID iid, IUnknown* object)
{
    void* found = nullptr;
    if (!object || FAILED(object->QueryInterface(iid, &found)))
        return nullptr;
    return adopt(static_cast<Interface*>(found));
}

} // namespace zelmar::internal
