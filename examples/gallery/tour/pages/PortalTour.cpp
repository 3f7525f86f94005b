#include "pageTours.h"
#include "widgetsOnPage.h"

#include "GalleryPage.h"
#include "tour/Tour.h"

#include "FileDialogActions.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QPlainTextEdit>

namespace gallery {

/// The tour's screen has no portal, so that the library's own dialog opens.
void tourPortal(GalleryPage& page, Tour& tour)
{
    const auto& result = widgetOfLabel<QPlainTextEdit>(page, QStringLiteral("Result"));
    auto& use = widgetOfLabel<QComboBox>(page, QStringLiteral("The portal is asked"));
    for (int i = 0; i < use.count(); ++i) {
        use.setCurrentIndex(i);
        tour.useFileDialog({[](QFileDialog& dialog) {
                                buttonOnPage(dialog, QStringLiteral("First line has the names of the columns")).click();
                            },
                            [](QFileDialog& dialog) { typeName(dialog, QStringLiteral("measurements.csv")); }},
                           i == 0 ? QStringLiteral("dialog") : QString(),
                           {[](QFileDialog& dialog) { buttonOnPage(dialog, QStringLiteral("Open")).click(); }},
                           [&page] { buttonOnPage(page, QStringLiteral("Open tables…")).click(); });
        const QStringList lines = result.toPlainText().split(QLatin1Char('\n'));
        tour.expect(lines.first().endsWith(QStringLiteral("/measurements.csv")), QStringLiteral("a table is chosen"));
        const QString headers = QStringLiteral("Names of the columns: ");
        tour.expect(lines.contains(headers + (i % 2 == 0 ? QStringLiteral("no") : QStringLiteral("yes"))),
                    QStringLiteral("the check box is told"));
        tour.log(QStringLiteral("%1: %2").arg(use.currentText(), lines.mid(1).join(QStringLiteral(", "))));
    }
    use.setCurrentIndex(0);

    tour.acceptFileDialog({QStringLiteral("chosen"), -1, QString()},
                          [&page] { buttonOnPage(page, QStringLiteral("Save a table…")).click(); });
    tour.expect(result.toPlainText().endsWith(QStringLiteral("/chosen.csv")),
                QStringLiteral("the name has its extension"));
    tour.takePicture();
}

} // namespace gallery
