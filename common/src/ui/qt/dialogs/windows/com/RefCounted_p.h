#pragma once

#include "ui/qt/dialogs/windows/shellapi.h"

#include <atomic>

namespace zelmar::internal {

/// A base class that implements the reference count of an object with one or several interfaces. The count starts at 1;
/// the object deletes itself when the count reaches 0.
template <typename... Interfaces>
class RefCounted : public Interfaces...
{
public:
    RefCounted() = default;
    RefCounted(const RefCounted&) = delete;
    RefCounted& operator=(const RefCounted&) = delete;

    ULONG STDMETHODCALLTYPE AddRef() final { return ++m_references; }

    ULONG STDMETHODCALLTYPE Release() final
    {
        const ULONG left = --m_references;
        if (left == 0)
            delete this;
        return left;
    }

protected:
    virtual ~RefCounted() = default;

    /// Returns the offset of `Interface` in `object`, in bytes, for a table of interfaces.
    template <typename Interface, typename Object>
    static auto offsetOf(Object* object)
    {
        // dwOffset is an int in older SDKs and a DWORD in newer ones.
        return static_cast<decltype(QITAB::dwOffset)>(reinterpret_cast<char*>(static_cast<Interface*>(object))
                                                      - reinterpret_cast<char*>(object));
    }

private:
    std::atomic<ULONG> m_references{1};
};

} // namespace zelmar::internal
