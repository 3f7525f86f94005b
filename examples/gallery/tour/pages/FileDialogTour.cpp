#include "pageTours.h"
#include "widgetsOnPage.h"

#include "GalleryPage.h"
#include "tour/Tour.h"

#include <QAbstractButton>
#include <QDir>
#include <QPlainTextEdit>
#include <QStringList>

#include <algorithm>
#include <iterator>

namespace gallery {

namespace {

/// The actions of the tour on one of the pages of file dialogs.
struct Choice
{
    QString title; ///< the title of the page
    QString button;
    QStringList names; ///< in the current folder
    int filter;        ///< the 0-based index of the filter that is selected first; -1 for none
    QString outcome;   ///< the line that tells the filter
};

const Choice choices[] = {
    {QStringLiteral("Open one file"), QStringLiteral("Open a file…"), QStringList{QStringLiteral("notes.txt")}, 1,
     QStringLiteral("Index of the filter, from 0: 1")},
    {QStringLiteral("Open several files"), QStringLiteral("Open files…"),
     QStringList{QStringLiteral("run-1.dat"), QStringLiteral("run-3.dat")}, -1,
     QStringLiteral("Index of the filter, from 0: 0")},
    {QStringLiteral("Save a file"), QStringLiteral("Save a file…"), QStringList{QStringLiteral("summary.txt")}, 1,
     QStringLiteral("Index of the filter, from 0: 1")},
    {QStringLiteral("Choose a directory"), QStringLiteral("Choose a directory…"),
     QStringList{QStringLiteral("results")}, -1, QStringLiteral("Filter: none")},
};

/// Returns the names as a user types them: a single name unquoted, several names in double quotes.
QString typedNames(const QStringList& names)
{
    if (names.size() == 1)
        return names.first();
    return QLatin1Char('"') + names.join(QStringLiteral("\" \"")) + QLatin1Char('"');
}

QStringList pathsInCurrentFolder(const QStringList& names)
{
    QStringList paths;
    for (const QString& name : names)
        paths += QStringLiteral("Chosen: ") + QDir::toNativeSeparators(QDir::current().absoluteFilePath(name));
    return paths;
}

/// Logs the lines of the result and returns them.
QStringList loggedResult(const GalleryPage& page, Tour& tour)
{
    const auto& result = widgetOfLabel<QPlainTextEdit>(page, QStringLiteral("Result"));
    QStringList lines = result.toPlainText().split(QLatin1Char('\n'));
    for (const QString& line : qAsConst(lines))
        tour.log(line);
    return lines;
}

} // namespace

void tourFileDialog(GalleryPage& page, Tour& tour)
{
    const Choice& choice = *std::find_if(std::begin(choices), std::end(choices),
                                         [&page](const Choice& candidate) { return candidate.title == page.title(); });
    const auto open = [&] { buttonOnPage(page, choice.button).click(); };
    tour.readHelpAndCancelFileDialog(open);
    tour.expect(loggedResult(page, tour).first() == QStringLiteral("The dialog was cancelled."),
                QStringLiteral("Escape cancels the dialog"));

    tour.acceptFileDialog({typedNames(choice.names), choice.filter}, open);
    const QStringList lines = loggedResult(page, tour);
    tour.expect(lines.first() == QStringLiteral("The dialog was accepted."),
                QStringLiteral("Return accepts the dialog"));
    tour.expect(lines.filter(QStringLiteral("Chosen: ")) == pathsInCurrentFolder(choice.names),
                QStringLiteral("the typed files are chosen"));
    tour.expect(lines.contains(choice.outcome), QStringLiteral("the picked filter is chosen"));
    tour.takePicture();
}

} // namespace gallery
