#include "PageList.h"

#include "GalleryPage.h"
#include "pages/makeGalleryPages.h"

#include "Keyboard.h"
#include "TestHome.h"

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QtTest>

#include <algorithm>
#include <memory>
#include <vector>

using gallery::GalleryPage;
using gallery::PageList;

/// Types into the field above the list of the gallery's pages.
class tst_PageList : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void findsByTitleDescriptionAndClass_data();
    void findsByTitleDescriptionAndClass();
    void keepsTheCurrentPageWhileItMatches();
    void returnSelectsTheBestMatch_data();
    void returnSelectsTheBestMatch();
    void returnStaysAmongEqualMatches();
    void tellsThatNothingMatches();
    void downGoesToTheListAndEscapeShowsAll();
    void keepsTheCurrentPageInSight();
    void stepsOverHiddenPages();
    void showsAPageThatDoesNotMatch();

private:
    QStringList shownTitles() const;
    int rowOf(const QString& title) const;
    QString currentTitle() const { return m_rows->currentItem()->text(); }
    void type(const QString& text);

    std::vector<std::unique_ptr<GalleryPage>> m_pages;
    std::unique_ptr<PageList> m_list;
    QLineEdit* m_field = nullptr;
    QListWidget* m_rows = nullptr;
};

void tst_PageList::init()
{
    m_pages = gallery::makeGalleryPages();
    m_list = std::make_unique<PageList>();
    for (const auto& page : m_pages)
        m_list->add(*page);
    m_list->setCurrent(0);
    m_field = m_list->findChild<QLineEdit*>();
    m_rows = m_list->findChild<QListWidget*>();
    m_list->show();
    takeKeyboardFocus(*m_field);
}

void tst_PageList::cleanup()
{
    m_list.reset();
    m_pages.clear();
}

int tst_PageList::rowOf(const QString& title) const
{
    const auto found =
        std::find_if(m_pages.begin(), m_pages.end(), [&](const auto& page) { return page->title() == title; });
    return int(found - m_pages.begin());
}

QStringList tst_PageList::shownTitles() const
{
    QStringList titles;
    for (int row = 0; row < m_rows->count(); ++row)
        if (!m_rows->isRowHidden(row))
            titles += m_rows->item(row)->text();
    return titles;
}

void tst_PageList::type(const QString& text)
{
    m_field->clear();
    QTest::keyClicks(m_field, text);
}

void tst_PageList::findsByTitleDescriptionAndClass_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("title");
    QTest::newRow("a class") << "spin"
                             << "Number fields";
    QTest::newRow("the title") << "native dia"
                               << "Native dialog";
    QTest::newRow("the description") << "double, with a precision"
                                     << "Number fields";
    QTest::newRow("words in any order") << "combo FILTERING"
                                        << "Filtering combo box";
    QTest::newRow("blanks around") << "  helpers "
                                   << "Helpers";
}

void tst_PageList::findsByTitleDescriptionAndClass()
{
    QFETCH(QString, typed);
    QFETCH(QString, title);
    type(typed);
    QVERIFY2(shownTitles().contains(title), qPrintable(shownTitles().join(", ")));
    QVERIFY(!shownTitles().contains("Choose a directory"));
}

void tst_PageList::keepsTheCurrentPageWhileItMatches()
{
    m_list->setCurrent(rowOf("Save a file"));
    QSignalSpy changes(m_list.get(), &PageList::currentChanged);
    type("file");
    QCOMPARE(currentTitle(), QString("Save a file"));
    QCOMPARE(changes.size(), 0);
    type("number");
    QCOMPARE(currentTitle(), QString("Number fields"));
    QCOMPARE(changes.size(), 1);
}

void tst_PageList::returnSelectsTheBestMatch_data()
{
    QTest::addColumn<QString>("from");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("to");
    QTest::newRow("title, from a matching description") << "Table editor"
                                                        << "save a file"
                                                        << "Save a file";
    QTest::newRow("title, from no match") << "Helpers"
                                          << "numb"
                                          << "Number fields";
    QTest::newRow("title, behind a matching description") << "Open several files"
                                                          << "number"
                                                          << "Number fields";
    QTest::newRow("description") << "Table editor"
                                 << "double, with a precision"
                                 << "Number fields";
}

