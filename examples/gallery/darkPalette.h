#pragma once

#include <QPalette>

namespace gallery {

/// Returns a palette with light text on a dark background for the Fusion style, which takes all its colours from the
/// palette.
QPalette darkPalette();

} // namespace gallery
