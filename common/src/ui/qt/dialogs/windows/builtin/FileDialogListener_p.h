#pragma once

#include "ui/qt/dialogs/windows/shellapi.h"

#include <QStringList>

namespace zelmar::internal {

/// An interface that is notified of the user's actions in a dialog. Its functions must not throw, because Qt's event
/// loop calls them. Each of them may close the dialog, or destroy it by destroying its owner.
class FileDialogListener
{
public:
    /// Called for the first folder that is shown, and whenever the folder changes.
    virtual void folderChanged() noexcept = 0;
    /// Called when the user has selected another file type.
    virtual void typeChanged() noexcept = 0;
    /// Called when the user accepts `files`. Returns false to keep the dialog open.
    virtual bool mayAccept(const QStringList& files) noexcept = 0;

    virtual void buttonClicked(DWORD control) noexcept = 0;
    virtual void checkButtonToggled(DWORD control, bool checked) noexcept = 0;
    /// Called right before mayAccept() if the user accepts the dialog by an item of the accept button's menu.
    virtual void itemSelected(DWORD menu, DWORD item) noexcept = 0;

protected:
    ~FileDialogListener() = default;
};

} // namespace zelmar::internal
