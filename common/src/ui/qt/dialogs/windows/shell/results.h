#pragma once

#include "ui/qt/dialogs/windows/shell/types.h"

// The results of operations. A negative value is a failure.

constexpr bool SUCCEEDED(HRESULT result)
{
    return result >= 0;
}

constexpr bool FAILED(HRESULT result)
{
    return result < 0;
}

constexpr HRESULT S_OK = 0;
constexpr HRESULT S_FALSE = 1;
constexpr HRESULT E_NOTIMPL = static_cast<HRESULT>(0x80004001);
constexpr HRESULT E_NOINTERFACE = static_cast<HRESULT>(0x80004002);
constexpr HRESULT E_POINTER = static_cast<HRESULT>(0x80004003);
constexpr HRESULT E_FAIL = static_cast<HRESULT>(0x80004005);
constexpr HRESULT E_UNEXPECTED = static_cast<HRESULT>(0x8000FFFF);
constexpr HRESULT E_OUTOFMEMORY = static_cast<HRESULT>(0x8007000E);
constexpr HRESULT E_INVALIDARG = static_cast<HRESULT>(0x80070057);
constexpr HRESULT CLASS_E_NOAGGREGATION = static_cast<HRESULT>(0x80040110);
constexpr HRESULT REGDB_E_CLASSNOTREG = static_cast<HRESULT>(0x80040154);
constexpr HRESULT CO_E_NOTINITIALIZED = static_cast<HRESULT>(0x800401F0);
constexpr HRESULT RPC_E_CHANGED_MODE = static_cast<HRESULT>(0x80010106);

constexpr LONG ERROR_FILE_NOT_FOUND = 2;
constexpr LONG ERROR_CANCELLED = 1223;

/// Converts a system error code into a result.
constexpr HRESULT HRESULT_FROM_WIN32(LONG error)
{
    return error <= 0 ? error : static_cast<HRESULT>((static_cast<ULONG>(error) & 0xFFFFU) | 0x80070000U);
}
