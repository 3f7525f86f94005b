#pragma once

#include "GalleryPage.h"

#include <memory>
#include <vector>

namespace gallery {

/// Creates all pages in the order of the list. Add new pages in this function.
std::vector<std::unique_ptr<GalleryPage>> makeGalleryPages();

} // namespace gallery
