#pragma once

#include <QWidget>

#include <vector>

class QLabel;
class QLineEdit;
class QListWidget;

namespace gallery {

class GalleryPage;

/// The list of the pages, with a field above it that hides the pages which do not match what is typed. The current page
/// stays as long as it matches; then the best match follows. In the field, Down goes to the list, Return selects the
/// best match, and Escape shows all pages again.
class PageList : public QWidget
{
    Q_OBJECT

public:
    PageList();
    ~PageList() override;

    /// Appends a page, which must live as long as the list.
    void add(const GalleryPage& page);

    /// Returns the index of the current page, from 0, or -1 if there are no pages.
    [[nodiscard]] int current() const;
    /// Selects a page, also one that does not match, for which all pages are shown again.
    void setCurrent(int index);
    /// Selects the page that is `pages` further among the shown ones, or the last one before the end.
    void step(int pages);

    void focusList();
    /// Sets the keyboard focus to the field and selects its text.
    void focusSearch();

Q_SIGNALS:
    void currentChanged(int index);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void addWidgets();
    void filter(const QString& text);
    void selectBest();
    [[nodiscard]] int bestMatch() const;
    void tellWhetherNothingMatches(bool nothing);
    [[nodiscard]] int nextShown(int index, int direction) const;

    QLineEdit* m_search;
    QLabel* m_noMatch;
    QListWidget* m_list;
    std::vector<const GalleryPage*> m_pages;
};

} // namespace gallery
