#pragma once

#include <QToolButton>

namespace zelmar::internal {

/// A tool button that draws an arrow and a separating line instead of a frame, because it lies on another button.
/// Assistive technology knows it as a button that opens a menu.
class AcceptMenuArrow : public QToolButton
{
    Q_OBJECT

public:
    explicit AcceptMenuArrow(QWidget* button);

    int widthOnButton() const;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QColor shade(int alpha) const;
    void drawFocus(QPainter& painter);
};

} // namespace zelmar::internal
