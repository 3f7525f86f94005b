#include "ui/qt/dialogs/windows/FakeWidget_p.h"

#include <QCoreApplication>
#include <QEvent>
#include <QHideEvent>
#include <QShowEvent>

using namespace zelmar::internal;

static_assert(int(CDCS_ENABLED) == 1 && int(CDCS_VISIBLE) == 2, "one set of bits serves controls and menu items");

ExtendedWinFileDialog::Impl::FakeWidget::FakeWidget(IFileDialog* dialog, Kind kind, DWORD controlId, DWORD itemId)
    : QWidget(nullptr, Qt::WindowFlags())
    , m_dialog(dialog)
    , m_kind(kind)
    , m_controlId(controlId)
    , m_itemId(itemId)
{
    setAttribute(Qt::WA_QuitOnClose, false); // a visible handle must not keep the application running
}

ExtendedWinFileDialog::Impl::FakeWidget::~FakeWidget()
{
    setAttribute(Qt::WA_WState_Visible, false); // otherwise QWidget would hide a window that was never created
}

/// Updates the same state and sends the same events as QWidget::setVisible(), but creates no window.
void ExtendedWinFileDialog::Impl::FakeWidget::setVisible(bool visible)
{
    if (testAttribute(Qt::WA_WState_ExplicitShowHide) && isVisible() == visible)
        return;
    setAttribute(Qt::WA_WState_ExplicitShowHide);
    setAttribute(Qt::WA_WState_Hidden, !visible);
    setAttribute(Qt::WA_WState_Visible, visible);
    QShowEvent shown;
    QHideEvent hidden;
    QCoreApplication::sendEvent(this, visible ? static_cast<QEvent*>(&shown) : &hidden);
}

void ExtendedWinFileDialog::Impl::FakeWidget::showEvent(QShowEvent* /*event*/)
{
    applyControlState(CDCS_VISIBLE, true);
}

void ExtendedWinFileDialog::Impl::FakeWidget::hideEvent(QHideEvent* /*event*/)
{
    applyControlState(CDCS_VISIBLE, false);
}

void ExtendedWinFileDialog::Impl::FakeWidget::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::EnabledChange)
        applyControlState(CDCS_ENABLED, isEnabled());
}

void ExtendedWinFileDialog::Impl::FakeWidget::applyControlState(DWORD flag, bool on)
{
    const auto customize = queryFor<IFileDialogCustomize>(IID_IFileDialogCustomize, m_dialog);
    if (!customize)
        return;
    const bool isItem = m_kind == Kind::AcceptMenuItem;
    CDCONTROLSTATEF state = CDCS_INACTIVE;
    const HRESULT read = isItem ? customize->GetControlItemState(m_controlId, m_itemId, &state)
                                : customize->GetControlState(m_controlId, &state);
    if (FAILED(read))
        return; // writing back a state that was not read would clear the other bit
    const auto bits = static_cast<DWORD>(state);
    state = static_cast<CDCONTROLSTATEF>(on ? bits | flag : bits & ~flag);
    if (isItem)
        customize->SetControlItemState(m_controlId, m_itemId, state);
    else
        customize->SetControlState(m_controlId, state);
}
