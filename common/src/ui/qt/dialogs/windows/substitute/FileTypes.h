#pragma once

#include "internal_export.h"
#include "ui/qt/dialogs/windows/substitute/fileDialog.h"

#include <QString>
#include <QStringList>
#include <QVector>

/// The file types of a dialog. A type is known by its place, from 0: names and patterns may be equal.
class COMMON_UI_QT_INTERNAL_EXPORT FileTypes
{
public:
    FileTypes() = default;
    FileTypes(UINT count, const COMDLG_FILTERSPEC* types);

    int count() const { return m_types.size(); }
    bool isEmpty() const { return m_types.isEmpty(); }

    /// A place for any number: the first one for what is outside.
    int placeOf(int index) const;

    /// The types as QFileDialog takes and shows them, with each run of white space as one blank.
    QStringList nameFilters() const;

    /// The patterns of one type; none where everything matches, and for a place that there is not.
    QStringList patterns(int place) const;

    /// The place of a filter that a dialog tells by its text only. Among equal ones `current`, if it is one of them,
    /// else the first; `current` for a text that there is not.
    int placeOfFilter(const QString& nameFilter, int current) const;

private:
    struct Type
    {
        QString name;
        QStringList patterns;
    };

    static QString nameFilter(const Type& type);

    QVector<Type> m_types;
};
