#pragma once

#include <QWidget>

class QPlainTextEdit;
class QToolButton;

namespace gallery {

/// A button that shows and hides code below it, which can be selected and copied.
class CodeArea : public QWidget
{
    Q_OBJECT

public:
    explicit CodeArea(const QString& code);
    ~CodeArea() override;

protected:
    void changeEvent(QEvent* event) override;

private:
    void addWidgets();
    void showCode(bool on);
    void showArrow();
    void copyAll();

    QToolButton* m_button;
    QWidget* m_panel; ///< holds the code and is hidden at first
    QPlainTextEdit* m_text;
};

} // namespace gallery
