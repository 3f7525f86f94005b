#pragma once

#include "TourHome.h"
#include "TourLog.h"

#include <QString>

namespace gallery {

class GalleryWindow;

/// A tour through the whole gallery from its preparation on. Make it before the application object; while it
/// lives, neither the library nor Qt touches the user's settings.
class TourRun
{
public:
    /// `folder` is made when it is not there, and gets the pictures and "tour.log".
    explicit TourRun(const QString& folder);

    /// Plays the user of every page of `window`, which has been shown. Returns the program's exit code: 0
    /// when nothing failed.
    int walk(GalleryWindow& window);

private:
    void walkThroughPages(GalleryWindow& window);

    QString m_folder;
    TourLog m_log;
    TourHome m_home;
};

} // namespace gallery
