#pragma once

#include "ui/qt/dialogs/windows/ExtendedWinFileDialogImpl.h"

#include <QWidget>

/// The handle of a control in the native dialog: shown, hidden, enabled and disabled, it makes the control so. It is a
/// widget in its dealings with the caller only, and never gets a window.
class ExtendedWinFileDialog::Impl::FakeWidget : public QWidget
{
public:
    enum class Kind { PushButton = 0, CheckButton = 1, AcceptMenuItem = 2 };

    /// Borrows `dialog`, which may be null. `itemId` counts for a menu item only; `controlId` is then the menu's.
    FakeWidget(IFileDialog* dialog, Kind kind, DWORD controlId, DWORD itemId);
    ~FakeWidget() override;

    DWORD itemId() const { return m_itemId; }

    /// Shows or hides the control; hiding counts from the start, too, when the control is seen and the handle is not.
    void setVisible(bool visible) override;

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void applyControlState(DWORD flag, bool on);

    IFileDialog* const m_dialog;
    const Kind m_kind;
    const DWORD m_controlId;
    const DWORD m_itemId;
};
