#pragma once

#include "common_ui_qt_export.h"
#include "property/PropertyAbstract.h"

#include <string>
#include <utility>

namespace zelmar {

/// An observable property that stores its value in the object itself. PropertyAbstract describes how the value is set
/// and observed. Create a property with boost::make_shared and hold it by boost::shared_ptr.
template <typename T>
class Property : public PropertyAbstract<T>
{
public:
    /// Value-initialises the value: 0, false or an empty string.
    Property()
        : m_value()
    {
    }

    /// Constructs the property with `initialValue`, which is neither validated nor signalled: no validator is set and
    /// no observer is connected yet.
    explicit Property(T initialValue)
        : m_value(std::move(initialValue))
    {
    }

    T value() const override { return m_value; }

protected:
    void assignValue(const T& value) override { m_value = value; }

private:
    T m_value;
};

} // namespace zelmar
