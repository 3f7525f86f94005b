#pragma once

#include "RegisteredClass.h"

#include <QString>

#include <memory>
#include <vector>

/// Looks at the system's file dialogs from the inside: while this object is there, those that CoCreateInstance() makes
/// are the system's own behind a thin front, which counts who refers to it and remembers who is advised.
///
/// Belongs to the apartment in which it was made, which must be a single-threaded one.
class ObservedShell
{
public:
    ObservedShell();
    ~ObservedShell();
    ObservedShell(const ObservedShell&) = delete;
    ObservedShell& operator=(const ObservedShell&) = delete;

    /// The last dialog that was made, as long as it is there.
    IFileDialog* dialog() const { return m_dialog; }
    FILEOPENDIALOGOPTIONS options() const;
    /// Its folder, with slashes.
    QString folder() const;

    int made = 0;                 ///< dialogs
    int gone = 0;                 ///< of them
    ULONG systemReferences = 0;   ///< to the system's dialogs, left over from those that are gone
    std::vector<DWORD> advised;   ///< the cookies, in order
    std::vector<DWORD> unadvised; ///< likewise

    /// Everybody's references to the dialog that is there; 0 for none.
    ULONG references() const;

    /// Everybody else's references to those who were ever advised. The shell's own, which keep them, go.
    ULONG releaseAdvised();

private:
    class Front;

    std::unique_ptr<RegisteredClass> makeClass(REFCLSID classId);

    IFileDialog* m_dialog = nullptr;
    std::vector<ComPointer<IFileDialogEvents>> m_advised;
    std::unique_ptr<RegisteredClass> m_openClass;
    std::unique_ptr<RegisteredClass> m_saveClass;
};
