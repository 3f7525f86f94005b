#include "pageTours.h"
#include "widgetsOnPage.h"

#include "GalleryPage.h"
#include "tour/Tour.h"

#include "ui/qt/controls/ElidedTextLabel.h"

#include <QAbstractButton>
#include <QLabel>
#include <QLineEdit>
#include <QSplitter>

namespace gallery {

void tourLabelsAndButtons(GalleryPage& page, Tour& tour)
{
    auto& splitter = *page.findChild<QSplitter*>();
    auto& label = *splitter.findChild<ElidedTextLabel*>();
    const auto& toolTip = widgetOfLabel<QLabel>(page, QStringLiteral("Its tool tip is"));
    splitter.setSizes({10000, 0});
    label.repaint(); // changes the tool tip
    tour.log(QStringLiteral("tool tip of a wide label: ") + toolTip.text());
    splitter.setSizes({splitter.width() / 3, splitter.width()});
    label.repaint();
    tour.log(QStringLiteral("tool tip of a narrow label: ") + toolTip.text());
    tour.takePicture();

    buttonOnPage(page, QStringLiteral("The labels have a tool tip of the application's own")).click();
    widgetOfLabel<QLineEdit>(page, QStringLiteral("Text"))
        .setText(QStringLiteral("<b>&Mark-up</b> is shown as it is, in a label as wide as you like"));
    tour.log(QStringLiteral("tool tip of the application's own: ") + toolTip.text());
    widgetOfLabel<QLineEdit>(page, QStringLiteral("Description"))
        .setText(QStringLiteral("Reads the files of one run, and of those that were measured on the same day, "
                                "and changes nothing in them."));
    buttonOnPage(page, QStringLiteral("The buttons are pressed")).click();
    tour.takePicture(QStringLiteral("long"));
}

} // namespace gallery
