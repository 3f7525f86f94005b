#pragma once

#include "common_ui_qt_export.h"
#include "property/PropertyAbstract.h"

#include <string>
#include <utility>

namespace zelmar {

/// An observable value that is kept in the object itself; see PropertyAbstract for how it is set and observed. Made
/// with boost::make_shared and held by boost::shared_ptr.
template <typename T>
class Property : public PropertyAbstract<T>
{
public:
    /// A value-initialised value: 0, false, an empty string.
    Property()
        : m_value()
    {
    }

    /// Neither checked nor told: there is no validator and no observer yet.
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
