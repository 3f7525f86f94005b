#pragma once

#include <cstdint>
#include <cstring>

// The shell's plain types, with the widths that they have on Windows. Strings consist of `wchar_t`, whose width is that
// of the compiler: two bytes on Windows, four elsewhere.

using BOOL = int;
using INT = int;
using UINT = unsigned int;
using LONG = std::int32_t;
using ULONG = std::uint32_t;
using DWORD = std::uint32_t;
using HRESULT = std::int32_t;
using WCHAR = wchar_t;
using LPWSTR = wchar_t*;
using LPCWSTR = const wchar_t*;

/// A window handle, which is the value of QWidget::winId() here.
using HWND = struct HwndTag*;

#ifndef TRUE
#define TRUE 1
#endif
#ifndef FALSE
#define FALSE 0
#endif

#ifndef STDMETHODCALLTYPE
#define STDMETHODCALLTYPE
#endif

struct GUID
{
    std::uint32_t Data1;
    std::uint16_t Data2;
    std::uint16_t Data3;
    std::uint8_t Data4[8];
};

inline bool operator==(const GUID& left, const GUID& right)
{
    return std::memcmp(&left, &right, sizeof(GUID)) == 0;
}

inline bool operator!=(const GUID& left, const GUID& right)
{
    return !(left == right);
}

using IID = GUID;
using CLSID = GUID;
using REFGUID = const GUID&;
using REFIID = const IID&;
using REFCLSID = const CLSID&;
