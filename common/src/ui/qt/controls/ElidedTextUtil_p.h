#pragma once

#include "internal_export_p.h"

class QString;
class QWidget;

/// A helper for widgets that elide their text: it shows the full text as tool tip while the text is elided.
class COMMON_UI_QT_INTERNAL_EXPORT ElidedTextUtil
{
public:
    ElidedTextUtil() = default;
    virtual ~ElidedTextUtil();
    ElidedTextUtil(const ElidedTextUtil&) = delete;
    ElidedTextUtil& operator=(const ElidedTextUtil&) = delete;

    /// Sets the tool tip to `fullText` if `shownText` is wider than `availableWidth` pixels in the widget's font, and
    /// clears it otherwise. A tool tip that is neither empty nor equal to `fullText` belongs to the application and is
    /// not changed.
    ///
    /// Sets the tool tip only if it changes, so that a call from a paint event sends no needless QEvent::ToolTipChange.
    virtual void updateToolTip(QWidget* widget, int availableWidth, const QString& shownText, const QString& fullText);
};
