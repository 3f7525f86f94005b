#include "DialogFolders.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace {

const QFile::Permissions readable =
    QFile::ReadOwner | QFile::ExeOwner | QFile::ReadGroup | QFile::ExeGroup | QFile::ReadOther | QFile::ExeOther;

}

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
    QFile::setPermissions(path(name), on ? readable : readable | QFile::WriteOwner);
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
