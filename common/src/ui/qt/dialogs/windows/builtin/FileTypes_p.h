#pragma once

#include "internal_export_p.h"
#include "ui/qt/dialogs/windows/shellapi.h"

#include <QString>
#include <QStringList>
#include <QVector>

namespace zelmar::internal {

/// A list of the file types of a dialog. A type is identified by its index, from 0, because two types may have the same
/// name and the same patterns.
class COMMON_UI_QT_INTERNAL_EXPORT FileTypes
{
public:
    FileTypes() = default;
    FileTypes(UINT count, const COMDLG_FILTERSPEC* types);

    int count() const { return m_types.size(); }
    bool isEmpty() const { return m_types.isEmpty(); }

    /// Returns `index`, or 0 if it is out of range.
    int validIndex(int index) const;

    /// Returns the types as name filters of QFileDialog, which shows each run of white space as one blank.
    QStringList nameFilters() const;

    /// Returns the patterns of the type with this index. Empty for a type that matches everything, and if the index is
    /// out of range.
    QStringList patterns(int index) const;

    /// Returns the index of the type with this name filter. Prefers `current` if several types have the filter, and
    /// then the first of them. Returns `current` if no type has the filter.
    int indexOfFilter(const QString& nameFilter, int current) const;

private:
    struct Type
    {
        QString name;
        QStringList patterns;
    };

    static QString nameFilter(const Type& type);

    QVector<Type> m_types;
};

} // namespace zelmar::internal
