#pragma once

#include "internal_export_p.h"
#include "ui/qt/dialogs/windows/shellapi.h"

#include <QString>

#include <memory>

namespace zelmar::internal {

struct CoTaskMemDeleter
{
    void operator()(void* memory) const { CoTaskMemFree(memory); }
};

/// A smart pointer that owns a string that was allocated with CoTaskMemAlloc().
using CoTaskMemString = std::unique_ptr<wchar_t, CoTaskMemDeleter>;

/// Returns a copy of `text`, or null if memory is exhausted.
COMMON_UI_QT_INTERNAL_EXPORT CoTaskMemString makeCoTaskMemString(const QString& text);

/// Returns `text` as a QString, which is empty if `text` is null.
inline QString textOf(LPCWSTR text)
{
    return text ? QString::fromWCharArray(text) : QString();
}

} // namespace zelmar::internal
