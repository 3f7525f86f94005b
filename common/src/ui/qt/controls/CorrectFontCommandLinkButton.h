#pragma once

#include "common_ui_qt_export.h"

#include <QCommandLinkButton>

namespace zelmar { // NOLINT(modernize-concat-nested-namespaces): C++14 here
namespace ui {

/// A QCommandLinkButton that no layout makes smaller than its title and description need: its smallest size is its size
/// hint. Qt's own button reports a smallest size without the description, which low windows then cut off. In more width
/// than that a description needs less height, and layouts give it just that.
///
///     auto* open = new zelmar::ui::CorrectFontCommandLinkButton(window);
///     open->setText("Open a run");
///     open->setDescription("Reads the files of one run. Nothing is changed.");
///
/// Known traps:
/// - The title sets the width, and the description is wrapped within it: a long one below a short title makes a high
///   button, and so a high window.
/// - Qt does not count line breaks in the description when it measures: what they push down is cut off.
/// - QCommandLinkButton hides its sizeHint(); ask for minimumSizeHint().
/// - It has no meta-object of its own: in style sheets and qobject_cast it is a QCommandLinkButton.
///
/// GUI thread only.
class COMMON_UI_QT_EXPORT CorrectFontCommandLinkButton : public QCommandLinkButton
{
public:
    explicit CorrectFontCommandLinkButton(QWidget* parent = nullptr);
    ~CorrectFontCommandLinkButton() override;

    /// QCommandLinkButton::sizeHint().
    QSize minimumSizeHint() const override;
};

} // namespace ui
} // namespace zelmar
