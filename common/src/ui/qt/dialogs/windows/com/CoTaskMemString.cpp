#include "ui/qt/dialogs/windows/com/CoTaskMemString_p.h"

#include <algorithm>
#include <string>

namespace zelmar::internal {

CoTaskMemString makeCoTaskMemString(const QString& text)
{
    const std::wstring wide = text.toStdWString();
    CoTaskMemString copy(static_cast<LPWSTR>(CoTaskMemAlloc((wide.size() + 1) * sizeof(wchar_t))));
    if (copy)
        std::copy_n(wide.c_str(), wide.size() + 1, copy.get());
    return copy;
}

} // namespace zelmar::internal
