#include "ui/qt/dialogs/rules/temporaryNameFilter_p.h"

namespace zelmar::internal {

QString temporaryNameFilter(const QString& selected, const QString& pattern)
{
    const QString description = selected.left(selected.indexOf(QLatin1Char('(')));
    return (description + QLatin1Char('(') + pattern + QLatin1Char(')')).simplified();
}

QString patternOf(const QString& temporaryFilter)
{
    return temporaryFilter.mid(temporaryFilter.indexOf(QLatin1Char('(')) + 1).chopped(1);
}

} // namespace zelmar::internal
