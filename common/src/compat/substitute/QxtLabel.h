#pragma once

#include "common_ui_qt_export.h"

#include <QFrame>
#include <QString>

#include <memory>

/// A line of plain text that is shortened with an ellipsis where it does not fit. Stands in for LibQxt's class of this
/// name where that is not installed, with those of its members that the library needs. Include it as
/// "compat/QxtLabel.h".
///
///     auto* label = new QxtLabel(window);
///     label->setElideMode(Qt::ElideMiddle);
///     label->setText("/measurements/2024/run 17/flow.csv");
///
/// The text is shown letter by letter: "<b>" and "&" mean nothing. It is one line: a line break, a tab or another
/// control character is shown as a blank, CR and LF together as one. text() has them all. An ellipsis stands between
/// whole letters, with their accents.
///
/// A layout may make the label as narrow as an ellipsis; its size hint is the whole text. Assistive technology gets the
/// whole text, too, at any width.
///
/// GUI thread only.
class COMMON_UI_QT_EXPORT QxtLabel : public QFrame
{
    Q_OBJECT
    Q_PROPERTY(QString text READ text WRITE setText)
    Q_PROPERTY(Qt::Alignment alignment READ alignment WRITE setAlignment)
    Q_PROPERTY(Qt::TextElideMode elideMode READ elideMode WRITE setElideMode)

public:
    explicit QxtLabel(QWidget* parent = nullptr, Qt::WindowFlags flags = Qt::WindowFlags());
    ~QxtLabel() override;

    /// The whole text, as it was set. Empty at first.
    QString text() const;
    void setText(const QString& text);

    /// Where the text stands in contentsRect(). Left and right change sides with the widget's layout direction, unless
    /// Qt::AlignAbsolute is set; without a vertical flag the text is at the top. Left and vertically centred at first.
    Qt::Alignment alignment() const;
    void setAlignment(Qt::Alignment alignment);

    /// Which part of a text that is too long gives way to the ellipsis, in the order of reading: the left part of a
    /// text from right to left is its beginning, too. Qt::ElideNone cuts the text off. Qt::ElideRight at first.
    Qt::TextElideMode elideMode() const;
    void setElideMode(Qt::TextElideMode mode);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    struct Impl;

    std::unique_ptr<Impl> m_impl;
};
