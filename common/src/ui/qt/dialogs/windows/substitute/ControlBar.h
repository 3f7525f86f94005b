#pragma once

#include "ui/qt/dialogs/windows/substitute/ControlModel.h"

#include <QKeySequence>
#include <QSet>
#include <QWidget>

#include <map>
#include <vector>

class FileDialogListener;
class QAbstractButton;
class QDialogButtonBox;

/// The push buttons and check boxes that were added to a dialog, in a row; prominent ones in the button box of the
/// dialog.
class ControlBar : public QWidget
{
public:
    /// Borrows everything. Controls are there after the first update().
    ControlBar(ControlModel& model, FileDialogListener& listener, QDialogButtonBox& prominentPlace, QWidget* parent);

    /// Shows the controls as they are known now. Mnemonics in `taken` are not used.
    void update(QSet<QKeySequence> taken);

    /// The controls in the order of adding, the prominent ones among them.
    std::vector<QWidget*> inOrder() const;
    /// Whether there is any control to see, in the row or in the button box.
    bool isAnyShown() const;
    bool contains(const QAbstractButton* button) const;

private:
    QAbstractButton* buttonFor(const Control& control);
    QAbstractButton* makePushButton(DWORD id);
    QAbstractButton* makeCheckBox(DWORD id);
    void applyState(QAbstractButton& button, const Control& control);
    void putInPlace(QAbstractButton& button, bool prominent);

    ControlModel& m_model;
    FileDialogListener& m_listener;
    QDialogButtonBox& m_prominentPlace;
    std::map<DWORD, QAbstractButton*> m_buttons;
};
