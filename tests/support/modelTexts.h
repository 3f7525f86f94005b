#pragma once

#include <QAbstractItemModel>
#include <QCompleter>
#include <QStringList>

/// Returns the texts of a column.
inline QStringList textsOf(const QAbstractItemModel& model, int column = 0, int role = Qt::EditRole)
{
    QStringList texts;
    for (int row = 0; row < model.rowCount(); ++row)
        texts += model.index(row, column).data(role).toString();
    return texts;
}

/// Returns the texts that the completer offers for its prefix.
inline QStringList completionsOf(const QCompleter& completer, int role = Qt::DisplayRole)
{
    return textsOf(*completer.completionModel(), completer.completionColumn(), role);
}

inline QStringList completionsOf(QCompleter& completer, const QString& prefix)
{
    completer.setCompletionPrefix(prefix);
    return completionsOf(completer);
}
