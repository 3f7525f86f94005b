#pragma once

#include "ui/qt/dialogs/windows/builtin/ControlModel_p.h"

#include <QKeySequence>
#include <QSet>
#include <QWidget>

#include <map>
#include <vector>

class QAbstractButton;
class QDialogButtonBox;

namespace zelmar::internal {

class FileDialogListener;

/// A row with the push buttons and check boxes that were added to a dialog. Prominent buttons move to the dialog's
/// button box.
class ControlBar : public QWidget
{
public:
    /// Keeps references to all arguments except `parent`, which becomes the parent widget. The first update() creates
    /// the controls.
    ControlBar(ControlModel& model, FileDialogListener& listener, QDialogButtonBox& prominentPlace, QWidget* parent);

    /// Creates missing controls and shows the current state of the model. A control in the row is shown without its
    /// mnemonic if that is in `taken`; the application has to avoid conflicts among its own labels. A prominent control
    /// gets another letter of its label as its mnemonic if its own one is in `taken` or used in the row.
    void update(const QSet<QKeySequence>& taken);

    /// Returns all controls, also the prominent ones, in the order in which they were added.
    std::vector<QWidget*> inOrder() const;
    /// Returns whether any control is shown, in the row or in the button box.
    bool isAnyShown() const;
    /// Returns whether `button` is one of the added controls.
    bool contains(const QAbstractButton& button) const;

private:
    QSet<QKeySequence> mnemonicsOfRow(const QSet<QKeySequence>& taken) const;
    QAbstractButton* buttonFor(const Control& control);
    QAbstractButton* makePushButton(DWORD id);
    QAbstractButton* makeCheckBox(DWORD id);
    void applyState(QAbstractButton& button, const Control& control);
    void moveToButtonBox(QAbstractButton& button);

    ControlModel& m_model;
    FileDialogListener& m_listener;
    QDialogButtonBox& m_prominentPlace;
    std::map<DWORD, QAbstractButton*> m_buttons;
};

} // namespace zelmar::internal
