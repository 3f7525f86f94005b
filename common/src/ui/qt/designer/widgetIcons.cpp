#include "ui/qt/designer/widgetIcons_p.h"

#include <QFont>
#include <QGuiApplication>
#include <QIcon>
#include <QPainter>
#include <QPalette>
#include <QPixmap>

namespace zelmar::internal {

namespace {

constexpr int units = 22;

QPixmap drawnPixmap(DrawIcon draw, int side)
{
    QPixmap result(side, side);
    result.fill(Qt::transparent);
    QPainter painter(&result);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(qreal(side) / units, qreal(side) / units);
    draw(painter, QGuiApplication::palette());
    return result;
}

void drawText(QPainter& painter, const QPalette& palette, const QRectF& area, const QString& text)
{
    QFont font = painter.font();
    font.setPixelSize(10);
    font.setBold(true);
    painter.setFont(font);
    painter.setPen(palette.color(QPalette::WindowText));
    painter.drawText(area, Qt::AlignCenter, text);
}

void drawFrame(QPainter& painter, const QPalette& palette)
{
    painter.setPen(palette.color(QPalette::WindowText));
    painter.setBrush(palette.color(QPalette::Base));
    painter.drawRoundedRect(QRectF(0.5, 3.5, 21, 15), 2, 2);
}

void fill(QPainter& painter, const QPalette& palette, const QPolygonF& shape)
{
    painter.setPen(Qt::NoPen);
    painter.setBrush(palette.color(QPalette::Highlight));
    painter.drawPolygon(shape);
}

void drawSpinBox(QPainter& painter, const QPalette& palette, const QString& text)
{
    drawFrame(painter, palette);
    fill(painter, palette, QPolygonF({{16, 10}, {20, 10}, {18, 6.5}}));
    fill(painter, palette, QPolygonF({{16, 12}, {20, 12}, {18, 15.5}}));
    drawText(painter, palette, QRectF(2, 3.5, 13, 15), text);
}

} // namespace

void drawElidedText(QPainter& painter, const QPalette& palette)
{
    painter.setPen(Qt::NoPen);
    painter.setBrush(palette.color(QPalette::Highlight));
    for (const qreal x : {2.5, 5.5, 8.5})
        painter.drawEllipse(QPointF(x, 14.5), 1.2, 1.2);
    drawText(painter, palette, QRectF(10, 4, 12, 14), QStringLiteral("ab"));
}

void drawFilteredChoice(QPainter& painter, const QPalette& palette)
{
    drawFrame(painter, palette);
    fill(painter, palette, QPolygonF({{14, 9.5}, {20, 9.5}, {17, 13}}));
    // A funnel.
    painter.setBrush(palette.color(QPalette::WindowText));
    painter.drawPolygon(QPolygonF({{3, 6.5}, {12, 6.5}, {8.5, 10.5}, {8.5, 15.5}, {6.5, 14}, {6.5, 10.5}}));
}

void drawCommandLink(QPainter& painter, const QPalette& palette)
{
    fill(painter, palette, QPolygonF({{1, 6}, {5, 6}, {5, 3.5}, {9.5, 7.5}, {5, 11.5}, {5, 9}, {1, 9}}));
    painter.setBrush(palette.color(QPalette::WindowText));
    painter.drawRect(QRectF(11, 6, 10, 3));
    painter.drawRect(QRectF(11, 12, 10, 1));
    painter.drawRect(QRectF(11, 15, 7, 1));
}

void drawInteger(QPainter& painter, const QPalette& palette)
{
    drawSpinBox(painter, palette, QStringLiteral("12"));
}

void drawScientificNumber(QPainter& painter, const QPalette& palette)
{
    drawSpinBox(painter, palette, QStringLiteral("E3"));
}

QIcon drawnIcon(DrawIcon draw)
{
    // Uses pixmaps, because the widget box ignores an icon that does not know its sizes.
    QIcon icon;
    for (const int side : {16, 22, 24, 32, 44, 48, 64})
        icon.addPixmap(drawnPixmap(draw, side));
    return icon;
}

} // namespace zelmar::internal
