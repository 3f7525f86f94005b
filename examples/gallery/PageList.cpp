#include "PageList.h"

#include "GalleryPage.h"

#include <QAccessible>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QStyle>
#include <QVBoxLayout>

#include <algorithm>
#include <cstdlib>

namespace gallery {

PageList::PageList()
    : m_search(new QLineEdit)
    , m_noMatch(new QLabel(tr("No page matches")))
    , m_list(new QListWidget)
{
    addWidgets();
    connect(m_search, &QLineEdit::textChanged, this, &PageList::filter);
    connect(m_search, &QLineEdit::returnPressed, this, &PageList::selectBest);
    connect(m_list, &QListWidget::currentRowChanged, this, &PageList::currentChanged);
}

PageList::~PageList() = default;

void PageList::addWidgets()
{
    auto* searchLabel = new QLabel(tr("Loo&k for"));
    searchLabel->setBuddy(m_search);
    m_search->setAccessibleName(tr("Look for a page"));
    m_search->setPlaceholderText(tr("title or class"));
    m_noMatch->hide();
    auto* listLabel = new QLabel(tr("&Pages"));
    listLabel->setBuddy(m_list);
    m_list->setAccessibleName(tr("Pages"));

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    for (QWidget* widget : {static_cast<QWidget*>(searchLabel), static_cast<QWidget*>(m_search),
                            static_cast<QWidget*>(listLabel), static_cast<QWidget*>(m_noMatch)})
        layout->addWidget(widget);
    layout->addWidget(m_list, 1);
}

void PageList::add(const GalleryPage& page)
{
    m_pages.push_back(&page);
    m_list->addItem(page.title());
    const int scrollBar = style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, m_list);
    setFixedWidth(m_list->sizeHintForColumn(0) + scrollBar + 2 * fontMetrics().height());
}

int PageList::current() const
{
    return m_list->currentRow();
}

void PageList::setCurrent(int index)
{
    if (m_list->isRowHidden(index))
        m_search->clear();
    m_list->setCurrentRow(index);
}

void PageList::step(int pages)
{
    const int direction = pages < 0 ? -1 : 1;
    int row = current();
    for (int left = std::abs(pages); left > 0; --left)
        row = nextShown(row, direction);
    m_list->setCurrentRow(row);
}

/// Returns the next page that is shown, or `index` itself if there is none.
int PageList::nextShown(int index, int direction) const
{
    for (int row = index + direction; row >= 0 && row < m_list->count(); row += direction)
        if (!m_list->isRowHidden(row))
            return row;
    return index;
}

void PageList::focusList()
{
    m_list->setFocus();
}

void PageList::focusSearch()
{
    m_search->setFocus(Qt::ShortcutFocusReason);
    m_search->selectAll();
}

/// Receives the keys that the field and the list do not use.
void PageList::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Down && m_search->hasFocus())
        m_list->setFocus(Qt::OtherFocusReason);
    else if (event->key() == Qt::Key_Escape)
        m_search->clear();
    else
        QWidget::keyPressEvent(event);
}

void PageList::filter(const QString& text)
{
    for (int row = 0; row < m_list->count(); ++row)
        m_list->setRowHidden(row, !m_pages[row]->matches(text));
    if (m_list->isRowHidden(current()))
        selectBest();
    m_list->scrollToItem(m_list->currentItem());
    tellWhetherNothingMatches(nextShown(-1, 1) < 0);
}

void PageList::selectBest()
{
    const int best = bestMatch();
    if (best >= 0)
        m_list->setCurrentRow(best);
}

/// Returns the page whose title matches if there is one, else a page that matches, or -1. The current page comes before
/// others that match as well.
int PageList::bestMatch() const
{
    const auto titleMatches = [this](const GalleryPage* page) { return page->titleMatches(m_search->text()); };
    if (current() >= 0 && titleMatches(m_pages[current()]))
        return current();
    const auto titled = std::find_if(m_pages.begin(), m_pages.end(), titleMatches);
    if (titled != m_pages.end())
        return int(titled - m_pages.begin());
    return m_list->isRowHidden(current()) ? nextShown(-1, 1) : current();
}

void PageList::tellWhetherNothingMatches(bool nothing)
{
    if (nothing == m_noMatch->isVisibleTo(this))
        return;
    m_noMatch->setVisible(nothing);
    if (nothing) {
        QAccessibleEvent event(m_noMatch, QAccessible::Alert);
        QAccessible::updateAccessibility(&event);
    }
}

} // namespace gallery
