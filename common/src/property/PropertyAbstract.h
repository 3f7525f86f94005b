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

/// An observable value: typed, checked by a validator before each change, and telling of each real change. Where the
/// value is kept is for a derived class to say; zelmar::Property keeps it in itself.
///
///     const auto compressed = boost::make_shared<zelmar::Property<bool>>(false);
///     boost::signals2::scoped_connection connection =
///         compressed->signalValueChanged().connect([&](bool on) { preview.setCompressed(on); });
///     compressed->setValue(true); // preview.setCompressed(true)
///     compressed->setValue(true); // nothing
///
/// Held by boost::shared_ptr; neither copied nor moved, since observers are connected to the one object.
///
/// What setValue() does, in this order, all of it before it returns:
///  1. The validator looks at the new value, even if it is the one that is there. One that is refused changes nothing.
///  2. A value equal to the one that is there (by T's own `==`) changes nothing and is not told.
///  3. The value is stored.
///  4. Observers are called with the value read back from the property, in the order in which they connected.
///
/// - An observer that sets the value again starts the same sequence within its own call: all observers hear of the
///   newer value first, and those that come after it then of the older one, with value() already the newer. An observer
///   that must not act on what is past compares with value(). One that always sets another value never ends.
/// - An exception thrown by an observer passes out of setValue(); the value stays set, and the observers that come
///   after it are not called.
/// - A validator's exception passes out of setValue(), and nothing has changed.
/// - An observer may be disconnected, or another connected, at any time; one that is connected by an observer is first
///   called for the next change.
/// - An observer must not destroy the property: the caller of setValue() holds a shared_ptr for as long.
///
/// A NaN is equal to nothing, and so told each time that it is set. Threads: connecting and disconnecting are guarded;
/// values are for the GUI thread.
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
    /// For derived classes; does nothing, and nothing here calls it.
    virtual void onPropertyHook() {}

    /// Stores `value`: no check, no signal.
    virtual void assignValue(const T& value) = 0;

public:
    /// Whether setValue(value) would find the value there already.
    virtual bool isCurrentValue(const T& value) const { return value == this->value(); }

    /// Throws InvalidPropertyValueException, with the validator's text as its message, when the validator refuses
    /// `value`.
    virtual void validateValue(const T& value) const
    {
        const ValidationResult result = m_validator->validate(value);
        if (!result.isValid())
            throw InvalidPropertyValueException(result.errorString());
    }

    /// A copy of the value.
    virtual T value() const = 0;

protected:
    /// Calls the observers with `value`.
    virtual void emitValueChanged(const T& value) { m_signalValueChanged(value); }

public:
    /// Sets the value, see above. Throws InvalidPropertyValueException when the validator refuses it, and what
    /// observers throw.
    void setValue(const T& newValue)
    {
        validateValue(newValue);
        if (isCurrentValue(newValue))
            return;
        assignValue(newValue);
        emitValueChanged(value());
    }

    /// Where observers connect: slots of `void(const T&)`, called with the new value after each real change. The
    /// argument is valid during the call.
    Signal& signalValueChanged() { return m_signalValueChanged; }

    /// Puts `validator` in charge of all changes from now on; the value that is there is not looked at. Null stands for
    /// one that allows every value.
    void setValidator(boost::shared_ptr<ValidatorInterface<T>> validator)
    {
        m_validator = validator ? std::move(validator) : boost::make_shared<AllowAnyValueValidator<T>>();
    }

protected:
    Signal m_signalValueChanged;
    boost::shared_ptr<ValidatorInterface<T>> m_validator; // never null
    boost::weak_ptr<PropertyAbstract<T>> m_trackedSelf;   // kept for the layout; nothing here uses it
};

} // namespace zelmar
