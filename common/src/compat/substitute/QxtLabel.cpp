#include "compat/substitute/QxtLabel.h"

#include "compat/QxtLabelAccessible.h"

#include <QAccessible>
#include <QFontMetrics>
#include <QPainter>
#include <QStyle>

namespace {

bool breaksTheLine(QChar letter)
{
    const QChar::Category category = letter.category();
    return category == QChar::Other_Control || category == QChar::Separator_Line
           || category == QChar::Separator_Paragraph;
}

/// `text` as it can stand in one line.
QString inOneLine(QString text)
{
    text.replace(QStringLiteral("\r\n"), QStringLiteral(" "));
    for (QChar& letter : text) {
        if (breaksTheLine(letter))
            letter = QLatin1Char(' ');
    }
    return text;
}

/// However the font writes an ellipsis: as one letter, or as three dots.
int ellipsisWidth(const QFontMetrics& metrics)
{
    return qMax(metrics.horizontalAdvance(QChar(0x2026)), metrics.horizontalAdvance(QStringLiteral("...")));
}

} // namespace

struct QxtLabel::Impl
{
    QxtLabel& label;
    QString text = {};
    QString line = {}; ///< the text in one line
    Qt::Alignment alignment = Qt::AlignLeft | Qt::AlignVCenter;
    Qt::TextElideMode elideMode = Qt::ElideRight;

    int lineWidth() const { return label.fontMetrics().horizontalAdvance(line); }

    /// Whether it fits is asked in whole pixels, and first: QFontMetrics::elidedText() minds fractions, and so elides a
    /// text in the very width that horizontalAdvance() says it has.
    QString shownText(int width) const
    {
        return elideMode == Qt::ElideNone || lineWidth() <= width ? line : elidedText(width);
    }

    /// A blank between letters of two fonts may be wider in what is left than it was in the whole: then there is less
    /// room than Qt has counted with.
    QString elidedText(int width) const
    {
        const QFontMetrics metrics = label.fontMetrics();
        QString elided = metrics.elidedText(line, elideMode, width);
        for (int room = width - 1; room > 0 && metrics.horizontalAdvance(elided) > width; --room)
            elided = metrics.elidedText(line, elideMode, room);
        return elided;
    }

    /// The direction of the whole text holds for what is left of it, which may begin in the other one.
    int drawingFlags() const
    {
        const Qt::Alignment sides = QStyle::visualAlignment(label.layoutDirection(), alignment);
        const int direction = line.isRightToLeft() ? Qt::TextForceRightToLeft : Qt::TextForceLeftToRight;
        return int(sides) | Qt::TextSingleLine | direction;
    }

    /// Around `textWidth` pixels of the text, which may have letters of other fonts, and larger ones.
    QSize sizeAround(int textWidth) const
    {
        const QFontMetrics metrics = label.fontMetrics();
        const int height = qMax(metrics.height(), metrics.size(Qt::TextSingleLine, line).height());
        const QMargins margins = label.contentsMargins();
        return {textWidth + margins.left() + margins.right(), height + margins.top() + margins.bottom()};
    }
};

QxtLabel::QxtLabel(QWidget* parent, Qt::WindowFlags flags)
    : QFrame(parent, flags)
    , m_impl(new Impl{*this})
{
    makeQxtLabelsAccessible();
}

QxtLabel::~QxtLabel() = default;

QString QxtLabel::text() const
{
    return m_impl->text;
}

void QxtLabel::setText(const QString& text)
{
    if (text == m_impl->text)
        return;
    m_impl->text = text;
    m_impl->line = inOneLine(text);
    updateGeometry();
    update();
    QAccessibleEvent nameChange(this, QAccessible::NameChanged);
    QAccessible::updateAccessibility(&nameChange);
}

Qt::Alignment QxtLabel::alignment() const
{
    return m_impl->alignment;
}

void QxtLabel::setAlignment(Qt::Alignment alignment)
{
    m_impl->alignment = alignment;
    update();
}

Qt::TextElideMode QxtLabel::elideMode() const
{
    return m_impl->elideMode;
}

void QxtLabel::setElideMode(Qt::TextElideMode mode)
{
    m_impl->elideMode = mode;
    update();
}

QSize QxtLabel::sizeHint() const
{
    return m_impl->sizeAround(m_impl->lineWidth());
}

QSize QxtLabel::minimumSizeHint() const
{
    return m_impl->sizeAround(qMin(m_impl->lineWidth(), ellipsisWidth(fontMetrics())));
}

void QxtLabel::paintEvent(QPaintEvent* event)
{
    QFrame::paintEvent(event);
    const QRect area = contentsRect();
    QPainter painter(this);
    style()->drawItemText(&painter, area, m_impl->drawingFlags(), palette(), isEnabled(),
                          m_impl->shownText(area.width()), foregroundRole());
}
