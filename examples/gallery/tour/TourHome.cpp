#include "TourHome.h"

#include <QDir>
#include <QFile>
#include <QLocale>

namespace gallery {

namespace {

void makeFolder(const char* variable, const QString& path)
{
    QDir().mkpath(path);
    qputenv(variable, QFile::encodeName(path));
}

/// Sets the path of the X authority file explicitly, because by default X searches it in the home folder.
void keepAccessToDisplay()
{
    if (!qEnvironmentVariableIsSet("XAUTHORITY"))
        qputenv("XAUTHORITY", QFile::encodeName(QDir::home().filePath(QStringLiteral(".Xauthority"))));
}

void writeFile(const QString& path, const QByteArray& contents)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(contents) != contents.size())
        qFatal("Cannot write %s", qPrintable(path));
}

} // namespace

TourHome::TourHome()
    : m_home(m_folder.filePath(QStringLiteral("home")))
{
    keepAccessToDisplay();
    makeFolder("HOME", m_home);
    makeFolder("XDG_CONFIG_HOME", m_home + QStringLiteral("/.config"));
    makeFolder("XDG_CACHE_HOME", m_home + QStringLiteral("/.cache"));
    makeFolder("XDG_DATA_HOME", m_home + QStringLiteral("/.local/share"));
    // Keeps the runtime folder of the desktop, if there is one, because its display may need it.
    if (!qEnvironmentVariableIsSet("XDG_RUNTIME_DIR")) {
        const QString path = m_home + QStringLiteral("/.runtime");
        makeFolder("XDG_RUNTIME_DIR", path);
        QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
    // The theme of a desktop would make drawing and style hints differ between machines.
    qunsetenv("QT_QPA_PLATFORMTHEME");
    qputenv("LC_ALL", "C.UTF-8");
    QLocale::setDefault(QLocale::c());
    makeDocuments();
}

void TourHome::makeDocuments() const
{
    QDir home(m_home);
    home.mkpath(QStringLiteral("Desktop"));
    home.mkpath(QStringLiteral("Documents/results"));
    QDir::setCurrent(home.filePath(QStringLiteral("Documents")));

    writeFile(QStringLiteral("run-1.dat"), "1 2 3\n");
    writeFile(QStringLiteral("run-2.dat"), "4 5 6\n");
    writeFile(QStringLiteral("run-3.dat"), "7 8 9\n");
    writeFile(QStringLiteral("notes.txt"), "Run 3 is the good one.\n");
    writeFile(QStringLiteral("broken.json"), "[{\"sample\": \"A-01\", \"note\": }]\n");
    QFile::copy(QStringLiteral(":/data/measurements.csv"), QStringLiteral("measurements.csv"));
}

} // namespace gallery
