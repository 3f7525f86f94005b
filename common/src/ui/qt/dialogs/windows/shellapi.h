#pragma once

/// The one switch between the shell's own interfaces and ours: the SDK's headers on Windows, and elsewhere declarations
/// of what the native dialog uses, under the same names, with the same order of operations and the same values.
///
/// For whoever puts a dialog object of their own in the place of the system's: register a class object with
/// CoRegisterClassObject(), on every platform in the same way.

#ifdef _WIN32

#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

#include <objbase.h>
#include <shlwapi.h>
#include <shobjidl.h>

#else

#include "ui/qt/dialogs/windows/substitute/fileDialog.h"
#include "ui/qt/dialogs/windows/substitute/objects.h"
#include "ui/qt/dialogs/windows/substitute/results.h"
#include "ui/qt/dialogs/windows/substitute/shellItems.h"
#include "ui/qt/dialogs/windows/substitute/types.h"

#endif
