#include "ui/qt/controls/addFontsToDatabase.h"

#include <QDir>
#include <QFontDatabase>
#include <QMessageLogger>

namespace zelmar::ui {

void addFontToDatabase(const std::string& path)
{
    // Does not use the macro qWarning(), which adds this source location to the message.
    if (QFontDatabase::addApplicationFont(QString::fromStdString(path)) == -1)
        QMessageLogger().warning("Warning: Failed to load TrueType font from %s", path.c_str());
}

void addFontsToDatabase(const std::string& directory)
{
    const QString folder = QString::fromStdString(directory);
    // Compatibility: every-file-is-tried-as-font, doubled-font-separator
    const QStringList names = QDir(folder).entryList(QDir::Files, QDir::NoSort);
    for (const QString& name : names)
        addFontToDatabase(QStringLiteral("%1%2%3").arg(folder, QString(QDir::separator()), name).toStdString());
}

} // namespace zelmar::ui
