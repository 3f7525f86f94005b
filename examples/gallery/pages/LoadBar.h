#pragma once

#include <QWidget>

class QLabel;
class QProgressBar;
class QPushButton;

namespace gallery {

/// A line with the progress of loading and a button that cancels it.
class LoadBar : public QWidget
{
    Q_OBJECT

public:
    LoadBar();
    ~LoadBar() override;

    /// Starts again at 0 percent with the file name `name`.
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
