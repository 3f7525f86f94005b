#pragma once

#include <QAccessible>

namespace zelmar::internal {

/// A guard that makes Qt ask `make` for the accessible interface of a widget before it creates its own. It stops Qt
/// from calling the function before the library is unloaded.
class AccessibleFactory
{
public:
    explicit AccessibleFactory(QAccessible::InterfaceFactory make)
        : m_make(make)
    {
        QAccessible::installFactory(m_make);
    }
    ~AccessibleFactory() { QAccessible::removeFactory(m_make); }
    Q_DISABLE_COPY(AccessibleFactory)

private:
    QAccessible::InterfaceFactory m_make;
};

} // namespace zelmar::internal
