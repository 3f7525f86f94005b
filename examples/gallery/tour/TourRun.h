#pragma once

#include "TourHome.h"
#include "TourLog.h"

#include <QString>

namespace gallery {

class GalleryWindow;

/// A tour through the whole gallery, including its preparation. Create it before the application object. During its
/// lifetime neither the library nor Qt changes the user's settings.
class TourRun
{
public:
    /// Prepares a tour that writes the pictures and "tour.log" to `folder`, which is created if it does not exist.
    explicit TourRun(const QString& folder);

    /// Acts as the user of every page of `window`, which must be shown. Returns the exit code of the program, which is
    /// 0 if nothing failed.
    int walk(GalleryWindow& window);

private:
    void walkThroughPages(GalleryWindow& window);

    QString m_folder;
    TourLog m_log;
    TourHome m_home;
};

} // namespace gallery
