#pragma once

#include "common_ui_qt_export.h"

#include <boost/signals2/signal.hpp>

#include <QSpinBox>

#include <memory>

namespace zelmar { // NOLINT(modernize-concat-nested-namespaces): C++14 here
namespace ui {

/// A spin box for integers whose steps the application may take over: as long as anything is connected to the signal of
/// a direction, a step in that direction (arrow, key, page key, wheel) emits the signal and does not change the value.
///
///     auto* run = new zelmar::ui::IntegralSpinBox(window);
///     run->setRange(0, 9999);
///     run->signalIncrement.connect([=] { run->setValue(nextRunAfter(run->value())); });
///     run->signalDecrement.connect([=] { run->setValue(lastRunBefore(run->value())); });
///     connect(run, SIGNAL(valueChanged(int)), this, SLOT(showRun(int)));
///
/// The value changes when editing finishes (Return, focus loss) and not with each key: keyboard tracking is off.
/// Otherwise it is a QSpinBox: range 0 to 99, single step 1.
///
/// Known traps:
/// - At a bound of the range Qt offers no further step in that direction, so nothing is emitted there: give a field
///   whose steps are taken over a range that has room, or setWrapping(true).
/// - A step starts from value(), not from digits that were typed and are not committed yet: it replaces them.
///   A slot that wants them calls interpretText() first.
/// - setWrapping(true) does not make steps wrap, only what setValue() is given.
///
/// GUI thread only. Slots run on it, within the step.
class COMMON_UI_QT_EXPORT IntegralSpinBox : public QSpinBox
{
public:
    explicit IntegralSpinBox(QWidget* parent);
    ~IntegralSpinBox() override;

    /// `steps` from 1 on emits signalIncrement, any other (0 included) signalDecrement, once and whatever the number
    /// is, if anything is connected to it. Otherwise adds `steps` times the single step to the value; a sum beyond the
    /// range is the bound on its side, also with wrapping on.
    void stepBy(int steps) override;

    /// Emitted in place of a step up.
    boost::signals2::signal<void()> signalIncrement;
    /// Emitted in place of a step down.
    boost::signals2::signal<void()> signalDecrement;

private:
    struct Impl;

    /// For derived classes; do nothing, and nothing here calls them.
    virtual void signalIncrementConnected() const;
    virtual void signalDecrementConnected() const;

    std::unique_ptr<Impl> m_impl;
};

} // namespace ui
} // namespace zelmar
