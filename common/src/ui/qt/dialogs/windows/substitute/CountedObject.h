#pragma once

#include "ui/qt/dialogs/windows/substitute/objects.h"

#include <atomic>

/// Counts the references of an object with one or several interfaces: one at construction, and with the last one it
/// deletes itself.
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

    /// Where `Interface` is in `object`, for a table of interfaces.
    template <typename Interface, typename Object>
    static int offsetOf(Object* object)
    {
        return static_cast<int>(reinterpret_cast<char*>(static_cast<Interface*>(object))
                                - reinterpret_cast<char*>(object));
    }

private:
    std::atomic<ULONG> m_references{1};
};
