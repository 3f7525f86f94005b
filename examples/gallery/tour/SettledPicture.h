#pragma once

#include <QElapsedTimer>
#include <QImage>

namespace gallery {

/// A picture of all windows of the program on the screen, including their frames, which is taken once it no longer
/// changes. Other programs draw a part of it and do not report when they have finished.
///
/// Call isSettled() repeatedly from an event loop in which the windows are drawn.
class SettledPicture
{
public:
    bool isSettled();
    /// Returns the last picture that isSettled() took, or a null image if the screen cannot be read.
    [[nodiscard]] const QImage& image() const { return m_image; }

private:
    QImage m_image;
    QElapsedTimer m_sinceLook;
    QElapsedTimer m_sinceChange;
};

} // namespace gallery
