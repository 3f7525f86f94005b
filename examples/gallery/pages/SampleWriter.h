#pragma once

#include <QByteArray>
#include <QString>
#include <QVector>

namespace gallery {

/// A way to write the sample of the save flow's page.
struct SampleWriter
{
    QString name;       ///< "Tables"
    QString nameFilter; ///< as file dialogs take it
    QByteArray sample;  ///< what is written
};

QVector<SampleWriter> sampleWriters();

} // namespace gallery
