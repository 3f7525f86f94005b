#include "ui/qt/dialogs/windows/substitute/builtInClasses.h"

#include "ui/qt/dialogs/windows/substitute/results.h"

HRESULT createBuiltInObject(REFCLSID /*classId*/, REFIID /*iid*/, void** /*object*/)
{
    return REGDB_E_CLASSNOTREG;
}
