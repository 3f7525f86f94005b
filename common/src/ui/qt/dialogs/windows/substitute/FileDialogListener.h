#pragma once

#include "ui/qt/dialogs/windows/substitute/types.h"

#include <QStringList>

/// What a dialog on the screen tells of its user. None of this may throw: it is called out of Qt's event loop. All of
/// it may close the dialog, or destroy it by destroying its owner.
class FileDialogListener
{
public:
    /// Another folder is shown, or the first one.
    virtual void folderChanged() noexcept = 0;
    /// The user has picked another file type.
    virtual void typeChanged() noexcept = 0;
    /// The user is done; false keeps the dialog open.
    virtual bool mayAccept(const QStringList& files) noexcept = 0;

    virtual void buttonClicked(DWORD control) noexcept = 0;
    virtual void checkButtonToggled(DWORD control, bool checked) noexcept = 0;
    /// The user is about to be done by way of an item of the accept button's menu: mayAccept() comes next.
    virtual void itemSelected(DWORD menu, DWORD item) noexcept = 0;

protected:
    ~FileDialogListener() = default;
};
