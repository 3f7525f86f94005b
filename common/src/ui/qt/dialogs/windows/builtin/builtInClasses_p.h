#pragma once

#include "ui/qt/dialogs/windows/shellapi.h"

namespace zelmar::internal {

/// Makes an object of one of the built-in classes. Returns REGDB_E_CLASSNOTREG for any other class.
HRESULT createBuiltInObject(REFCLSID classId, REFIID iid, void** object);

} // namespace zelmar::internal
