#include "FileDialogOutcome.h"

#include <QCoreApplication>
#include <QDir>

namespace gallery {

namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("gallery::FileDialogOutcome", text);
}

} // namespace

QStringList FileDialogOutcome::lines() const
{
    QStringList lines{accepted ? tr("The dialog was accepted.") : tr("The dialog was cancelled.")};
    for (const QString& file : files)
        lines += tr("Chosen: %1").arg(QDir::toNativeSeparators(file));
    lines += tr("Directory: %1").arg(QDir::toNativeSeparators(directory));
    if (filterIndex >= 0)
        lines += QStringList{tr("Filter: %1").arg(filter), tr("Index of the filter, from 0: %1").arg(filterIndex)};
    else
        lines += tr("Filter: none");
    return lines;
}

} // namespace gallery
