#include "ui/qt/dialogs/windows/builtin/builtInClasses_p.h"

#include "ui/qt/dialogs/windows/builtin/FileDialogObject_p.h"

namespace zelmar::internal {

HRESULT createBuiltInObject(REFCLSID classId, REFIID iid, void** object)
{
    if (classId == CLSID_FileOpenDialog)
        return adopt<IFileDialog>(new FileOpenDialogObject)->QueryInterface(iid, object);
    if (classId == CLSID_FileSaveDialog)
        return adopt<IFileDialog>(new FileSaveDialogObject)->QueryInterface(iid, object);
    return REGDB_E_CLASSNOTREG;
}

} // namespace zelmar::internal
