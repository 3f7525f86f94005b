#pragma once

#include <QLineEdit>

namespace zelmar::ui {

/// The text field of a ComboBoxAutoFilter: Return, Enter and Tab finish editing and do nothing else, losing the focus
/// does not, and the current completion is marked in the list without being written over what was typed.
class AutoFilterLineEdit : public QLineEdit
{
public:
    using QLineEdit::QLineEdit;

    /// Whether `event` is a press of Tab that QWidget would make into a change of focus before keyPressEvent() sees it.
    static bool isTab(const QEvent& event);

protected:
    bool event(QEvent* e) override;
    void keyPressEvent(QKeyEvent* e) override;
    void focusOutEvent(QFocusEvent* e) override;

private:
    void markCurrentCompletion();
};

} // namespace zelmar::ui
