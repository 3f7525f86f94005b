#pragma once

#include <QElapsedTimer>
#include <QImage>

namespace gallery {

/// The picture of all windows of the program as they are on the screen, with their frames, taken when nothing
/// moves in it any more: other programs draw a part of it, and none of them tells when it is done.
///
/// Ask isSettled() again and again from an event loop that lets the windows be drawn.
class SettledPicture
{
public:
    bool isSettled();
    /// What isSettled() saw last; null where the screen cannot be looked at.
    [[nodiscard]] const QImage& image() const { return m_image; }

private:
    QImage m_image;
    QElapsedTimer m_sinceLook;
    QElapsedTimer m_sinceChange;
};

} // namespace gallery
