#pragma once

#include "GalleryPage.h"

#include <memory>
#include <vector>

namespace gallery {

/// All pages, in the order of the list. The one place where a page is added.
std::vector<std::unique_ptr<GalleryPage>> makeGalleryPages();

} // namespace gallery
