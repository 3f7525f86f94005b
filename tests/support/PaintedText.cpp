#include "PaintedText.h"

#include <QPaintDevice>
#include <QPaintEngine>
#include <QWidget>

namespace {

class TextEngine : public QPaintEngine
{
public:
    explicit TextEngine(QVector<PaintedText::Piece>& pieces)
        : QPaintEngine(AllFeatures)
        , m_pieces(pieces)
    {
    }

    bool begin(QPaintDevice*) override { return true; }
    bool end() override { return true; }
    void updateState(const QPaintEngineState&) override {}
    void drawPixmap(const QRectF&, const QPixmap&, const QRectF&) override {}
    void drawPath(const QPainterPath&) override {}
    void drawPolygon(const QPointF*, int, PolygonDrawMode) override {}
    Type type() const override { return User; }

    void drawTextItem(const QPointF& position, const QTextItem& item) override
    {
        const QPointF topLeft = painter()->combinedTransform().map(position) - QPointF(0, item.ascent());
        m_pieces.append({item.text(), QRectF(topLeft, QSizeF(item.width(), item.ascent() + item.descent()))});
    }

private:
    QVector<PaintedText::Piece>& m_pieces;
};

/// A paint device of the widget's size that records texts instead of drawing pixels.
class TextDevice : public QPaintDevice
{
public:
    TextDevice(const QWidget& widget, QVector<PaintedText::Piece>& pieces)
        : m_widget(widget)
        , m_engine(pieces)
    {
    }

    QPaintEngine* paintEngine() const override { return &m_engine; }

protected:
    int metric(PaintDeviceMetric metric) const override
    {
        switch (metric) {
        case PdmWidth:
            return m_widget.width();
        case PdmHeight:
            return m_widget.height();
        case PdmDpiX:
        case PdmPhysicalDpiX:
            return m_widget.logicalDpiX();
        case PdmDpiY:
        case PdmPhysicalDpiY:
            return m_widget.logicalDpiY();
        case PdmDepth:
            return 32;
        case PdmDevicePixelRatio:
            return 1;
        case PdmDevicePixelRatioScaled:
            return int(devicePixelRatioFScale());
        default:
            return QPaintDevice::metric(metric);
        }
    }

private:
    const QWidget& m_widget;
    mutable TextEngine m_engine;
};

} // namespace

PaintedText::PaintedText(QWidget& widget)
{
    TextDevice device(widget, m_pieces);
    widget.render(&device, QPoint(), QRegion(), QWidget::RenderFlags());
}

QString PaintedText::text() const
{
    QString all;
    for (const Piece& piece : m_pieces)
        all += piece.text;
    return all;
}

QRectF PaintedText::area() const
{
    QRectF all;
    for (const Piece& piece : m_pieces)
        all |= piece.area;
    return all;
}
