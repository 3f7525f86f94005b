#pragma once

#include <memory>

namespace zelmar::internal {

/// During the lifetime of an object of this class, CoCreateInstance() creates file dialogs that the script in force
/// answers. Enters the apartment of the native dialogs meanwhile.
class ScriptedDialogClasses
{
public:
    ScriptedDialogClasses();
    ~ScriptedDialogClasses();
    ScriptedDialogClasses(const ScriptedDialogClasses&) = delete;
    ScriptedDialogClasses& operator=(const ScriptedDialogClasses&) = delete;

private:
    struct Registrations;
    const std::unique_ptr<Registrations> m_registrations;
};

/// Returns whether `dialog`, of the class IFileDialog, is such a dialog.
bool isScriptedDialogObject(const void* dialog);

} // namespace zelmar::internal
