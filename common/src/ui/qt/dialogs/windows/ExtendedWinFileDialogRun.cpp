#include "ui/qt/dialogs/windows/ExtendedWinFileDialogRun_p.h"

#include "ui/qt/dialogs/ScriptedUser_p.h"
#include "ui/qt/dialogs/windows/ExtendedWinFileDialogEventHandler_p.h"
#include "ui/qt/dialogs/windows/portalSeam_p.h"

#include <QWidget>

namespace {

HWND windowOf(const QWidget* widget)
{
    return widget ? reinterpret_cast<HWND>(widget->winId()) : nullptr; // NOLINT(performance-no-int-to-ptr): a handle
}

} // namespace

ExtendedWinFileDialog::Impl::Run::Run(Impl& owner)
    : m_owner(&owner)
    , m_dialog(owner.m_dialog)
{
    ExtendedWinFileDialogEventHandler::create(owner, m_events);
    m_subscribed = m_events && SUCCEEDED(m_dialog->Advise(m_events.get(), &m_cookie));
    letPortalShow();
    if (owner.m_parent)
        m_parentConnection = QObject::connect(owner.m_parent, &QObject::destroyed, [this] { cancel(); });
    owner.m_run = this;
}

/// Tells a dialog object that can let a portal show the dialog that this class needs no events before the user's
/// answer.
void ExtendedWinFileDialog::Impl::Run::letPortalShow()
{
    using namespace zelmar::internal;
    if (const auto seam = queryFor<PortalSeam>(IID_PortalSeam, m_dialog.get()))
        seam->acceptLateEvents(m_cookie);
}

ExtendedWinFileDialog::Impl::Run::~Run()
{
    if (m_owner)
        m_owner->m_run = nullptr;
    QObject::disconnect(m_parentConnection);
    ExtendedWinFileDialogEventHandler::forgetOwner(m_events.get()); // the shell may hold it longer than this run
    if (m_subscribed)
        m_dialog->Unadvise(m_cookie);
}

HRESULT ExtendedWinFileDialog::Impl::Run::show()
{
    zelmar::internal::ScriptedUser* const scriptedUser = zelmar::internal::ScriptedUser::current();
    if (scriptedUser && !scriptedUser->mayShow(m_dialog.get()))
        return HRESULT_FROM_WIN32(ERROR_CANCELLED);
    return m_dialog->Show(windowOf(m_owner->m_parent));
}

void ExtendedWinFileDialog::Impl::Run::cancel()
{
    if (m_cancelled)
        return;
    m_cancelled = true;
    ExtendedWinFileDialogEventHandler::forgetOwner(m_events.get());
    m_dialog->Close(HRESULT_FROM_WIN32(ERROR_CANCELLED));
}

void ExtendedWinFileDialog::Impl::Run::loseOwner()
{
    m_owner = nullptr;
    cancel();
}
