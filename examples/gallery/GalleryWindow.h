#pragma once

#include "GalleryPage.h"

#include <QMainWindow>

#include <memory>
#include <vector>

class QListWidget;
class QStackedWidget;

namespace gallery {

/// The main window: the list of pages at the left, the chosen page at the right. Ctrl+Page Down and Ctrl+Page
/// Up go through the pages from wherever the keyboard is.
class GalleryWindow : public QMainWindow
{
    Q_OBJECT

public:
    /// Shows the first of `pages`, in this order; there has to be one.
    explicit GalleryWindow(std::vector<std::unique_ptr<GalleryPage>> pages);
    ~GalleryWindow() override;

    [[nodiscard]] const std::vector<GalleryPage*>& pages() const { return m_pages; }
    void showPage(GalleryPage& page);

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void addPage(std::unique_ptr<GalleryPage> page);
    QWidget* makePageColumn();
    void addMenu();
    void step(int pages);
    void resizeToScreen();

    QListWidget* m_list;
    QStackedWidget* m_stack;
    std::vector<GalleryPage*> m_pages; ///< owned by the stack
};

} // namespace gallery
