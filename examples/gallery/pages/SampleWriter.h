#pragma once

#include <QByteArray>
#include <QString>
#include <QVector>

namespace gallery {

/// A writer of a sample file on the page of the save flow.
struct SampleWriter
{
    QString name;       ///< "Tables"
    QString nameFilter; ///< in the syntax of QFileDialog
    QByteArray sample;  ///< the content of the file
};

QVector<SampleWriter> sampleWriters();

} // namespace gallery
