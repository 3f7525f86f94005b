#include "platform/utf8ToWideString.h"

#include <QString>

namespace zelmar {

std::wstring utf8ToWideString(const std::string& text)
{
    // Qt takes a leading U+FEFF for a byte order mark and drops it; behind a blank it is a character like any other.
    return QString::fromUtf8((" " + text).c_str(), static_cast<int>(text.size() + 1)).toStdWString().substr(1);
}

} // namespace zelmar
