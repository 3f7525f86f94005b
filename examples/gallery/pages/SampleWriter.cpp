#include "SampleWriter.h"

#include <QCoreApplication>

namespace gallery {

namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("gallery::SampleWriter", text);
}

} // namespace

QVector<SampleWriter> sampleWriters()
{
    return {
        {tr("Data"), tr("Data files (*.dat)"), "4.2 1.31e-4\n77.4 2.07e-3\n"},
        {tr("Tables"), tr("Tables (*.csv)"), "temperature,resistance\n4.2,1.31e-4\n77.4,2.07e-3\n"},
        {tr("Pages"), tr("Web pages (*.html *.htm)"), "<p>4.2 K: 1.31e-4</p>\n<p>77.4 K: 2.07e-3</p>\n"},
    };
}

} // namespace gallery
