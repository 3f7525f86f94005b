#pragma once

#include "property/AllowAnyValueValidator.h"
#include "property/InvalidPropertyValueException.h"
#include "property/PropertyItemInterface.h"
#include "property/ValidatorInterface.h"

#include <boost/signals2/signal.hpp>
#include <boost/smart_ptr/make_shared.hpp>
#include <boost/smart_ptr/shared_ptr.hpp>
#include <boost/smart_ptr/weak_ptr.hpp>

#include <utility>

namespace zelmar {

/// An observable, typed value that a validator checks before each change and that notifies its observers of each actual
/// change. A derived class decides where the value is stored; zelmar::Property stores it in the object itself.
///
///     const auto compressed = boost::make_shared<zelmar::Property<bool>>(false);
///     boost::signals2::scoped_connection connection =
///         compressed->signalValueChanged().connect([&](bool on) { preview.setCompressed(on); });
///     compressed->setValue(true); // preview.setCompressed(true)
///     compressed->setValue(true); // no call: the value is already true
///
/// Hold a property by boost::shared_ptr. Because observers are connected to one object, a property can be neither
/// copied nor moved.
///
/// setValue() performs these steps, all of them before it returns:
/// 1. The validator checks the new value, even if it equals the current one. If it rejects the value, setValue()
///    throws and nothing changes.
/// 2. If the new value equals the current one (by T's own `==`), setValue() returns without calling observers.
/// 3. The value is stored.
/// 4. The observers are called with the value read back from the property, in the order in which they connected.
///
/// - An observer may set the value again, which starts the same steps within its call. All observers then receive the
///   newer value first, and the remaining ones receive the older value afterwards, when value() is already the newer
///   one. An observer that must ignore outdated values compares its argument with value(). An observer that always sets
///   a different value causes an endless recursion.
/// - An exception thrown by an observer propagates out of setValue(). The value stays set, and the remaining observers
///   are not called.
/// - An exception thrown by the validator propagates out of setValue(), and nothing has changed.
/// - Observers may be connected and disconnected at any time, also by observers. An observer that is connected by
///   another observer is first called for the next change.
/// - An observer must not destroy the property. The caller of setValue() holds a shared_ptr until it returns.
///
/// A NaN never equals the current value, so observers are called each time it is set. Connecting and disconnecting are
/// thread-safe; the value may be used on the GUI thread only.
template <typename T>
class PropertyAbstract : public PropertyItemInterface
{
public:
    using Signal = boost::signals2::signal<void(const T&)>;

    PropertyAbstract()
        : m_validator(boost::make_shared<AllowAnyValueValidator<T>>())
    {
    }

    ~PropertyAbstract() override = default;

protected:
    /// Does nothing. A hook for derived classes, which the library never calls.
    ///
    /// Kept for existing callers, see docs/compatibility.md: property-hook.
    virtual void onPropertyHook() {}

    /// Stores `value` without validating it and without calling observers.
    virtual void assignValue(const T& value) = 0;

public:
    /// Returns whether `value` equals the current value, in which case setValue() changes nothing.
    virtual bool isCurrentValue(const T& value) const { return value == this->value(); }

    /// Validates `value`. Throws InvalidPropertyValueException with the validator's error string if the validator
    /// rejects it.
    virtual void validateValue(const T& value) const
    {
        const ValidationResult result = m_validator->validate(value);
        if (!result.isValid())
            throw InvalidPropertyValueException(result.errorString());
    }

    /// Returns a copy of the current value.
    virtual T value() const = 0;

protected:
    /// Calls the observers with `value`.
    virtual void emitValueChanged(const T& value) { m_signalValueChanged(value); }

public:
    /// Sets the value as described for the class. Throws InvalidPropertyValueException if the validator rejects it, and
    /// passes on every exception of an observer.
    void setValue(const T& newValue)
    {
        validateValue(newValue);
        if (isCurrentValue(newValue))
            return;
        assignValue(newValue);
        emitValueChanged(value());
    }

    /// Returns the signal to which observers connect slots of the type `void(const T&)`. They are called with the new
    /// value after each actual change. The argument is valid during the call only.
    Signal& signalValueChanged() { return m_signalValueChanged; }

    /// Replaces the validator for all following changes. The current value is not validated again. If `validator` is
    /// null, every value is accepted.
    void setValidator(boost::shared_ptr<ValidatorInterface<T>> validator)
    {
        m_validator = validator ? std::move(validator) : boost::make_shared<AllowAnyValueValidator<T>>();
    }

protected:
    Signal m_signalValueChanged;
    boost::shared_ptr<ValidatorInterface<T>> m_validator; // never null
    boost::weak_ptr<PropertyAbstract<T>> m_trackedSelf;   // never used. Compatibility: tracked-self-member
};

} // namespace zelmar
