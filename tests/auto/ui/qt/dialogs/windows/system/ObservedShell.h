#pragma once

#include "RegisteredClass.h"
#include "ui/qt/dialogs/windows/com/Apartment_p.h"
#include "ui/qt/dialogs/windows/com/ComPtr_p.h"

#include <QString>

#include <memory>
#include <vector>

/// An observer of the system's file dialogs. While it exists, CoCreateInstance() wraps each dialog of the system in a
/// thin front object, which counts its references and records the event sinks and their cookies.
///
/// Must be created in a single-threaded apartment, and used and destroyed there.
class ObservedShell
{
public:
    ObservedShell();
    ~ObservedShell();
    ObservedShell(const ObservedShell&) = delete;
    ObservedShell& operator=(const ObservedShell&) = delete;

    /// Returns the dialog that was created last, or null after it has been destroyed.
    IFileDialog* dialog() const { return m_dialog; }
    FILEOPENDIALOGOPTIONS options() const;
    /// Returns the folder of that dialog, with slashes.
    QString folder() const;

    int made = 0;                 ///< number of dialogs that were created
    int gone = 0;                 ///< number of those that were destroyed
    ULONG systemReferences = 0;   ///< references to the system's dialogs that destroyed front objects left behind
    std::vector<DWORD> advised;   ///< the cookies of Advise(), in order
    std::vector<DWORD> unadvised; ///< the cookies of Unadvise(), in order

    /// Returns the reference count of the existing dialog; 0 when there is none.
    ULONG references() const;

    /// Releases the observer's references to all event sinks that were ever advised. Returns the number of references
    /// to them that others still hold.
    ULONG releaseAdvised();

private:
    class Front;

    std::unique_ptr<RegisteredClass> makeClass(REFCLSID classId);

    const zelmar::internal::Apartment m_apartment;
    IFileDialog* m_dialog = nullptr;
    std::vector<zelmar::internal::ComPtr<IFileDialogEvents>> m_advised;
    std::unique_ptr<RegisteredClass> m_openClass;
    std::unique_ptr<RegisteredClass> m_saveClass;
};
