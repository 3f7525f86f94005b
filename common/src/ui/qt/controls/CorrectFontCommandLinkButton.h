#pragma once

#include "common_ui_qt_export.h"

#include <QCommandLinkButton>

namespace zelmar { // NOLINT(modernize-concat-nested-namespaces): C++14 here
namespace ui {

/// A QCommandLinkButton that a layout never makes smaller than its title and description need: its minimum size hint is
/// its size hint. The minimum size hint of Qt's own button ignores the description, which is then cut off in a small
/// window. If the button is wider than its size hint, layouts still use heightForWidth(), so that a description which
/// wraps into fewer lines takes less height.
///
///     auto* open = new zelmar::ui::CorrectFontCommandLinkButton(&window);
///     open->setText("Open a run");
///     open->setDescription("Reads the files of one run. Nothing is changed.");
///
/// Known traps:
/// - The title determines the width, and the description is wrapped within it. A long description below a short title
///   makes the button, and so the window, tall.
/// - Qt ignores line breaks in the description when it computes the size hint. The lines that they add are cut off.
/// - QCommandLinkButton::sizeHint() is protected; call minimumSizeHint() instead.
/// - The class has no meta-object of its own: style sheets and qobject_cast treat it as a QCommandLinkButton.
///
/// GUI thread only.
class COMMON_UI_QT_EXPORT CorrectFontCommandLinkButton : public QCommandLinkButton
{
public:
    explicit CorrectFontCommandLinkButton(QWidget* parent = nullptr);
    ~CorrectFontCommandLinkButton() override;

    /// Returns QCommandLinkButton::sizeHint().
    QSize minimumSizeHint() const override;
};

} // namespace ui
} // namespace zelmar
