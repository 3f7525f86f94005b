#pragma once

#include "ui/qt/dialogs/windows/shellapi.h"

namespace zelmar::internal {

/// A scope guard that enters the single-threaded apartment of this thread and leaves it at its end.
class Apartment
{
public:
    Apartment()
        : m_entered(SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED | COINIT_DISABLE_OLE1DDE)))
    {
    }
    ~Apartment()
    {
        if (m_entered)
            CoUninitialize();
    }
    Apartment(const Apartment&) = delete;
    Apartment& operator=(const Apartment&) = delete;

private:
    const bool m_entered;
};

} // namespace zelmar::internal
