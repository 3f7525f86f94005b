#include "pageTours.h"
#include "widgetsOnPage.h"

#include "GalleryPage.h"
#include "pages/SampleWriter.h"
#include "tour/Tour.h"

#include <QCheckBox>
#include <QDir>
#include <QFile>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTableWidget>

namespace gallery {

namespace {

/// A user of the page of the save flow.
class SaveFlowTour
{
public:
    SaveFlowTour(GalleryPage& page, Tour& tour)
        : m_tour(tour)
        , m_table(*page.findChild<QTableWidget*>())
        , m_ownWording(*page.findChild<QCheckBox*>())
        , m_button(buttonOnPage(page, QStringLiteral("Save a sample…")))
        , m_result(widgetOfLabel<QPlainTextEdit>(page, QStringLiteral("Result")))
    {
    }

    void run();

private:
    void save(int writer, const QString& name, const QString& expectedName);
    void overwrite(bool ownWording);
    void press() { m_button.click(); }

    Tour& m_tour;
    QTableWidget& m_table;
    QCheckBox& m_ownWording;
    QAbstractButton& m_button;
    const QPlainTextEdit& m_result;
};

void SaveFlowTour::run()
{
    m_tour.readHelpAndCancelFileDialog([this] { press(); });
    m_tour.expect(m_result.toPlainText() == QStringLiteral("Nothing was saved."),
                  QStringLiteral("Escape saves nothing"));
    save(0, QStringLiteral("sample"), QStringLiteral("sample.dat"));
    save(1, QStringLiteral("sample."), QStringLiteral("sample.csv"));
    save(2, QStringLiteral("sample"), QStringLiteral("sample.htm"));
    overwrite(true);
    overwrite(false);
    m_tour.takePicture();
}

void SaveFlowTour::save(int writer, const QString& name, const QString& expectedName)
{
    m_table.selectRow(writer);
    m_tour.acceptFileDialog({name, -1, writer == 0 ? QStringLiteral("dialog") : QString()}, [this] { press(); });
    const QStringList lines = m_result.toPlainText().split(QLatin1Char('\n'));
    for (const QString& line : lines)
        m_tour.log(line);
    QFile file(QDir::current().filePath(expectedName));
    m_tour.expect(file.open(QIODevice::ReadOnly) && file.readAll() == sampleWriters()[writer].sample,
                  QStringLiteral("the writer that was preselected has written ") + expectedName);
}

void SaveFlowTour::overwrite(bool ownWording)
{
    m_ownWording.setChecked(ownWording);
    m_table.selectRow(0);
    m_tour.acceptFileDialog({QStringLiteral("sample"),
                             -1,
                             QString(),
                             {QMessageBox::Yes},
                             ownWording ? QString() : QStringLiteral("question")},
                            [this] { press(); });
    m_tour.expect(m_result.toPlainText().contains(QStringLiteral("sample.dat")), QStringLiteral("Yes writes over it"));
}

} // namespace

void tourSaveFlow(GalleryPage& page, Tour& tour)
{
    SaveFlowTour(page, tour).run();
}

} // namespace gallery
