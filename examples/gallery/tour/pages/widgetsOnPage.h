#pragma once

#include <QString>

class QAbstractButton;
class QLabel;
class QWidget;

namespace gallery {

/// Returns the button on `page` with this text, which contains no "&". Ends the program if there is none.
QAbstractButton& buttonOnPage(const QWidget& page, const QString& text);

/// Returns the label on `page` with this text, which contains no "&". Ends the program if there is none.
QLabel& labelOnPage(const QWidget& page, const QString& text);

/// Returns the widget that a label on `page` belongs to. Ends the program if there is none or if it has another class.
QWidget& widgetOfLabel(const QWidget& page, const QString& text);
template <typename Widget>
Widget& widgetOfLabel(const QWidget& page, const QString& text)
{
    return dynamic_cast<Widget&>(widgetOfLabel(page, text));
}

} // namespace gallery
