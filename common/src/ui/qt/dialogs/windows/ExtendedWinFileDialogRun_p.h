#pragma once

#include "ui/qt/dialogs/windows/ExtendedWinFileDialogImpl_p.h"
#include "ui/qt/dialogs/windows/com/Apartment_p.h"

#include <QMetaObject>

/// One call of exec(). An object of this class lives on the stack of exec() and keeps the dialog object and the
/// apartment until the shell's functions have returned, even if the owner is deleted meanwhile.
class ExtendedWinFileDialog::Impl::Run
{
public:
    /// Subscribes to the events of the dialog object of `owner`, which must have one. Cancels the run when the owner's
    /// parent is destroyed.
    explicit Run(Impl& owner);
    ~Run();
    Q_DISABLE_COPY(Run)

    /// Shows the dialog and waits until it is closed. Returns the result of IFileDialog::Show().
    HRESULT show();

    /// Closes the dialog and stops the delivery of its events.
    void cancel();
    /// Cancels the run and forgets the owner, which is being destroyed.
    void loseOwner();
    bool isCancelled() const { return m_cancelled; }

private:
    void letPortalShow();

    const zelmar::internal::Apartment m_apartment; // declared first, so that it is left last
    Impl* m_owner;
    const zelmar::internal::ComPtr<IFileDialog> m_dialog;
    zelmar::internal::ComPtr<IFileDialogEvents> m_events;
    DWORD m_cookie = 0;
    bool m_subscribed = false;
    bool m_cancelled = false;
    QMetaObject::Connection m_parentConnection;
};
