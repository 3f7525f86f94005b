#pragma once

/// Includes the shell's interfaces: on Windows the SDK's headers, elsewhere the library's own declarations of the
/// interfaces that the native dialog uses. Names, values and the order of virtual functions are the same.
///
/// An application can replace the system's dialog by its own object on every platform: it registers a class object with
/// CoRegisterClassObject().

#ifdef _WIN32

#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

#include <objbase.h>
#include <shlwapi.h>
#include <shobjidl.h>

#else

#include "ui/qt/dialogs/windows/shell/fileDialog.h"
#include "ui/qt/dialogs/windows/shell/objects.h"
#include "ui/qt/dialogs/windows/shell/results.h"
#include "ui/qt/dialogs/windows/shell/shellItems.h"
#include "ui/qt/dialogs/windows/shell/types.h"

#endif
