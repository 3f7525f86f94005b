#pragma once

#include "common_ui_qt_export.h"
#include "compat/QxtLabel.h"

/// A label for a text whose end says most, such as a path: where the text does not fit, an ellipsis takes the place of
/// its beginning, and the whole text is the tool tip.
///
///     auto* path = new ElidedTextLabel(window);
///     path->setText("/measurements/2024/run 17/flow.csv"); // in a narrow window: "\u2026run 17/flow.csv"
///
/// A tool tip of the application's own is never touched: one that is neither empty nor the text. The label's own is set
/// and cleared when it is painted.
///
/// Known traps:
/// - The label takes a tool tip that is no longer its text for the application's. Before a text that may have been
///   elided is replaced, clear it: setToolTip(QString()).
/// - Qt shows a tool tip that looks like rich text as such: "<b>run</b>" is bold there, and literal in the label.
/// - The text is at the top of its room. In a row with higher widgets add the label with Qt::AlignVCenter.
/// - Line breaks have no width for the tool tip, and tabs a large one, while each is shown as a blank: with these in
/// the text
///   the tool tip comes and goes a few pixels from where the ellipsis does.
///
/// Plain text in one line; GUI thread only. See QxtLabel for the rest.
class COMMON_UI_QT_EXPORT ElidedTextLabel : public QxtLabel
{
    Q_OBJECT

public:
    /// Aligned to the left, elided at the left.
    explicit ElidedTextLabel(QWidget* parent = nullptr, Qt::WindowFlags flags = Qt::WindowFlags());
    ~ElidedTextLabel() override;

protected:
    /// Paints, and brings the tool tip up to date.
    void paintEvent(QPaintEvent* event) override;
};
