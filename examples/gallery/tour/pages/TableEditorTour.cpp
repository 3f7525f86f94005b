#include "pageTours.h"

#include "pages/TableEditorPage.h"

namespace gallery {

void tourTableEditor(GalleryPage& page, Tour& tour)
{
    dynamic_cast<TableEditorPage&>(page).tour(tour);
}

} // namespace gallery
