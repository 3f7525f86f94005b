#pragma once

#include "AccessRights.h"
#include "OrdinaryUser.h"
#include "TableFormat.h"
#include "systemLimits.h"

#include <QFile>
#include <QStringList>
#include <QTemporaryDir>
#include <QVector>

/// The texts of a table, line after line, the header first; all lines as long as the longest.
using Texts = QVector<QStringList>;

inline Texts textsOf(const gallery::TableDocument& document)
{
    Texts texts;
    for (int row = gallery::TableDocument::HeaderRow; row < document.rowCount(); ++row) {
        texts.append(QStringList());
        for (int column = 0; column < document.columnCount(); ++column)
            texts.last() += document.text(row, column);
    }
    return texts;
}

/// A folder of its own for one test function.
class TestFolder
{
public:
    QString path(const QString& name) const { return m_folder.filePath(name); }

    QString write(const QString& name, const QByteArray& bytes) const
    {
        QFile file(path(name));
        return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() ? path(name) : QString();
    }

    QByteArray read(const QString& name) const
    {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<no such file>");
    }

    gallery::TableResult load(const QString& name, const QByteArray& bytes) const
    {
        return gallery::readTable(write(name, bytes));
    }

private:
    QTemporaryDir m_folder;
};
