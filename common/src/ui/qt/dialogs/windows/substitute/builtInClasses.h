#pragma once

#include "ui/qt/dialogs/windows/substitute/objects.h"

/// Makes an object of a class that is always there; REGDB_E_CLASSNOTREG for any other.
HRESULT createBuiltInObject(REFCLSID classId, REFIID iid, void** object);
