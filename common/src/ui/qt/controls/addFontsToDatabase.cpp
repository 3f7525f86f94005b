#include "ui/qt/controls/addFontsToDatabase.h"

#include <QDir>
#include <QFontDatabase>
#include <QMessageLogger>

namespace zelmar::ui {

void addFontToDatabase(const std::string& path)
{
    // Not qWarning(), which tells where in this source the message is from.
    if (QFontDatabase::addApplicationFont(QString::fromStdString(path)) == -1)
        QMessageLogger().warning("Warning: Failed to load TrueType font from %s", path.c_str());
}

void addFontsToDatabase(const std::string& directory)
{
    const QString folder = QString::fromStdString(directory);
    const QStringList names = QDir(folder).entryList(QDir::Files, QDir::NoSort);
    for (const QString& name : names)
        addFontToDatabase(QStringLiteral("%1%2%3").arg(folder, QString(QDir::separator()), name).toStdString());
}

} // namespace zelmar::ui
