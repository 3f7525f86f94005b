#pragma once

#include <QString>
#include <QWidget>

class QVBoxLayout;

namespace gallery {

class PageCode;

/// A page of the gallery with a heading, a description and the widgets that it demonstrates.
///
/// To add a page to the gallery, add a line to makeGalleryPages() and a tour to tour/pages.
class GalleryPage : public QWidget
{
    Q_OBJECT

public:
    /// Creates a page. `title` is its name in the list of pages and in the names of its pictures; `description` is
    /// plain text.
    GalleryPage(QString title, const QString& description);
    ~GalleryPage() override;

    [[nodiscard]] const QString& title() const { return m_title; }

    /// Returns whether each word of `text` is in the title, in the description or in the name of a class or function of
    /// the library that the page uses. Case does not matter.
    [[nodiscard]] bool matches(const QString& text) const;
    /// Returns whether each word of `text` is in the title. Case does not matter.
    [[nodiscard]] bool titleMatches(const QString& text) const;

    /// Adds a button below the page that shows `code`.
    void offerCode(const PageCode& code);

    /// Returns whether this page allows the window to close. May ask the user, or close the window itself later.
    virtual bool mayLeave() { return true; }

protected:
    /// Returns the layout to which a page adds its widgets.
    QVBoxLayout& contents() { return *m_contents; }

private:
    void addHeading(QVBoxLayout& layout, const QString& description);

    QString m_title;
    QString m_searchedText; ///< everything in which matches() looks
    QVBoxLayout* m_contents;
};

} // namespace gallery