void tst_PageList::returnSelectsTheBestMatch()
{
    QFETCH(QString, from);
    QFETCH(QString, typed);
    QFETCH(QString, to);
    m_list->setCurrent(rowOf(from));
    type(typed);
    QTest::keyClick(m_field, Qt::Key_Return);
    QCOMPARE(currentTitle(), to);
}

void tst_PageList::returnStaysAmongEqualMatches()
{
    m_list->setCurrent(rowOf("Save a file"));
    for (const char* const typed : {"file", "takes the name", ""}) {
        type(typed);
        QTest::keyClick(m_field, Qt::Key_Return);
        QCOMPARE(currentTitle(), QString("Save a file"));
    }
}

void tst_PageList::tellsThatNothingMatches()
{
    const QList<QLabel*> labels = m_list->findChildren<QLabel*>();
    const auto notice = std::find_if(labels.begin(), labels.end(),
                                     [](const QLabel* label) { return label->text() == "No page matches"; });
    QVERIFY(notice != labels.end());
    QVERIFY(!(*notice)->isVisible());
    m_field->setText("no such page");
    QVERIFY((*notice)->isVisible());
    QCOMPARE(shownTitles(), QStringList());
    QCOMPARE(m_list->current(), 0);
    QTest::keyClick(m_field, Qt::Key_Return);
    QCOMPARE(m_list->current(), 0);
    type("native");
    QVERIFY(!(*notice)->isVisible());
}

void tst_PageList::downGoesToTheListAndEscapeShowsAll()
{
    type("number");
    QTest::keyClick(m_field, Qt::Key_Down);
    QVERIFY(m_rows->hasFocus());
    QTest::keyClick(m_rows, Qt::Key_Escape);
    QCOMPARE(shownTitles().size(), int(m_pages.size()));
    QCOMPARE(m_field->text(), QString());
    m_list->focusSearch();
    QVERIFY(m_field->hasFocus());
    type("number");
    QTest::keyClick(m_field, Qt::Key_Escape);
    QCOMPARE(shownTitles().size(), int(m_pages.size()));
}

void tst_PageList::keepsTheCurrentPageInSight()
{
    m_rows->setFixedHeight(4 * m_rows->sizeHintForRow(0));
    m_list->adjustSize();
    type(m_pages.back()->title());
    QTest::keyClick(m_field, Qt::Key_Return);
    QCOMPARE(m_list->current(), int(m_pages.size()) - 1);
    QTest::keyClick(m_field, Qt::Key_Escape);
    QCOMPARE(shownTitles().size(), int(m_pages.size()));
    const QRect row = m_rows->visualItemRect(m_rows->currentItem());
    QVERIFY(m_rows->viewport()->rect().contains(row));
}

void tst_PageList::stepsOverHiddenPages()
{
    type("file");
    const QStringList titles = shownTitles();
    QVERIFY(titles.size() > 2);
    QVERIFY(titles.size() < int(m_pages.size()));
    m_list->step(-100);
    QCOMPARE(currentTitle(), titles[0]);
    for (int i = 1; i < titles.size(); ++i) {
        m_list->step(1);
        QCOMPARE(currentTitle(), titles[i]);
    }
    m_list->step(1);
    QCOMPARE(currentTitle(), titles.last());
}

void tst_PageList::showsAPageThatDoesNotMatch()
{
    type("native dialog");
    QVERIFY(!shownTitles().contains("Table editor"));
    m_list->setCurrent(0);
    QCOMPARE(currentTitle(), QString("Table editor"));
    QCOMPARE(shownTitles().size(), int(m_pages.size()));
}

UI_TEST_MAIN(tst_PageList)
#include "tst_PageList.moc"
