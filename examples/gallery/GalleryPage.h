#pragma once

#include <QString>
#include <QWidget>

class QVBoxLayout;

namespace gallery {

class Tour;

/// One page of the gallery: a heading, what the page is for, and below them the widgets that it shows at
/// work.
///
/// A page is added to the gallery by a line in makeGalleryPages().
class GalleryPage : public QWidget
{
    Q_OBJECT

public:
    /// `title` names the page in the list of pages, and its pictures; `description` is plain text.
    GalleryPage(QString title, const QString& description);
    ~GalleryPage() override;

    [[nodiscard]] const QString& title() const { return m_title; }

    /// Whether the program may end as far as this page is concerned; may ask the user.
    virtual bool mayLeave() { return true; }

    /// Plays a user of this page, which is the one that the window shows: presses, types, takes at least one
    /// picture, and tells `tour` what came out and whether it is what was to come out. Returns when
    /// everything is done.
    virtual void tour(Tour& tour) = 0;

protected:
    /// Where a page puts its widgets.
    QVBoxLayout& contents() { return *m_contents; }

private:
    void addHeading(const QString& description);

    QString m_title;
    QVBoxLayout* m_contents;
};

} // namespace gallery
