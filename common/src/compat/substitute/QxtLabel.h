#pragma once

#include "common_ui_qt_export.h"

#include <QFrame>
#include <QString>

#include <memory>

/// A label that shows one line of plain text and elides it if it does not fit. It replaces LibQxt's class of the same
/// name if that is not installed, and has those of its members that the library needs. Include it as
/// "compat/QxtLabel.h".
///
///     auto* label = new QxtLabel(&window);
///     label->setElideMode(Qt::ElideMiddle);
///     label->setText("/measurements/2024/run 17/flow.csv");
///
/// The text is drawn literally: "<b>" and "&" have no special meaning. Each line break, tab or other control character
/// is shown as a blank, and CR LF as a single blank; text() still contains them. Eliding never separates a character
/// from its accents.
///
/// A layout may make the label as narrow as an ellipsis. The size hint has room for the full text. Assistive technology
/// receives the full text at any width.
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

    /// Returns the full text exactly as it was set. It is empty by default.
    QString text() const;
    void setText(const QString& text);

    /// Returns the alignment of the text within contentsRect(). In a right-to-left layout left and right are swapped,
    /// unless Qt::AlignAbsolute is set. Without a vertical flag the text is at the top. The default is left and
    /// vertically centred.
    Qt::Alignment alignment() const;
    void setAlignment(Qt::Alignment alignment);

    /// Returns which part of an over-long text the ellipsis replaces. Qt::ElideLeft replaces the beginning in reading
    /// order, also of a right-to-left text. Qt::ElideNone clips the text. The default is Qt::ElideRight.
    Qt::TextElideMode elideMode() const;
    void setElideMode(Qt::TextElideMode mode);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    struct COMMON_UI_QT_NO_EXPORT Impl;

    std::unique_ptr<Impl> m_impl;
};
