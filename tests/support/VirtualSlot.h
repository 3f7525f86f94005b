#pragma once

#include <cstddef>
#include <cstring>

/// Returns the 0-based vtable slot of a virtual function, which callers in other libraries have compiled in. With the
/// Itanium ABI a member pointer contains 1 + the offset of the slot. Microsoft's compiler differs, so a test checks
/// systemLimits::noVirtualSlots first.
template <typename Function>
std::size_t virtualSlot(Function function)
{
    std::size_t representation = 0;
    static_assert(sizeof(function) >= sizeof(representation), "a pointer to a member function is expected");
    std::memcpy(&representation, &function, sizeof(representation));
    return (representation - 1) / sizeof(void*);
}
