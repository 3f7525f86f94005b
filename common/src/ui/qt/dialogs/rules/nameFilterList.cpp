#include "ui/qt/dialogs/rules/nameFilterList_p.h"

namespace zelmar::internal {

namespace {

QString withoutBlanksAround(const QString& text)
{
    const QLatin1Char blank(' '); // other white space stays
    int from = 0;
    int to = text.size();
    while (from < to && text.at(from) == blank)
        ++from;
    while (to > from && text.at(to - 1) == blank)
        --to;
    return text.mid(from, to - from);
}

} // namespace

QStringList splitNameFilters(const QString& joined)
{
    QStringList filters;
    for (const QString& part : joined.split(QStringLiteral(";;"), Qt::SkipEmptyParts))
        filters += withoutBlanksAround(part);
    return filters;
}

std::string joinNameFilters(const std::vector<std::string>& filters)
{
    std::string joined;
    for (const std::string& filter : filters)
        joined += (&filter == &filters.front() ? "" : ";;") + filter;
    return joined;
}

} // namespace zelmar::internal
