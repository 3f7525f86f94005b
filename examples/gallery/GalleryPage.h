#pragma once

#include <QString>
#include <QWidget>

class QVBoxLayout;

namespace gallery {

class Tour;

/// A page of the gallery with a heading, a description and the widgets that it demonstrates.
///
/// To add a page to the gallery, add a line to makeGalleryPages().
class GalleryPage : public QWidget
{
    Q_OBJECT

public:
    /// Creates a page. `title` is its name in the list of pages and in the names of its pictures; `description` is
    /// plain text.
    GalleryPage(QString title, const QString& description);
    ~GalleryPage() override;

    [[nodiscard]] const QString& title() const { return m_title; }

    /// Returns whether this page allows the window to close. May ask the user, or close the window itself later.
    virtual bool mayLeave() { return true; }

    /// Acts as a user of this page, which the window shows: presses keys and buttons, types, takes at least one picture
    /// and reports to `tour` the results and whether they are the expected ones. Returns when everything is done.
    virtual void tour(Tour& tour) = 0;

protected:
    /// Returns the layout to which a page adds its widgets.
    QVBoxLayout& contents() { return *m_contents; }

private:
    void addHeading(const QString& description);

    QString m_title;
    QVBoxLayout* m_contents;
};

} // namespace gallery
