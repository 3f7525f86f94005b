#pragma once

#include <cstddef>
#include <cstring>

/// The place (from 0) of a virtual function among those of its class, as callers in other libraries have it compiled
/// in: the compilers that we build with keep 1 + its offset in the pointer to it. Microsoft's does not: a test asks
/// systemLimits.h first.
template <typename Function>
std::size_t virtualSlot(Function function)
{
    std::size_t representation = 0;
    static_assert(sizeof(function) >= sizeof(representation), "a pointer to a member function is expected");
    std::memcpy(&representation, &function, sizeof(representation));
    return (representation - 1) / sizeof(void*);
}
