#include "widgetsOnPage.h"

#include <QAbstractButton>
#include <QLabel>

#include <algorithm>

namespace gallery {

namespace {

template <typename Widget>
Widget& withText(const QWidget& page, const QString& text)
{
    const QList<Widget*> widgets = page.findChildren<Widget*>();
    const auto found = std::find_if(widgets.begin(), widgets.end(), [&text](const Widget* widget) {
        return widget->text().remove(QLatin1Char('&')) == text;
    });
    if (found == widgets.end())
        qFatal("Nothing on the page has the text \"%s\"", qPrintable(text));
    return **found;
}

} // namespace

QAbstractButton& buttonOnPage(const QWidget& page, const QString& text)
{
    return withText<QAbstractButton>(page, text);
}

QLabel& labelOnPage(const QWidget& page, const QString& text)
{
    return withText<QLabel>(page, text);
}

QWidget& widgetOfLabel(const QWidget& page, const QString& text)
{
    QWidget* const widget = labelOnPage(page, text).buddy();
    if (!widget)
        qFatal("The label \"%s\" belongs to no widget", qPrintable(text));
    return *widget;
}

} // namespace gallery
