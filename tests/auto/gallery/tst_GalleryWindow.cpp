#include "GalleryWindow.h"

#include "TestHome.h"

#include <QStackedWidget>
#include <QtTest>

#include <memory>
#include <vector>

using gallery::GalleryPage;

namespace {

/// A page that lets the window close or not.
class Page : public GalleryPage
{
public:
    Page(const QString& title, bool lets)
        : GalleryPage(title, QString())
        , m_lets(lets)
    {
    }

    bool mayLeave() override { return m_lets; }

private:
    const bool m_lets;
};

std::vector<std::unique_ptr<GalleryPage>> pages(bool lastLets)
{
    std::vector<std::unique_ptr<GalleryPage>> made;
    made.push_back(std::make_unique<Page>("first", true));
    made.push_back(std::make_unique<Page>("last", lastLets));
    return made;
}

} // namespace

class tst_GalleryWindow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void showsThePageThatKeepsItOpen();
    void closesIfEachPageLetsIt();
};

void tst_GalleryWindow::showsThePageThatKeepsItOpen()
{
    gallery::GalleryWindow window(pages(false));
    window.show();
    auto* const stack = window.findChild<QStackedWidget*>();
    QCOMPARE(stack->currentIndex(), 0);
    QVERIFY(!window.close());
    QVERIFY(window.isVisible());
    QCOMPARE(stack->currentIndex(), 1);
}

void tst_GalleryWindow::closesIfEachPageLetsIt()
{
    gallery::GalleryWindow window(pages(true));
    window.show();
    QVERIFY(window.close());
    QVERIFY(!window.isVisible());
}

UI_TEST_MAIN(tst_GalleryWindow)
#include "tst_GalleryWindow.moc"
