#pragma once

#include "internal_export.h"

class QString;
class QWidget;

/// Keeps the tool tip of a widget that elides its text in step with what can be read of it.
class COMMON_UI_QT_INTERNAL_EXPORT ElidedTextUtil
{
public:
    ElidedTextUtil() = default;
    virtual ~ElidedTextUtil();
    ElidedTextUtil(const ElidedTextUtil&) = delete;
    ElidedTextUtil& operator=(const ElidedTextUtil&) = delete;

    /// The tool tip becomes `fullText` when `shownText` is wider than `availableWidth` pixels in the widget's font, and
    /// empty when it is not. A tool tip that is neither empty nor `fullText` is the application's and stays.
    ///
    /// Without a change nothing is set: it may be called while the widget is painted, and wakes nobody who watches it.
    virtual void updateToolTip(QWidget* widget, int availableWidth, const QString& shownText, const QString& fullText);
};
