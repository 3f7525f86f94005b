#include "GalleryWindow.h"

#include "PageList.h"

#include "ui/qt/dialogs/ExtendedFileDialog.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QMenuBar>
#include <QScreen>
#include <QScrollArea>
#include <QStackedWidget>

#include <algorithm>

namespace gallery {

namespace {

/// Returns a scroll area with the page that shows the widget with the keyboard focus.
QWidget* scrolled(std::unique_ptr<GalleryPage> page)
{
    auto* area = new QScrollArea;
    area->setFrameShape(QFrame::NoFrame);
    area->setFocusPolicy(Qt::NoFocus);
    area->setWidgetResizable(true);
    area->setWidget(page.release());
    QObject::connect(qApp, &QApplication::focusChanged, area, [area](QWidget* /*old*/, QWidget* now) {
        if (area->widget()->isAncestorOf(now))
            area->ensureWidgetVisible(now);
    });
    return area;
}

} // namespace

GalleryWindow::GalleryWindow(std::vector<std::unique_ptr<GalleryPage>> pages)
    : m_list(new PageList)
    , m_stack(new QStackedWidget)
{
    setWindowTitle(tr("Gallery of common_ui_qt"));
    for (auto& page : pages)
        addPage(std::move(page));

    auto* central = new QWidget;
    auto* layout = new QHBoxLayout(central);
    layout->addWidget(m_list);
    layout->addWidget(m_stack, 1);
    setCentralWidget(central);
    addMenu();

    connect(m_list, &PageList::currentChanged, m_stack, &QStackedWidget::setCurrentIndex);
    m_list->setCurrent(0);
    m_list->focusList();
    resizeToScreen();
}

GalleryWindow::~GalleryWindow() = default;

void GalleryWindow::showPage(GalleryPage& page)
{
    m_list->setCurrent(int(std::find(m_pages.begin(), m_pages.end(), &page) - m_pages.begin()));
}

void GalleryWindow::closeEvent(QCloseEvent* event)
{
    const auto refusing =
        std::find_if(m_pages.begin(), m_pages.end(), [](GalleryPage* page) { return !page->mayLeave(); });
    if (refusing != m_pages.end())
        showPage(**refusing); // which tells why
    event->setAccepted(refusing == m_pages.end());
}

void GalleryWindow::addPage(std::unique_ptr<GalleryPage> page)
{
    m_pages.push_back(page.get());
    m_list->add(*page);
    m_stack->addWidget(scrolled(std::move(page)));
}

void GalleryWindow::addMenu()
{
    QMenu* menu = menuBar()->addMenu(tr("&Gallery"));
    QAction* find = menu->addAction(tr("&Find a page"), m_list, &PageList::focusSearch);
    find->setShortcut(QKeySequence::Find);
    QAction* next = menu->addAction(tr("&Next page"), m_list, [this] { m_list->step(1); });
    next->setShortcut(QKeySequence(QStringLiteral("Ctrl+PgDown")));
    QAction* previous = menu->addAction(tr("&Previous page"), m_list, [this] { m_list->step(-1); });
    previous->setShortcut(QKeySequence(QStringLiteral("Ctrl+PgUp")));
    menu->addSeparator();
    QAction* native = menu->addAction(tr("&System's file dialogs"));
    native->setCheckable(true);
    native->setChecked(ExtendedFileDialog::useNativeFileDialog());
    connect(native, &QAction::toggled, this, &ExtendedFileDialog::setUseNativeFileDialog);
    menu->addSeparator();
    QAction* quit = menu->addAction(tr("&Quit"), this, &QWidget::close);
    quit->setShortcut(QKeySequence::Quit);
}

void GalleryWindow::resizeToScreen()
{
    // Leaves space for the frame of the window.
    resize(QSize(960, 640).boundedTo(screen()->availableSize() * 9 / 10));
}

} // namespace gallery
