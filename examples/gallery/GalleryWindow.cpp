#include "GalleryWindow.h"

#include "PageList.h"
#include "ViewMenu.h"
#include "scrolledPage.h"
#include "windowPlacement.h"

#include "ui/qt/dialogs/ExtendedFileDialog.h"

#include <QAction>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QMenuBar>
#include <QScreen>
#include <QSettings>
#include <QStackedWidget>

#include <algorithm>

namespace gallery {

namespace {

const QString geometryKey = QStringLiteral("window/geometry");
const QString pageKey = QStringLiteral("window/page");

} // namespace

GalleryWindow::GalleryWindow(std::vector<std::unique_ptr<GalleryPage>> pages)
    : m_list(new PageList)
    , m_stack(new QStackedWidget)
    , m_viewMenu(new ViewMenu(this))
{
    setWindowTitle(tr("Gallery of common_ui_qt"));
    for (auto& page : pages)
        addPage(std::move(page));

    auto* central = new QWidget;
    auto* layout = new QHBoxLayout(central);
    layout->addWidget(m_list);
    layout->addWidget(m_stack, 1);
    setCentralWidget(central);
    addMenus();

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
    else
        keep();
    event->setAccepted(refusing == m_pages.end());
}

void GalleryWindow::restore()
{
    m_viewMenu->restore();
    const QSettings settings;
    if (restoreGeometry(settings.value(geometryKey).toByteArray()) && !isMaximized() && !isFullScreen())
        setGeometry(placeOnScreen(geometry()));
    const QString title = settings.value(pageKey).toString();
    for (GalleryPage* page : m_pages)
        if (page->title() == title)
            showPage(*page);
}

void GalleryWindow::keep() const
{
    QSettings settings;
    settings.setValue(geometryKey, saveGeometry());
    settings.setValue(pageKey, m_pages[m_list->current()]->title());
}

void GalleryWindow::addPage(std::unique_ptr<GalleryPage> page)
{
    m_pages.push_back(page.get());
    m_list->add(*page);
    m_stack->addWidget(scrolledPage(std::move(page)).release());
}

void GalleryWindow::addMenus()
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
    menuBar()->addMenu(m_viewMenu);
}

void GalleryWindow::resizeToScreen()
{
    resize(QSize(960, 640).boundedTo(largestWindowOn(screen()->availableGeometry())));
}

} // namespace gallery
