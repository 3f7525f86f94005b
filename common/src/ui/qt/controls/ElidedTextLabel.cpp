#include "ui/qt/controls/ElidedTextLabel.h"

#include "compat/QxtLabelAccessible_p.h"
#include "ui/qt/controls/ElidedTextUtil_p.h"

ElidedTextLabel::ElidedTextLabel(QWidget* parent, Qt::WindowFlags flags)
    : QxtLabel(parent, flags)
{
    zelmar::internal::makeQxtLabelsAccessible();
    setAlignment(Qt::AlignLeft);
    setElideMode(Qt::ElideLeft);
}

ElidedTextLabel::~ElidedTextLabel() = default;

void ElidedTextLabel::paintEvent(QPaintEvent* event)
{
    QxtLabel::paintEvent(event);
    ElidedTextUtil().updateToolTip(this, contentsRect().width(), text(), text());
}
