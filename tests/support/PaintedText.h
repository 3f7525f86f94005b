#pragma once

#include <QRectF>
#include <QString>
#include <QVector>

class QWidget;

/// What a widget writes when it is painted: the letters themselves, in pieces, in the order in which they are painted,
/// which is from left to right.
class PaintedText
{
public:
    struct Piece
    {
        QString text;
        QRectF area; ///< in the widget
    };

    /// Paints `widget` as it is now.
    explicit PaintedText(QWidget& widget);

    const QVector<Piece>& pieces() const { return m_pieces; }
    /// All pieces in one. Each piece has its letters in the order of reading.
    QString text() const;
    /// What all pieces cover.
    QRectF area() const;

private:
    QVector<Piece> m_pieces;
};
