#include "tableDialogs.h"

#include "ui/qt/dialogs/LaunchFileDialog.h"
#include "ui/qt/dialogs/SaveFileDialog.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QPointer>
#include <QStringList>
#include <QWidget>

#include <string>
#include <vector>

namespace gallery {

namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("gallery::tableDialogs", text);
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
    filters.front() = tr("All tables").toStdString() + " (" + patterns.join(QLatin1Char(' ')).toStdString() + ')';
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

/// A parent for the dialog of a save flow, which leaves the dialog to its parent. The dialog is centred over the
/// window, and ends with this object.
class DialogParent
{
public:
    explicit DialogParent(QWidget& window)
        : m_widget(new QWidget(&window))
    {
        m_widget->hide();
    }
    ~DialogParent() { delete m_widget; }

    [[nodiscard]] QWidget* widget() const { return m_widget; }

private:
    Q_DISABLE_COPY(DialogParent)

    QPointer<QWidget> m_widget; ///< null if the window was destroyed in the dialog
};

} // namespace

QString askForTable(const QString& shownPath)
{
    std::vector<std::string> shown;
    if (!shownPath.isEmpty())
        shown.push_back(shownPath.toStdString());
    std::vector<std::string> files;
    int filter = -1;
    const bool accepted = zelmar::ui::LaunchFileDialog(files, filter, tr("Open a table").toStdString(), openFilters(),
                                                       shown, false, false, 0);
    return accepted && !files.empty() ? QString::fromStdString(files.front()) : QString();
}

std::optional<TableTarget> askWhereToSave(QWidget& window, const QString& shownPath)
{
    const DialogParent parent(window);
    const QFileInfo shown(shownPath);
    SaveFileDialog flow(parent.widget(), tr("Save the table").toStdString(), shown.path().toStdString(),
                        shown.completeBaseName().toStdString(), saveFilters(), indexOfFormat(shownPath),
                        "table/save.html");
    if (!flow.launch())
        return {};
    const QString path = QString::fromStdString(flow.selectedFilename());
    return TableTarget{path, &writerFor(path, flow.selectedWriter())};
}

QMessageBox::StandardButton askWhetherToSave(QWidget& window, const QString& path)
{
    const QString text = tr("The table \"%1\" has edits that are not saved. Do you want to save them?");
    // The question is on the heap, because the window may be destroyed while it is open, and the question with it.
    const QPointer<QMessageBox> question =
        new QMessageBox(QMessageBox::Question, tr("Table editor"), text.arg(QFileInfo(path).fileName()),
                        QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, &window);
    question->setTextFormat(Qt::PlainText);
    question->setDefaultButton(QMessageBox::Save);
    const int answer = question->exec();
    if (!question)
        return QMessageBox::Cancel;
    delete question;
    return QMessageBox::StandardButton(answer);
}

} // namespace gallery
