#include "platform/utf8ToWideString.h"

#include <QString>

namespace zelmar {

std::wstring utf8ToWideString(const std::string& text)
{
    // Qt drops a leading U+FEFF as a byte order mark. The blank in front makes it an ordinary character.
    return QString::fromUtf8((" " + text).c_str(), static_cast<int>(text.size() + 1)).toStdWString().substr(1);
}

} // namespace zelmar
