#include "BuiltLocales.h"

#include <QFile>
#include <QProcess>

#include <clocale>

BuiltLocales::BuiltLocales()
{
    qputenv("LOCPATH", QFile::encodeName(m_folder.path()));
}

BuiltLocales::~BuiltLocales()
{
    qunsetenv("LOCPATH");
    std::setlocale(LC_ALL, "C.UTF-8");
}

bool BuiltLocales::enter(const QString& name)
{
    const QString fullName = name + QStringLiteral(".UTF-8");
    const int result = QProcess::execute(QStringLiteral("localedef"),
                                         {QStringLiteral("--quiet"), QStringLiteral("-i"), name, QStringLiteral("-f"),
                                          QStringLiteral("UTF-8"), m_folder.filePath(fullName)});
    return result == 0 && std::setlocale(LC_ALL, qPrintable(fullName)) != nullptr;
}
