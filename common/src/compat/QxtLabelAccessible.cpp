#include "compat/QxtLabelAccessible_p.h"

#include "compat/QxtLabel.h"

#include <QAccessibleWidget>

namespace {

class QxtLabelAccessible : public QAccessibleWidget
{
public:
    explicit QxtLabelAccessible(QxtLabel* label)
        : QAccessibleWidget(label, QAccessible::StaticText)
    {
    }

    QString text(QAccessible::Text kind) const override
    {
        QString own = QAccessibleWidget::text(kind);
        if (kind != QAccessible::Name || !own.isEmpty())
            return own;
        const auto* label = qobject_cast<QxtLabel*>(widget());
        return label ? label->text() : QString();
    }

    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.readOnly = true;
        return state;
    }
};

/// Returns the interface for `object` if `className` is QxtLabel. Qt calls this function with the object's class first
/// and then with each of its base classes, so that derived labels are covered, too.
QAccessibleInterface* makeInterface(const QString& className, QObject* object)
{
    auto* label = className == QLatin1String("QxtLabel") ? qobject_cast<QxtLabel*>(object) : nullptr;
    return label ? new QxtLabelAccessible(label) : nullptr;
}

/// A guard that removes the factory before the library is unloaded, after which Qt must not call it.
struct InstalledFactory
{
    InstalledFactory() { QAccessible::installFactory(makeInterface); }
    ~InstalledFactory() { QAccessible::removeFactory(makeInterface); }
    Q_DISABLE_COPY(InstalledFactory)
};

} // namespace

void zelmar::internal::makeQxtLabelsAccessible()
{
    static const InstalledFactory factory;
}
