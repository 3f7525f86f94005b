#pragma once

#include <QLayout>

#include <memory>
#include <vector>

namespace zelmar::internal {

/// A layout that places widgets side by side in reading direction, each in its preferred size, and starts a new line if
/// the next widget does not fit. Hidden widgets take no space.
class WrappingLayout : public QLayout
{
public:
    explicit WrappingLayout(QWidget* parent);
    ~WrappingLayout() override;

    void addItem(QLayoutItem* item) override;
    int count() const override { return int(m_items.size()); }
    QLayoutItem* itemAt(int index) const override;
    QLayoutItem* takeAt(int index) override;

    Qt::Orientations expandingDirections() const override { return {}; }
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;
    QSize minimumSize() const override;
    QSize sizeHint() const override;
    void setGeometry(const QRect& rect) override;

private:
    struct Place
    {
        QLayoutItem* item;
        QRect rect;
    };

    /// Computes the place of each widget for a left-to-right layout that begins at the top left.
    std::vector<Place> placesFor(int width) const;
    static int levelLine(std::vector<Place>& places, std::size_t begin);
    int gap(Qt::Orientation orientation) const;

    std::vector<std::unique_ptr<QLayoutItem>> m_items;
};

} // namespace zelmar::internal
