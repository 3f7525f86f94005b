#include "TestHome.h"

#include <QCoreApplication>
#include <QDir>
#include <QLocale>

namespace {

const char sharedHome[] = "COMMON_UI_QT_TEST_HOME";

void makeFolder(const char* variable, const QString& path)
{
    QDir().mkpath(path);
    qputenv(variable, QFile::encodeName(path));
}

} // namespace

TestHome::TestHome()
{
    QString home = QFile::decodeName(qgetenv(sharedHome));
    if (home.isEmpty()) {
        home = m_folder.path();
        qputenv(sharedHome, QFile::encodeName(home));
    }
    makeFolder("HOME", home);
    makeFolder("XDG_CONFIG_HOME", home + QStringLiteral("/config"));
    makeFolder("XDG_CACHE_HOME", home + QStringLiteral("/cache"));
    makeFolder("XDG_DATA_HOME", home + QStringLiteral("/data"));
    makeFolder("XDG_RUNTIME_DIR", home + QStringLiteral("/runtime"));
    QFile::setPermissions(home + QStringLiteral("/runtime"), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    // The theme of a desktop would make drawing and style hints differ between machines.
    qunsetenv("QT_QPA_PLATFORMTHEME");
    // In a desktop session or a sandbox, a portal would show the native dialogs.
    qunsetenv("XDG_CURRENT_DESKTOP");
    qunsetenv("SNAP");
    qputenv("LC_ALL", "C.UTF-8");
    QLocale::setDefault(QLocale::c());
    QCoreApplication::setOrganizationName(QStringLiteral("common_ui_qt"));
    QCoreApplication::setApplicationName(QStringLiteral("test"));
}
