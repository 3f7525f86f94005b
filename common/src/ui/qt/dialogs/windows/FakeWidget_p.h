#pragma once

#include "ui/qt/dialogs/windows/ExtendedWinFileDialogImpl_p.h"

#include <QWidget>

/// The handle of a control of the native dialog; a QWidget that never gets a window.
///
/// Showing, hiding, enabling or disabling the handle does the same to the control.
class ExtendedWinFileDialog::Impl::FakeWidget : public QWidget
{
public:
    enum class Kind { PushButton = 0, CheckButton = 1, AcceptMenuItem = 2 };

    /// Keeps a pointer to `dialog`, which must be null or outlive the handle. A menu item has the id `itemId` in the
    /// menu `controlId`; other controls ignore `itemId`.
    FakeWidget(IFileDialog* dialog, Kind kind, DWORD controlId, DWORD itemId);
    ~FakeWidget() override;

    DWORD itemId() const { return m_itemId; }

    /// Shows or hides the control. A handle that was never shown can still hide its control, which is visible from the
    /// start.
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
