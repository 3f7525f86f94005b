#pragma once

#include "ui/qt/dialogs/windows/substitute/objects.h"

#include <atomic>

/// A base class that implements the reference count of an object with one or several interfaces. The count starts at 1;
/// the object deletes itself when the count reaches 0.
template <typename... Interfaces>
class CountedObject : public Interfaces...
{
public:
    CountedObject() = default;
    CountedObject(const CountedObject&) = delete;
    CountedObject& operator=(const CountedObject&) = delete;

    ULONG STDMETHODCALLTYPE AddRef() final { return ++m_references; }

    ULONG STDMETHODCALLTYPE Release() final
    {
        const ULONG left = --m_references;
        if (left == 0)
            delete this;
        return left;
    }

protected:
    virtual ~CountedObject() = default;

    /// Returns the offset of `Interface` in `object`, in bytes, for a table of interfaces.
    template <typename Interface, typename Object>
    static int offsetOf(Object* object)
    {
        return static_cast<int>(reinterpret_cast<char*>(static_cast<Interface*>(object))
                                - reinterpret_cast<char*>(object));
    }

private:
    std::atomic<ULONG> m_references{1};
};
