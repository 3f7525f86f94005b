#pragma once

#include <QLineEdit>

namespace zelmar::ui {

/// The text field of a ComboBoxAutoFilter. Return, Enter and Tab only finish editing. Losing the keyboard focus does
/// not finish it. The current completion is highlighted in the list of completions but does not replace the typed text.
class AutoFilterLineEdit : public QLineEdit
{
public:
    using QLineEdit::QLineEdit;

    /// Returns whether `event` is a press of Tab for which QWidget::event() would move the focus instead of calling
    /// keyPressEvent().
    static bool isTab(const QEvent& event);

    /// Makes `name`, the name of the box, the accessible name of the field, unless the application has set another one.
    void takeNameOfBox(const QString& name);

protected:
    bool event(QEvent* e) override;
    void keyPressEvent(QKeyEvent* e) override;
    void focusOutEvent(QFocusEvent* e) override;

private:
    void markCurrentCompletion();

    QString m_nameOfBox; ///< the accessible name that was taken from the box last
};

} // namespace zelmar::ui
