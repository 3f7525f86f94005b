#include "compat/substitute/QxtLabel.h"

#include "compat/QxtLabelAccessible_p.h"

#include <QAccessible>
#include <QFontMetrics>
#include <QPainter>
#include <QStyle>

namespace {

bool isControlOrLineBreak(QChar codeUnit)
{
    const QChar::Category category = codeUnit.category();
    return category == QChar::Other_Control || category == QChar::Separator_Line
           || category == QChar::Separator_Paragraph;
}

/// Returns `text` with each line break and control character replaced by a blank, and CR LF by a single one.
QString toSingleLine(QString text)
{
    text.replace(QStringLiteral("\r\n"), QStringLiteral(" "));
    for (QChar& codeUnit : text) {
        if (isControlOrLineBreak(codeUnit))
            codeUnit = QLatin1Char(' ');
    }
    return text;
}

/// Returns the width of an ellipsis in pixels, whether it is drawn as U+2026 or as three dots.
int ellipsisWidth(const QFontMetrics& metrics)
{
    return qMax(metrics.horizontalAdvance(QChar(0x2026)), metrics.horizontalAdvance(QStringLiteral("...")));
}

} // namespace

struct QxtLabel::Impl
{
    QxtLabel& label;
    QString text = {};
    QString line = {}; ///< the text as a single line
    Qt::Alignment alignment = Qt::AlignLeft | Qt::AlignVCenter;
    Qt::TextElideMode elideMode = Qt::ElideRight;

    int lineWidth() const { return label.fontMetrics().horizontalAdvance(line); }

    /// Returns the text to draw in `width` pixels. Compares whole pixels before eliding, because
    /// QFontMetrics::elidedText() counts fractions and would elide a text in exactly its horizontalAdvance().
    QString shownText(int width) const
    {
        return elideMode == Qt::ElideNone || lineWidth() <= width ? line : elidedText(width);
    }

    /// Returns the line elided to at most `width` pixels. A blank between characters of two fonts can become wider by
    /// eliding, which Qt does not take into account. The loop then elides to a smaller width.
    QString elidedText(int width) const
    {
        const QFontMetrics metrics = label.fontMetrics();
        QString elided = metrics.elidedText(line, elideMode, width);
        for (int reduced = width - 1; reduced > 0 && metrics.horizontalAdvance(elided) > width; --reduced)
            elided = metrics.elidedText(line, elideMode, reduced);
        return elided;
    }

    /// Returns the flags for drawing. They force the direction of the full text, because the elided text may begin with
    /// characters of the other direction.
    int drawingFlags() const
    {
        const Qt::Alignment visual = QStyle::visualAlignment(label.layoutDirection(), alignment);
        const int direction = line.isRightToLeft() ? Qt::TextForceRightToLeft : Qt::TextForceLeftToRight;
        return int(visual) | Qt::TextSingleLine | direction;
    }

    /// Returns the size of the label for `textWidth` pixels of text. The height includes fallback fonts, whose
    /// characters may be taller than those of the label's font.
    QSize sizeAround(int textWidth) const
    {
        const QFontMetrics metrics = label.fontMetrics();
        const int height = qMax(metrics.height(), metrics.size(Qt::TextSingleLine, line).height());
        const QMargins margins = label.contentsMargins();
        return {textWidth + margins.left() + margins.right(), height + margins.top() + margins.bottom()};
    }
};

QxtLabel::QxtLabel(QWidget* parent, Qt::WindowFlags flags)
    : m_impl(new Impl{*this})
{
    zelmar::internal::makeQxtLabelsAccessible();
    setParent(parent, flags); // only now: see makeAccessible()
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
    m_impl->line = toSingleLine(text);
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
