#include "TourRun.h"

#include "GalleryWindow.h"
#include "Tour.h"
#include "pages/pageTours.h"

#include "platform/ApplicationSettings.h"

#include <QApplication>
#include <QDir>
#include <QTest>

#include <memory>

namespace gallery {

namespace {

using zelmar::ApplicationSettings;

/// Creates `folder` and returns its absolute path, because the tour changes the current folder.
QString madeFolder(const QString& folder)
{
    QString path = QDir(folder).absolutePath();
    QDir().mkpath(path);
    return path;
}

} // namespace

TourRun::TourRun(const QString& folder)
    : m_folder(madeFolder(folder))
    , m_log(QDir(m_folder).filePath(QStringLiteral("tour.log")))
{
    ApplicationSettings::getInstance().setStore(std::make_unique<ApplicationSettings::MemoryStore>());
}

int TourRun::walk(GalleryWindow& window)
{
    // A blinking cursor would make successive pictures of a window differ.
    QApplication::setCursorFlashTime(0);
    if (QTest::qWaitForWindowActive(&window, 15000))
        walkThroughPages(window);
    else
        m_log.fail(QStringLiteral("the window was never active"));

    const int failures = m_log.failureCount();
    m_log.write(failures == 0 ? QStringLiteral("The tour is complete")
                              : QStringLiteral("The tour has %1 failure(s)").arg(failures));
    return failures == 0 ? 0 : 1;
}

void TourRun::walkThroughPages(GalleryWindow& window)
{
    Tour tour(m_log, m_folder);
    for (GalleryPage* page : window.pages()) {
        tour.enterPage(page->title());
        window.showPage(*page);
        tourPage(*page, tour);
    }
}

} // namespace gallery
