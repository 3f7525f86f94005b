#include "GalleryWindow.h"

#include "PageList.h"
#include "ViewMenu.h"

#include "ui/qt/dialogs/ExtendedFileDialog.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QMenuBar>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QSettings>
#include <QStackedWidget>
#include <QTimer>

#include <algorithm>

namespace gallery {

namespace {

const QString geometryKey = QStringLiteral("window/geometry");
const QString pageKey = QStringLiteral("window/page");

/// Returns the size of the largest window that leaves space for its frame.
QSize sizeOn(const QRect& screen)
{
    return screen.size() * 9 / 10;
}

/// Returns a scroll area with the page that shows the widget with the keyboard focus, also when the page grows.
QWidget* scrolled(std::unique_ptr<GalleryPage> page)
{
    auto* area = new QScrollArea;
    area->setFrameShape(QFrame::NoFrame);
    area->setFocusPolicy(Qt::NoFocus);
    area->setWidgetResizable(true);
    area->setWidget(page.release());
    const auto showFocus = [area] {
        const QWidget* const focused = QApplication::focusWidget();
        if (!focused || !area->widget()->isAncestorOf(focused))
            return;
        // Not ensureWidgetVisible(), which shows only the line with the cursor. The beginning goes first.
        const QRect place(focused->mapTo(area->widget(), QPoint()), focused->size());
        area->ensureVisible(place.right(), place.bottom());
        area->ensureVisible(place.left(), place.top());
    };
    QObject::connect(qApp, &QApplication::focusChanged, area, showFocus);
    // At the next timer, because the layout of the page follows the scroll bars.
    QObject::connect(area->verticalScrollBar(), &QScrollBar::rangeChanged, area,
                     [area, showFocus] { QTimer::singleShot(0, area, showFocus); });
    return area;
}

/// Returns where a window goes that had the geometry `wanted` on a screen that may be gone: the same place if it is on
/// a screen, or else the nearest one, with space for the frame.
QRect placeOnScreen(const QRect& wanted)
{
    const QScreen* screen = QGuiApplication::screenAt(wanted.center());
    const QRect available = (screen ? screen : QGuiApplication::primaryScreen())->availableGeometry();
    if (available.contains(wanted))
        return wanted;
    QRect inner(QPoint(), sizeOn(available));
    inner.moveCenter(available.center());
    QRect place(wanted.topLeft(), wanted.size().boundedTo(inner.size()));
    place.moveRight(qMin(place.right(), inner.right()));
    place.moveBottom(qMin(place.bottom(), inner.bottom()));
    place.moveLeft(qMax(place.left(), inner.left()));
    place.moveTop(qMax(place.top(), inner.top()));
    return place;
}

} // namespace

GalleryWindow::GalleryWindow(std::vector<std::unique_ptr<GalleryPage>> pages)
    : m_list(new PageList)
    , m_stack(new QStackedWidget)
    , m_viewMenu(new ViewMenu)
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
    m_stack->addWidget(scrolled(std::move(page)));
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
    m_viewMenu->setParent(this, m_viewMenu->windowFlags());
    menuBar()->addMenu(m_viewMenu);
}

void GalleryWindow::resizeToScreen()
{
    resize(QSize(960, 640).boundedTo(sizeOn(screen()->availableGeometry())));
}

} // namespace gallery
