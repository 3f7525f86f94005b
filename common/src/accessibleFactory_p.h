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

/// Presents every `Widget` of the program to assistive technology by an `Interface`. Only the first call has an effect.
/// Qt asks for the class of an object first and then for each of its base classes, so that derived widgets are covered,
/// too.
///
/// The constructor of `Widget` calls this function and then setParent(). The constructor of its base class must not set
/// the parent. While it runs, the object is a mere base object, and Qt would keep an accessible interface for that if
/// the parent is disabled.
template <typename Widget, typename Interface>
void makeAccessible()
{
    static const AccessibleFactory factory([](const QString& className, QObject* object) -> QAccessibleInterface* {
        const bool isForWidget = className == QLatin1String(Widget::staticMetaObject.className());
        auto* const widget = isForWidget ? qobject_cast<Widget*>(object) : nullptr;
        return widget ? new Interface(widget) : nullptr;
    });
}

} // namespace zelmar::internal
