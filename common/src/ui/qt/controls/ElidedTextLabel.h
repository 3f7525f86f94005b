#pragma once

#include "common_ui_qt_export.h"
#include "compat/QxtLabel.h"

/// A label for texts whose end matters most, such as paths. If the text does not fit, an ellipsis replaces its
/// beginning and the tool tip shows the full text.
///
///     auto* path = new ElidedTextLabel(&window);
///     path->setText("/measurements/2024/run 17/flow.csv"); // in a narrow window: "\u2026run 17/flow.csv"
///
/// The label updates its tool tip whenever it is painted. It never changes a tool tip that the application has set,
/// that is, one that is neither empty nor equal to the text.
///
/// Known traps:
/// - If the text changes while the old text is the tool tip, the label treats that as a tool tip of the application and
///   keeps it. Before you replace a text that may be elided, clear the tool tip with setToolTip(QString()).
///   Kept for existing callers, see docs/compatibility.md: stale-tool-tip.
/// - Qt interprets a tool tip that looks like rich text: "<b>run</b>" is bold in the tool tip and literal in the label.
/// - The text is at the top of the contents rectangle. Add the label to a row of taller widgets with Qt::AlignVCenter.
/// - The width for the tool tip is measured with the original text, in which line breaks have no width and tabs a large
///   one, although the label draws each as a blank. With such characters the tool tip appears and disappears at a width
///   a few pixels away from the width at which the ellipsis does.
///
/// The label shows a single line of plain text, see QxtLabel. GUI thread only.
class COMMON_UI_QT_EXPORT ElidedTextLabel : public QxtLabel
{
    Q_OBJECT

public:
    /// Constructs a label with Qt::AlignLeft and Qt::ElideLeft.
    explicit ElidedTextLabel(QWidget* parent = nullptr, Qt::WindowFlags flags = Qt::WindowFlags());
    ~ElidedTextLabel() override;

protected:
    /// Paints the label and updates its tool tip.
    void paintEvent(QPaintEvent* event) override;
};
