#pragma once

#include "ui/qt/dialogs/windows/shellapi.h"

namespace zelmar::internal {

/// Creates an object of a built-in class. Returns REGDB_E_CLASSNOTREG for any other class.
HRESULT createBuiltInObject(REFCLSID classId, REFIID iid, void** object);

} // namespace zelmar::internal
