#include "pageTours.h"
#include "widgetsOnPage.h"

#include "GalleryPage.h"
#include "tour/Tour.h"

#include <QGroupBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRegularExpression>

namespace gallery {

namespace {

struct Task
{
    QString button;
    QString typed;
    QString expected; ///< a regular expression
    bool hasPicture = false;
};

const Task tasks[] = {
    {QStringLiteral("Open one file…"), QStringLiteral("run-2.dat"), QStringLiteral("Chosen: .*run-2\\.dat")},
    {QStringLiteral("Open several files…"), QStringLiteral("\"run-1.dat\" \"run-3.dat\""),
     QStringLiteral("Chosen: .*run-1\\.dat\nChosen: .*run-3\\.dat"), true},
    {QStringLiteral("Save…"), QStringLiteral("either"), QStringLiteral("May be written: .*either\\.dat")},
    {QStringLiteral("Choose a directory…"), QStringLiteral("results"), QStringLiteral("Chosen: .*results")},
};

void tourTasks(GalleryPage& page, Tour& tour, const QWidget& box, const QString& picture)
{
    const auto& result = widgetOfLabel<QPlainTextEdit>(page, QStringLiteral("Result"));
    for (const Task& task : tasks) {
        tour.acceptFileDialog({task.typed, -1, task.hasPicture ? picture : QString()},
                              [&] { buttonOnPage(box, task.button).click(); });
        const QString text = result.toPlainText();
        tour.log(text.section(QLatin1Char('\n'), 0, 1).replace(QLatin1Char('\n'), QStringLiteral("; ")));
        tour.expect(text.contains(QRegularExpression(task.expected)), task.expected);
    }
}

} // namespace

void tourEitherDialog(GalleryPage& page, Tour& tour)
{
    const auto boxes = page.findChildren<QGroupBox*>();
    tourTasks(page, tour, *boxes[0], QStringLiteral("system"));
    tourTasks(page, tour, *boxes[1], QStringLiteral("qt"));
    tour.takePicture();
}

} // namespace gallery
