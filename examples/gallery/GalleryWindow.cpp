#include "GalleryWindow.h"

#include "ui/qt/dialogs/ExtendedFileDialog.h"

#include <QAction>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QMenuBar>
#include <QScreen>
#include <QStackedWidget>
#include <QStyle>

#include <algorithm>

namespace gallery {

GalleryWindow::GalleryWindow(std::vector<std::unique_ptr<GalleryPage>> pages)
    : m_list(new QListWidget)
    , m_stack(new QStackedWidget)
{
    setWindowTitle(tr("Gallery of common_ui_qt"));
    for (auto& page : pages)
        addPage(std::move(page));

    auto* central = new QWidget;
    auto* layout = new QHBoxLayout(central);
    layout->addWidget(makePageColumn());
    layout->addWidget(m_stack, 1);
    setCentralWidget(central);
    addMenu();

    connect(m_list, &QListWidget::currentRowChanged, m_stack, &QStackedWidget::setCurrentIndex);
    m_list->setCurrentRow(0);
    m_list->setFocus();
    resizeToScreen();
}

GalleryWindow::~GalleryWindow() = default;

void GalleryWindow::showPage(GalleryPage& page)
{
    m_list->setCurrentRow(m_stack->indexOf(&page));
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
    m_list->addItem(page->title());
    m_stack->addWidget(page.release());
}

QWidget* GalleryWindow::makePageColumn()
{
    auto* column = new QWidget;
    auto* layout = new QVBoxLayout(column);
    auto* label = new QLabel(tr("&Pages"));
    label->setBuddy(m_list);
    layout->addWidget(label);
    layout->addWidget(m_list);

    m_list->setAccessibleName(tr("Pages"));
    const int scrollBar = style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, m_list);
    column->setFixedWidth(m_list->sizeHintForColumn(0) + scrollBar + 2 * fontMetrics().height());
    return column;
}

void GalleryWindow::addMenu()
{
    QMenu* menu = menuBar()->addMenu(tr("&Gallery"));
    QAction* next = menu->addAction(tr("&Next page"), this, [this] { step(1); });
    next->setShortcut(QKeySequence(QStringLiteral("Ctrl+PgDown")));
    QAction* previous = menu->addAction(tr("&Previous page"), this, [this] { step(-1); });
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

void GalleryWindow::step(int pages)
{
    m_list->setCurrentRow(qBound(0, m_list->currentRow() + pages, m_list->count() - 1));
}

void GalleryWindow::resizeToScreen()
{
    // Leaves space for the frame of the window.
    resize(QSize(960, 640).boundedTo(screen()->availableSize() * 9 / 10));
}

} // namespace gallery
