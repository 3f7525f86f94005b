#include "pageTours.h"

#include "GalleryPage.h"
#include "tour/Tour.h"

#include <QString>

#include <algorithm>
#include <iterator>

namespace gallery {

namespace {

struct PageTour
{
    const char* title;
    void (*run)(GalleryPage& page, Tour& tour);
};

const PageTour tours[] = {
    {"Table editor", tourTableEditor},
    {"Open one file", tourFileDialog},
    {"Open several files", tourFileDialog},
    {"Save a file", tourFileDialog},
    {"Choose a directory", tourFileDialog},
    {"Save with a writer", tourSaveFlow},
    {"Native dialog", tourNativeDialog},
    {"Desktop portal", tourPortal},
    {"Either dialog", tourEitherDialog},
    {"Number fields", tourNumberFields},
    {"Filtering combo box", tourFilteringCombo},
    {"Labels and buttons", tourLabelsAndButtons},
    {"Helpers", tourHelpers},
    {"Table copy", tourTableCopy},
};

} // namespace

void tourPage(GalleryPage& page, Tour& tour)
{
    const auto* found = std::find_if(std::begin(tours), std::end(tours), [&page](const PageTour& candidate) {
        return page.title() == QLatin1String(candidate.title);
    });
    tour.expect(found != std::end(tours), QStringLiteral("the page has a tour"));
    if (found != std::end(tours))
        found->run(page, tour);
}

} // namespace gallery
