#pragma once

#include "common_ui_qt_export.h"

#include <boost/signals2/signal.hpp>

#include <QSpinBox>

#include <memory>

namespace zelmar { // NOLINT(modernize-concat-nested-namespaces): C++14 here
namespace ui {

/// A spin box for integers whose steps the application can take over. While a slot is connected to the signal for a
/// direction, a step in that direction (by arrow, key, page key or wheel) emits the signal instead of changing the
/// value.
///
///     auto* run = new zelmar::ui::IntegralSpinBox(&window);
///     run->setRange(0, 9999);
///     run->signalIncrement.connect([=] { run->setValue(nextRunAfter(run->value())); });
///     run->signalDecrement.connect([=] { run->setValue(lastRunBefore(run->value())); });
///     connect(run, SIGNAL(valueChanged(int)), this, SLOT(showRun(int)));
///
/// Keyboard tracking is off: a typed value is set when editing finishes (by Return or by losing the focus) and not with
/// each key. The range and the single step are those of QSpinBox: initially 0 to 99, and 1.
///
/// Known traps:
/// - At a bound of the range Qt performs no further step in that direction, so no signal is emitted. If steps are taken
///   over, set a range whose bounds are never reached, or call setWrapping(true).
/// - A step starts from value() and discards digits that were typed but not committed. A slot that needs these digits
///   calls interpretText() first.
/// - setWrapping(true) affects setValue() but does not make steps wrap.
/// - A slot must delete the box by deleteLater(), because Qt uses the box after a step by key or arrow.
///
/// GUI thread only. Slots are called on this thread, within the step.
class COMMON_UI_QT_EXPORT IntegralSpinBox : public QSpinBox
{
public:
    explicit IntegralSpinBox(QWidget* parent);
    ~IntegralSpinBox() override;

    /// Emits signalIncrement once if `steps` is 1 or more, or signalDecrement once otherwise, provided that a slot is
    /// connected to that signal. If none is, adds `steps` times the single step to the value, bounds the sum to the
    /// range even if wrapping is on, and selects the number as QSpinBox does, even if the value stays the same.
    ///
    /// Kept for existing callers, see docs/compatibility.md: zero-steps-go-down.
    ///
    /// Kept for existing callers, see docs/compatibility.md: step-count-not-told.
    void stepBy(int steps) override;

    /// Emitted instead of a step up.
    boost::signals2::signal<void()> signalIncrement;
    /// Emitted instead of a step down.
    boost::signals2::signal<void()> signalDecrement;

private:
    struct COMMON_UI_QT_NO_EXPORT Impl;

    /// Do nothing. Hooks for derived classes, which the library neither calls nor overrides.
    ///
    /// Kept for existing callers, see docs/compatibility.md: step-signal-hooks.
    virtual void signalIncrementConnected() const;
    virtual void signalDecrementConnected() const;

    std::unique_ptr<Impl> m_impl;
};

} // namespace ui
} // namespace zelmar
