#include "pageTours.h"
#include "widgetsOnPage.h"

#include "GalleryPage.h"
#include "tour/Tour.h"

#include "FileDialogActions.h"

#include <QAbstractButton>
#include <QAction>
#include <QMenu>
#include <QPlainTextEdit>

namespace gallery {

namespace {

/// Selects an item of the menu on the accept button.
void pick(const QFileDialog& dialog, const QString& text)
{
    const auto menus = dialog.findChildren<QMenu*>();
    for (const QMenu* menu : menus) {
        const auto actions = menu->actions();
        for (QAction* action : actions)
            if (action->text() == text)
                action->trigger();
    }
}

Tour::FileDialogStep pressing(const QString& text)
{
    return [text](QFileDialog& dialog) { buttonOnPage(dialog, text).click(); };
}

void useDialog(Tour& tour, const std::function<void()>& open)
{
    tour.useFileDialog({[](QFileDialog& dialog) { pickFilter(dialog, 1); }, pressing(QStringLiteral("Expert")),
                        [](QFileDialog& dialog) { typeName(dialog, QStringLiteral("notes.txt")); }},
                       QStringLiteral("dialog"),
                       {pressing(QStringLiteral("Rules…")), pressing(QStringLiteral("Preview")),
                        pressing(QStringLiteral("Columns…")),
                        [](QFileDialog& dialog) { pick(dialog, QStringLiteral("Take a copy")); }},
                       open);
}

} // namespace

void tourNativeDialog(GalleryPage& page, Tour& tour)
{
    const auto& events = widgetOfLabel<QPlainTextEdit>(page, QStringLiteral("Events"));
    const auto lines = [&events] { return events.toPlainText().split(QLatin1Char('\n')); };
    const auto open = [&page] { buttonOnPage(page, QStringLiteral("Show the dialog…")).click(); };
    tour.readHelpAndCancelFileDialog(open);
    tour.expect(lines().contains(QStringLiteral("The dialog was cancelled.")),
                QStringLiteral("Escape cancels the dialog"));

    useDialog(tour, open);
    const QStringList logged = lines();
    for (const QString& line : logged)
        tour.log(line);
    for (const QString& line :
         {QStringLiteral("Preview: off"), QStringLiteral("Expert: on"), QStringLiteral("Button: Rules"),
          QStringLiteral("File type: 2"), QStringLiteral("The dialog was accepted."),
          QStringLiteral("Option of the accept button: 3")})
        tour.expect(logged.contains(line), QStringLiteral("logged: ") + line);
    tour.expect(!logged.contains(QStringLiteral("Button: Columns")), QStringLiteral("a disabled button does nothing"));
    tour.takePicture();
}

} // namespace gallery
