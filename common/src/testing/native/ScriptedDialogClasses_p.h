#pragma once

#include <memory>

namespace zelmar::internal {

/// As long as an object of this class exists, CoCreateInstance() creates file dialogs that the script in force answers.
/// Enters the apartment of the native dialogs meanwhile. All objects share one registration, because the system refuses
/// a second one for the same class.
class ScriptedDialogClasses
{
public:
    ScriptedDialogClasses();
    ~ScriptedDialogClasses();
    ScriptedDialogClasses(const ScriptedDialogClasses&) = delete;
    ScriptedDialogClasses& operator=(const ScriptedDialogClasses&) = delete;

private:
    struct Registrations;
    static std::shared_ptr<Registrations> sharedRegistrations();

    const std::shared_ptr<Registrations> m_registrations;
};

/// Returns whether these class objects have created `dialog`, a pointer to an IFileDialog.
bool isScriptedDialogObject(const void* dialog);

} // namespace zelmar::internal
