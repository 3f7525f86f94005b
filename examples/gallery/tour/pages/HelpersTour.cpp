#include "pageTours.h"
#include "widgetsOnPage.h"

#include "GalleryPage.h"
#include "tour/Tour.h"

#include "BuiltFont.h"

#include <QAbstractButton>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>

namespace gallery {

namespace {

QString told(const GalleryPage& page, const QString& label)
{
    return widgetOfLabel<QLabel>(page, label).text();
}

void press(const GalleryPage& page, const QString& button)
{
    buttonOnPage(page, button).click();
}

/// Writes a font to a folder in the home folder, and returns the folder.
QString madeFontFolder(Tour& tour)
{
    const QDir home = QDir::home();
    tour.expect(home.mkdir(QStringLiteral("fonts")), QStringLiteral("a folder for fonts is made"));
    QFile file(home.filePath(QStringLiteral("fonts/squares.ttf")));
    const QByteArray bytes = builtFont(QStringLiteral("Gallery Squares"));
    tour.expect(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush(),
                QStringLiteral("a font is written"));
    return QDir::toNativeSeparators(home.filePath(QStringLiteral("fonts")));
}

} // namespace

void tourHelpers(GalleryPage& page, Tour& tour)
{
    tour.answerQuestion(QMessageBox::Ok, [&page] { press(page, QStringLiteral("Work, and ask in between")); });
    tour.log(QStringLiteral("cursors: ") + told(page, QStringLiteral("They were")));

    press(page, QStringLiteral("Send"));
    press(page, QStringLiteral("Connected twice"));
    press(page, QStringLiteral("Send"));
    tour.log(QStringLiteral("heard: ") + told(page, QStringLiteral("Heard")));

    press(page, QStringLiteral("Find"));
    tour.log(QStringLiteral("main window: ") + told(page, QStringLiteral("Its title is")));

    widgetOfLabel<QLineEdit>(page, QStringLiteral("Path")).setText(madeFontFolder(tour));
    press(page, QStringLiteral("Add the folder"));
    tour.log(QStringLiteral("new families: ") + told(page, QStringLiteral("New families")));
    tour.takePicture();
}

} // namespace gallery
