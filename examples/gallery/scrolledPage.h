#pragma once

#include <memory>

class QWidget;

namespace gallery {

class GalleryPage;

/// Returns a scroll area with the page. It shows the widget with the keyboard focus, also when the page grows.
std::unique_ptr<QWidget> scrolledPage(std::unique_ptr<GalleryPage> page);

} // namespace gallery
