#pragma once

#include <QPalette>

namespace gallery {

/// Light text on dark ground, for the Fusion style, which takes all its colours from the palette.
QPalette darkPalette();

} // namespace gallery
