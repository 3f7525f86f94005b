#include "ui/qt/dialogs/windows/builtin/WrappingLayout_p.h"

#include <QStyle>
#include <QWidget>

#include <algorithm>

namespace zelmar::internal {

WrappingLayout::WrappingLayout(QWidget* parent)
    : QLayout(parent)
{
    setContentsMargins(0, 0, 0, 0);
}

WrappingLayout::~WrappingLayout() = default;

void WrappingLayout::addItem(QLayoutItem* item)
{
    m_items.emplace_back(item);
    invalidate();
}

QLayoutItem* WrappingLayout::itemAt(int index) const
{
    return index >= 0 && index < count() ? m_items[std::size_t(index)].get() : nullptr;
}

QLayoutItem* WrappingLayout::takeAt(int index)
{
    if (index < 0 || index >= count())
        return nullptr;
    QLayoutItem* item = m_items[std::size_t(index)].release();
    m_items.erase(m_items.begin() + index);
    invalidate();
    return item;
}

int WrappingLayout::heightForWidth(int width) const
{
    int height = 0;
    for (const Place& place : placesFor(width))
        height = std::max(height, place.rect.bottom() + 1);
    return height;
}

QSize WrappingLayout::minimumSize() const
{
    QSize size;
    for (const auto& item : m_items) {
        if (!item->isEmpty())
            size = size.expandedTo(item->minimumSize());
    }
    return size;
}

/// Returns the size that the widest widget needs. The dialog determines the actual width, from which the height
/// follows.
QSize WrappingLayout::sizeHint() const
{
    return minimumSize();
}

void WrappingLayout::setGeometry(const QRect& rect)
{
    QLayout::setGeometry(rect);
    for (const Place& place : placesFor(rect.width())) {
        const QRect inside = place.rect.translated(rect.topLeft());
        place.item->setGeometry(QStyle::visualRect(parentWidget()->layoutDirection(), rect, inside));
    }
}

std::vector<WrappingLayout::Place> WrappingLayout::placesFor(int width) const
{
    std::vector<Place> places;
    std::size_t lineBegin = 0;
    QPoint next;
    for (const auto& item : m_items) {
        if (item->isEmpty())
            continue;
        const QSize size = item->sizeHint().expandedTo(item->minimumSize());
        if (next.x() > 0 && next.x() + size.width() > width) {
            next = QPoint(0, next.y() + levelLine(places, lineBegin) + gap(Qt::Vertical));
            lineBegin = places.size();
        }
        places.push_back({item.get(), QRect(next, QSize(std::min(size.width(), width), size.height()))});
        next.rx() += size.width() + gap(Qt::Horizontal);
    }
    levelLine(places, lineBegin);
    return places;
}

/// Gives all widgets of a line the height of the tallest one, so that their contents are on the same level. Returns
/// this height.
int WrappingLayout::levelLine(std::vector<Place>& places, std::size_t begin)
{
    int height = 0;
    for (std::size_t i = begin; i < places.size(); ++i)
        height = std::max(height, places[i].rect.height());
    for (std::size_t i = begin; i < places.size(); ++i)
        places[i].rect.setHeight(height);
    return height;
}

int WrappingLayout::gap(Qt::Orientation orientation) const
{
    const QWidget* widget = parentWidget();
    const int gap =
        widget->style()->layoutSpacing(QSizePolicy::PushButton, QSizePolicy::CheckBox, orientation, nullptr, widget);
    const int plain = widget->style()->pixelMetric(orientation == Qt::Horizontal ? QStyle::PM_LayoutHorizontalSpacing
                                                                                 : QStyle::PM_LayoutVerticalSpacing,
                                                   nullptr, widget);
    return std::max({gap, plain, 0});
}

} // namespace zelmar::internal
