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
    Texts texts(1);
    for (int column = 0; column < document.columnCount(); ++column)
        texts[0] += document.headerText(column);
    for (int row = 0; row < document.rowCount(); ++row) {
        QStringList line;
        for (int column = 0; column < document.columnCount(); ++column)
            line += document.text(row, column);
        texts += line;
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
        const bool written = file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
        return written ? path(name) : QString();
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
