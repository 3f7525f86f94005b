#include "ui/qt/dialogs/windows/builtin/FileTypes_p.h"

#include "ui/qt/dialogs/windows/com/CoTaskMemString_p.h"

namespace zelmar::internal {

FileTypes::FileTypes(UINT count, const COMDLG_FILTERSPEC* types)
{
    for (UINT i = 0; i < count; ++i) {
        Type type{textOf(types[i].pszName), {}};
        for (const QString& pattern : textOf(types[i].pszSpec).split(QLatin1Char(';'), Qt::SkipEmptyParts))
            type.patterns += pattern.trimmed();
        type.patterns.removeAll(QString());
        m_types += type;
    }
}

int FileTypes::validIndex(int index) const
{
    return index >= 0 && index < m_types.size() ? index : 0;
}

QStringList FileTypes::nameFilters() const
{
    QStringList filters;
    for (const Type& type : m_types)
        filters += nameFilter(type);
    return filters;
}

QStringList FileTypes::patterns(int index) const
{
    return m_types.value(index).patterns;
}

int FileTypes::indexOfFilter(const QString& nameFilter, int current) const
{
    const QStringList filters = nameFilters();
    if (filters.value(current) == nameFilter)
        return current;
    const int first = filters.indexOf(nameFilter);
    return first >= 0 ? first : current;
}

QString FileTypes::nameFilter(const Type& type)
{
    return QStringLiteral("%1 (%2)").arg(type.name, type.patterns.join(QLatin1Char(' '))).simplified();
}

} // namespace zelmar::internal
