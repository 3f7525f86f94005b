#include "tableDialogs.h"

#include "ui/qt/dialogs/LaunchFileDialog.h"
#include "ui/qt/dialogs/SaveFileDialog.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QStringList>

#include <string>
#include <vector>

namespace gallery {

namespace {

std::string translated(const char* text)
{
    return QCoreApplication::translate("gallery::tableDialogs", text).toStdString();
}

/// Returns the name filters for opening: first all formats together, then each format.
std::vector<std::string> openFilters()
{
    QStringList patterns;
    std::vector<std::string> filters(1);
    for (const TableFormat& format : tableFormats()) {
        patterns += QStringLiteral("*.") + format.extension;
        filters.push_back(format.nameFilter.toStdString());
    }
    filters.front() = translated("All tables") + " (" + patterns.join(QLatin1Char(' ')).toStdString() + ')';
    return filters;
}

/// Returns the name filters for saving: one for each writer, in the order of the formats.
std::vector<std::string> saveFilters()
{
    std::vector<std::string> filters;
    for (const TableFormat& format : tableFormats())
        filters.push_back(format.nameFilter.toStdString());
    return filters;
}

int indexOfFormat(const QString& path)
{
    return int(&tableFormatForPath(path) - tableFormats().constData());
}

/// Returns the format in which to write a table: that of the name, so that the file can be opened again, or else that
/// of the selected name filter.
const TableFormat& writerFor(const QString& path, int filter)
{
    const TableFormat& named = tableFormatForPath(path);
    const bool isCertain = QFileInfo(path).suffix().compare(named.extension, Qt::CaseInsensitive) == 0;
    return isCertain ? named : tableFormats()[qMax(0, filter)];
}

} // namespace

QString askForTable(const QString& shownPath)
{
    std::vector<std::string> shown;
    if (!shownPath.isEmpty())
        shown.push_back(shownPath.toStdString());
    std::vector<std::string> files;
    int filter = -1;
    const bool accepted =
        zelmar::ui::LaunchFileDialog(files, filter, translated("Open a table"), openFilters(), shown, false, false, 0);
    return accepted && !files.empty() ? QString::fromStdString(files.front()) : QString();
}

std::optional<TableTarget> askWhereToSave(QWidget& window, const QString& shownPath)
{
    const QFileInfo shown(shownPath);
    SaveFileDialog flow(&window, translated("Save the table"), shown.path().toStdString(),
                        shown.completeBaseName().toStdString(), saveFilters(), indexOfFormat(shownPath),
                        "table/save.html");
    if (!flow.launch())
        return {};
    const QString path = QString::fromStdString(flow.selectedFilename());
    return TableTarget{path, &writerFor(path, flow.selectedWriter())};
}

} // namespace gallery
