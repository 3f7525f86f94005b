#pragma once

#include <QRectF>
#include <QString>
#include <QVector>

class QWidget;

/// The text that a widget draws when it is painted, in pieces in the order of drawing, which is from left to right.
class PaintedText
{
public:
    struct Piece
    {
        QString text;
        QRectF area; ///< in widget coordinates
    };

    /// Paints `widget` in its current state.
    explicit PaintedText(QWidget& widget);

    const QVector<Piece>& pieces() const { return m_pieces; }
    /// Returns the concatenated pieces. The characters of each piece are in reading order.
    QString text() const;
    /// Returns the bounding rectangle of all pieces.
    QRectF area() const;

private:
    QVector<Piece> m_pieces;
};
