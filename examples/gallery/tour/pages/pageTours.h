#pragma once

namespace gallery {

class GalleryPage;
class Tour;

/// Acts as a user of `page`, which the window shows: presses keys and buttons, types, takes pictures and reports to
/// `tour` the results and whether they are the expected ones. Returns when everything is done. To add the tour of a
/// page, add it below and to the table in the source.
void tourPage(GalleryPage& page, Tour& tour);

/// The tours of the single pages. They find the widgets as a user does, by their labels and texts.
void tourEitherDialog(GalleryPage& page, Tour& tour);
void tourFileDialog(GalleryPage& page, Tour& tour);
void tourFilteringCombo(GalleryPage& page, Tour& tour);
void tourHelpers(GalleryPage& page, Tour& tour);
void tourLabelsAndButtons(GalleryPage& page, Tour& tour);
void tourNativeDialog(GalleryPage& page, Tour& tour);
void tourNumberFields(GalleryPage& page, Tour& tour);
void tourPortal(GalleryPage& page, Tour& tour);
void tourSaveFlow(GalleryPage& page, Tour& tour);
void tourTableCopy(GalleryPage& page, Tour& tour);
void tourTableEditor(GalleryPage& page, Tour& tour);

} // namespace gallery
