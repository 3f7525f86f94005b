#pragma once

#include <memory>

class QWidget;

namespace gallery {

class GalleryPage;

/// Returns a scroll area with the page. It shows the widget with the keyboard focus, also when the page grows.
/// The wheel scrolls the page, and changes a field of the page only while the field has the keyboard focus.
std::unique_ptr<QWidget> scrolledPage(std::unique_ptr<GalleryPage> page);

} // namespace gallery
