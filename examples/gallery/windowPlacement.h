#pragma once

#include <QRect>
#include <QSize>

namespace gallery {

/// Returns the size of the largest window that leaves space for its frame.
QSize largestWindowOn(const QRect& screen);

/// Returns the geometry for a window that had the geometry `wanted` on a screen that may be gone: the same one if it is
/// on a screen, or else the nearest one that leaves space for the frame.
QRect placeOnScreen(const QRect& wanted);

} // namespace gallery
