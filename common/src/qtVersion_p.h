#pragma once

#include <QString>

// Contains all that differs between Qt 5 and Qt 6. No other source of the library asks for the version.

namespace zelmar::internal {

/// Returns an address at or shortly before the text's code units. Reads no memory except the QString object itself: in
/// Qt 5, constData() would read the header of the text's data.
inline const void* addressOfText(const QString& text)
{
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    return const_cast<QString&>(text).data_ptr();
#else
    return text.constData();
#endif
}

} // namespace zelmar::internal
