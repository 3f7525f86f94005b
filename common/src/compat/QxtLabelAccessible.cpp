#include "compat/QxtLabelAccessible_p.h"

#include "accessibleFactory_p.h"
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
        const QString own = QAccessibleWidget::text(kind);
        return isFullText(kind, own) ? fullText() : own;
    }

    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.readOnly = true;
        return state;
    }

private:
    QString fullText() const
    {
        const auto* label = qobject_cast<QxtLabel*>(widget());
        return label ? label->text() : QString();
    }

    /// Returns whether text(kind) is the full text instead of `own`, the text of the base class. In a form row the base
    /// class returns the buddy label's text as the name, which does not tell what the row shows.
    bool isFullText(QAccessible::Text kind, const QString& own) const
    {
        const bool isNamed = !widget()->accessibleName().isEmpty();
        if (kind == QAccessible::Name)
            return !isNamed && !fullText().isEmpty();
        return kind == QAccessible::Value || (kind == QAccessible::Description && isNamed && own.isEmpty());
    }
};

} // namespace

void zelmar::internal::makeQxtLabelsAccessible()
{
    makeAccessible<QxtLabel, QxtLabelAccessible>();
}
