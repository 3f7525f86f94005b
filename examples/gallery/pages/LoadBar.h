#pragma once

#include <QWidget>

class QLabel;
class QProgressBar;
class QPushButton;

namespace gallery {

/// One line that tells how far loading has come, with a button to cancel it.
class LoadBar : public QWidget
{
    Q_OBJECT

public:
    LoadBar();
    ~LoadBar() override;

    /// Begins anew at 0 percent, with the file name `name`.
    void start(const QString& name);
    void setPercent(int percent);
    QPushButton& cancelButton() { return *m_cancel; }

Q_SIGNALS:
    void cancelled();

private:
    QLabel* m_label;
    QProgressBar* m_bar;
    QPushButton* m_cancel;
};

} // namespace gallery
