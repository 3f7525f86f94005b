#pragma once

#include "GalleryPage.h"

#include <QMainWindow>

#include <memory>
#include <vector>

class QStackedWidget;

namespace gallery {

class PageList;
class ViewMenu;

/// The main window with the list of pages at the left and the selected page at the right. A page that does not fit is
/// scrolled. Ctrl+Page Down and Ctrl+Page Up switch the page, and Ctrl+F looks for one, whichever widget has the
/// keyboard focus.
class GalleryWindow : public QMainWindow
{
    Q_OBJECT

public:
    /// Creates a window with `pages`, of which there must be at least one, in this order, and selects the first one.
    explicit GalleryWindow(std::vector<std::unique_ptr<GalleryPage>> pages);
    ~GalleryWindow() override;

    [[nodiscard]] const std::vector<GalleryPage*>& pages() const { return m_pages; }
    void showPage(GalleryPage& page);

    /// Restores the position and the page with which the last window was closed, and the choices in the View menu.
    void restore();
    [[nodiscard]] ViewMenu& viewMenu() { return *m_viewMenu; }

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void addPage(std::unique_ptr<GalleryPage> page);
    void addMenus();
    void keep() const;
    void resizeToScreen();

    PageList* m_list;
    QStackedWidget* m_stack;
    ViewMenu* m_viewMenu;
    std::vector<GalleryPage*> m_pages; ///< owned by the scroll areas in the stack
};

} // namespace gallery
