#include "pageTours.h"
#include "widgetsOnPage.h"

#include "GalleryPage.h"
#include "tour/Tour.h"

#include "ui/qt/controls/ComboBoxAutoFilter.h"

#include "Keyboard.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QLabel>
#include <QPushButton>
#include <QTableView>
#include <QTest>
#include <QWindow>

using zelmar::ui::ComboBoxAutoFilter;

namespace gallery {

namespace {

/// Sends the key to the window, from which Qt forwards it to an open popup.
void press(const GalleryPage& page, Qt::Key key)
{
    QTest::keyClick(page.window()->windowHandle(), key);
}

void type(const GalleryPage& page, const char* letters)
{
    for (; *letters != '\0'; ++letters)
        QTest::keyClick(page.window()->windowHandle(), *letters);
}

void waitForNames(Tour& tour, const ComboBoxAutoFilter& box)
{
    tour.waitUntil(QStringLiteral("names are offered"), [&box] { return box.completer()->popup()->isVisible(); });
}

/// Presses the value and returns the box in which it is edited then.
ComboBoxAutoFilter& editedBox(const GalleryPage& page)
{
    widgetOfLabel<QPushButton>(page, QStringLiteral("Signal")).click();
    auto& box = widgetOfLabel<ComboBoxAutoFilter>(page, QStringLiteral("Signal"));
    takeKeyboardFocus(box);
    return box;
}

void logForm(const GalleryPage& page, Tour& tour)
{
    tour.log(QStringLiteral("form: %1; %2")
                 .arg(widgetOfLabel<QPushButton>(page, QStringLiteral("Signal")).text(),
                      widgetOfLabel<QLabel>(page, QStringLiteral("Ended by")).text()));
}

void tourForm(const GalleryPage& page, Tour& tour)
{
    const ComboBoxAutoFilter& box = editedBox(page);
    type(page, "hlw");
    waitForNames(tour, box);
    tour.log(QStringLiteral("names with \"hlw\": %1").arg(box.completer()->completionCount()));
    tour.takePicture(QStringLiteral("form"));
    press(page, Qt::Key_Tab);
    logForm(page, tour);

    editedBox(page);
    type(page, "zz");
    press(page, Qt::Key_Return);
    logForm(page, tour);

    editedBox(page);
    press(page, Qt::Key_Down);
    press(page, Qt::Key_Escape);
    logForm(page, tour);
}

void tourTable(const GalleryPage& page, Tour& tour)
{
    auto& table = *page.findChild<QTableView*>();
    const QModelIndex cell = table.model()->index(2, 1);
    takeKeyboardFocus(table);
    table.setCurrentIndex(cell);
    press(page, Qt::Key_F2);
    const auto* box = table.findChild<ComboBoxAutoFilter*>();
    tour.expect(box != nullptr, QStringLiteral("a cell is edited in the combo box"));
    if (!box)
        return;
    type(page, "speed");
    waitForNames(tour, *box);
    tour.takePicture();
    press(page, Qt::Key_Return);
    tour.log(QStringLiteral("table: ") + cell.data().toString());
    tour.expect(table.hasFocus(), QStringLiteral("the table has the keyboard again"));
}

} // namespace

void tourFilteringCombo(GalleryPage& page, Tour& tour)
{
    widgetOfLabel<QComboBox>(page, QStringLiteral("Names")).setCurrentIndex(2);
    tourForm(page, tour);
    tourTable(page, tour);
}

} // namespace gallery
