#include "ui/qt/controls/CorrectFontCommandLinkButton.h"

namespace zelmar::ui {

CorrectFontCommandLinkButton::CorrectFontCommandLinkButton(QWidget* parent)
    : QCommandLinkButton(parent)
{
}

CorrectFontCommandLinkButton::~CorrectFontCommandLinkButton() = default;

QSize CorrectFontCommandLinkButton::minimumSizeHint() const
{
    return QCommandLinkButton::sizeHint();
}

} // namespace zelmar::ui
