#include "DialogFolders.h"

#include "AccessRights.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

DialogFolders::DialogFolders()
{
    setReadOnly({}, false);
}

DialogFolders::~DialogFolders()
{
    setReadOnly({}, false); // so that it can be removed
}

void DialogFolders::setReadOnly(const QString& name, bool on) const
{
    setAccess(path(name), on ? Access::NoWriting : Access::Everything);
}

QString DialogFolders::path(const QString& name) const
{
    return name.isEmpty() ? m_root.path() : m_root.filePath(name);
}

QString DialogFolders::addFile(const QString& name, const QByteArray& contents) const
{
    QString result = path(name);
    QDir().mkpath(QFileInfo(result).path());
    QFile file(result);
    if (!file.open(QIODevice::WriteOnly) || file.write(contents) != contents.size())
        qFatal("Cannot write %s", qPrintable(result));
    return result;
}

QString DialogFolders::addFolder(const QString& name, int files) const
{
    QDir().mkpath(path(name));
    for (int i = 0; i < files; ++i)
        addFile(QStringLiteral("%1/file%2.dat").arg(name).arg(i, 5, 10, QLatin1Char('0')));
    return path(name);
}
