#include "GalleryWindow.h"
#include "HelpDialog.h"
#include "ViewMenu.h"
#include "pages/makeGalleryPages.h"
#include "tour/TourRun.h"

#include <QApplication>
#include <QCommandLineParser>

#include <cstdio>
#include <optional>

namespace {

struct CommandLine
{
    CommandLine()
    {
        parser.setApplicationDescription(QStringLiteral("Shows the widgets and dialogs of common_ui_qt at work."));
        parser.addHelpOption();
        parser.addOptions({tour, dark});
    }

    QCommandLineOption tour{QStringLiteral("tour"),
                            QStringLiteral("Walk through all pages without a user, and leave pictures and tour.log "
                                           "in <folder>. The exit code is 0 only if all went as it should."),
                            QStringLiteral("folder")};
    QCommandLineOption dark{QStringLiteral("dark"), QStringLiteral("Use dark colours.")};
    QCommandLineParser parser;
};

#ifdef Q_OS_WIN
const bool tourIsPossible = false;
#else
const bool tourIsPossible = true;
#endif

/// Returns the arguments as QApplication will decode them, including the options that it will remove.
QStringList rawArguments(int argc, char* argv[])
{
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments += QString::fromLocal8Bit(argv[i]);
    return arguments;
}

void nameApplication()
{
    QCoreApplication::setOrganizationName(QStringLiteral("common_ui_qt"));
    QCoreApplication::setApplicationName(QStringLiteral("gallery"));
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0) // Qt 6 always does both and deprecates the attributes
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
#endif
}

} // namespace

int main(int argc, char* argv[])
{
    CommandLine commandLine;
    nameApplication();

    // A tour must set up its own home before Qt reads the user's settings. process() below reports invalid options.
    commandLine.parser.parse(rawArguments(argc, argv));
    std::optional<gallery::TourRun> tour;
    if (commandLine.parser.isSet(commandLine.tour) && !tourIsPossible) {
        std::fputs("A tour drives dialogs that Qt draws, and the native ones are the system's here.\n", stderr);
        return 2;
    }
    if (commandLine.parser.isSet(commandLine.tour))
        tour.emplace(commandLine.parser.value(commandLine.tour));

    gallery::useChosenScale();
    QApplication application(argc, argv);
    commandLine.parser.process(application);
    gallery::showHelpTopicsInDialogs();

    gallery::GalleryWindow window(gallery::makeGalleryPages());
    window.restore();
    if (commandLine.parser.isSet(commandLine.dark))
        window.viewMenu().useDarkColours();
    window.show();
    return tour ? tour->walk(window) : QApplication::exec();
}
