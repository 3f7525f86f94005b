#include "GalleryWindow.h"

#include "PageCode.h"
#include "PageList.h"

#include "pages/makeGalleryPages.h"

#include "Keyboard.h"
#include "TestHome.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QSettings>
#include <QSpinBox>
#include <QStackedWidget>
#include <QToolButton>
#include <QVBoxLayout>
#include <QWheelEvent>
#include <QtTest>

#include <memory>
#include <vector>

using gallery::GalleryPage;
using gallery::GalleryWindow;

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

    void addAtTheEnd(QWidget* widget, int distance)
    {
        contents().addSpacing(distance);
        contents().addWidget(widget);
    }

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

/// A mnemonic and what has it.
struct Mnemonic
{
    QString key;
    QString owner;
};

void append(QVector<Mnemonic>& mnemonics, const QString& text)
{
    const QString key = QKeySequence::mnemonic(text).toString();
    if (!key.isEmpty())
        mnemonics.append({key, text});
}

/// Returns the mnemonics of all widgets in `root`, shown or not.
QVector<Mnemonic> mnemonicsIn(const QWidget& root)
{
    QVector<Mnemonic> mnemonics;
    for (const auto* button : root.findChildren<QAbstractButton*>())
        append(mnemonics, button->text());
    for (const auto* box : root.findChildren<QGroupBox*>())
        append(mnemonics, box->title());
    for (const auto* label : root.findChildren<QLabel*>())
        if (label->buddy())
            append(mnemonics, label->text());
    return mnemonics;
}

QVector<Mnemonic> mnemonicsAroundPages(GalleryWindow& window)
{
    QVector<Mnemonic> mnemonics = mnemonicsIn(*window.findChild<gallery::PageList*>());
    for (const QAction* action : window.menuBar()->actions())
        append(mnemonics, action->text());
    return mnemonics;
}

/// Turns the wheel down by a notch over `widget`, as a user does, which may also set the keyboard focus.
void turnWheelDown(QWidget& widget)
{
    const QPoint place = widget.rect().center();
    QWheelEvent event(place, widget.mapToGlobal(place), QPoint(), QPoint(0, -120), Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QSpontaneKeyEvent::setSpontaneous(&event);
    QApplication::instance()->notify(&widget, &event);
}

QRect screenOf(const QWidget& window)
{
    return window.screen()->availableGeometry();
}

} // namespace

class tst_GalleryWindow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void showsThePageThatKeepsItOpen();
    void closesIfEachPageLetsIt();
    void scrollsToTheKeyboardFocus();
    void showsTheLabelOfTheFocusedField_data();
    void showsTheLabelOfTheFocusedField();
    void wheelScrollsOverFieldsWithoutFocus();
    void scrollsToTheCode();
    void pagesNeedNoHorizontalScrollBar();
    void mnemonicsDoNotClash();
    void fitsOnTheScreen();
    void comesBackAsItWas();
    void comesBackOnTheScreen();
    void findKeysLeadToTheSearch();
};

/// Uses settings of its own, because all programs share those of Windows.
void tst_GalleryWindow::initTestCase()
{
    QCoreApplication::setApplicationName(QStringLiteral("tst_GalleryWindow"));
    QSettings().clear();
}

void tst_GalleryWindow::showsThePageThatKeepsItOpen()
{
    GalleryWindow window(pages(false));
    window.show();
    auto* const stack = window.findChild<QStackedWidget*>();
    QCOMPARE(stack->currentIndex(), 0);
    QVERIFY(!window.close());
    QVERIFY(window.isVisible());
    QCOMPARE(stack->currentIndex(), 1);
}

void tst_GalleryWindow::closesIfEachPageLetsIt()
{
    GalleryWindow window(pages(true));
    window.show();
    QVERIFY(window.close());
    QVERIFY(!window.isVisible());
}

void tst_GalleryWindow::scrollsToTheKeyboardFocus()
{
    auto page = std::make_unique<Page>("tall", true);
    auto* const distant = new QLineEdit;
    page->addAtTheEnd(distant, 3000);
    std::vector<std::unique_ptr<GalleryPage>> made;
    made.push_back(std::move(page));
    GalleryWindow window(std::move(made));
    window.show();
    QVERIFY(distant->visibleRegion().isEmpty());
    takeKeyboardFocus(*distant);
    QCOMPARE(distant->visibleRegion().boundingRect(), distant->rect());
}

void tst_GalleryWindow::showsTheLabelOfTheFocusedField_data()
{
    QTest::addColumn<Qt::LayoutDirection>("direction");
    QTest::newRow("left to right") << Qt::LeftToRight;
    QTest::newRow("right to left") << Qt::RightToLeft;
}

void tst_GalleryWindow::showsTheLabelOfTheFocusedField()
{
    QFETCH(Qt::LayoutDirection, direction);
    auto page = std::make_unique<Page>("wide", true);
    auto* const row = new QWidget;
    auto* const line = new QHBoxLayout(row);
    auto* const label = new QLabel("The name of the number");
    label->setMinimumWidth(150); // more than the margin that a scroll area leaves
    auto* const field = new QSpinBox;
    auto* const distant = new QToolButton;
    distant->setFocusPolicy(Qt::StrongFocus);
    line->addWidget(label);
    line->addWidget(field, 1);
    line->addWidget(distant);
    row->setMinimumWidth(3000);
    page->addAtTheEnd(row, 0);
    std::vector<std::unique_ptr<GalleryPage>> made;
    made.push_back(std::move(page));
    GalleryWindow window(std::move(made));
    window.setLayoutDirection(direction);
    window.show();

    takeKeyboardFocus(*distant);
    QCOMPARE(distant->visibleRegion().boundingRect(), distant->rect());
    QVERIFY(label->visibleRegion().isEmpty());
    takeKeyboardFocus(*field);
    QCOMPARE(label->visibleRegion().boundingRect(), label->rect());
}

void tst_GalleryWindow::wheelScrollsOverFieldsWithoutFocus()
{
    auto page = std::make_unique<Page>("tall", true);
    auto* const number = new QSpinBox;
    number->setValue(50);
    auto* const choice = new QComboBox;
    choice->addItems({"one", "two", "three"});
    page->addAtTheEnd(number, 0);
    page->addAtTheEnd(choice, 0);
    page->addAtTheEnd(new QLineEdit, 3000);
    std::vector<std::unique_ptr<GalleryPage>> made;
    made.push_back(std::move(page));
    GalleryWindow window(std::move(made));
    window.show();
    const QScrollBar& bar = *window.findChild<QStackedWidget*>()->findChild<QScrollArea*>()->verticalScrollBar();
    takeKeyboardFocus(*window.findChild<QListWidget*>());

    turnWheelDown(*number->findChild<QLineEdit*>());
    const int afterNumber = bar.value();
    QVERIFY(afterNumber > 0);
    turnWheelDown(*choice);
    QVERIFY(bar.value() > afterNumber);
    QCOMPARE(number->value(), 50);
    QCOMPARE(choice->currentIndex(), 0);
    QVERIFY(!number->hasFocus() && !choice->hasFocus());

    takeKeyboardFocus(*number);
    turnWheelDown(*number->findChild<QLineEdit*>());
    QCOMPARE(number->value(), 49);
    takeKeyboardFocus(*choice);
    turnWheelDown(*choice);
    QCOMPARE(choice->currentIndex(), 1);
}

void tst_GalleryWindow::scrollsToTheCode()
{
    auto page = std::make_unique<Page>("tall", true);
    page->addAtTheEnd(new QLineEdit, 3000);
    page->offerCode(gallery::PageCode({{"HelpersPage.cpp", {"work"}}, {"HelpersPage.cpp", {"addFonts"}}}));
    std::vector<std::unique_ptr<GalleryPage>> made;
    made.push_back(std::move(page));
    GalleryWindow window(std::move(made));
    window.show();
    auto* const button = window.pages()[0]->findChild<QToolButton*>();
    const auto* code = window.pages()[0]->findChild<QPlainTextEdit*>();
    takeKeyboardFocus(*button);
    button->click();
    QTRY_VERIFY(code->hasFocus());
    QTRY_COMPARE(code->visibleRegion().boundingRect(), code->rect());
}

void tst_GalleryWindow::pagesNeedNoHorizontalScrollBar()
{
    GalleryWindow window(gallery::makeGalleryPages());
    window.resize(960, 640);
    window.show();
    for (GalleryPage* page : window.pages()) {
        window.showPage(*page);
        const auto* area = qobject_cast<QScrollArea*>(window.findChild<QStackedWidget*>()->currentWidget());
        QCOMPARE(area->widget(), page);
        QVERIFY2(page->minimumSizeHint().width() <= area->viewport()->width(), qPrintable(page->title()));
        QVERIFY2(!area->horizontalScrollBar()->isVisible(), qPrintable(page->title()));
    }
}

void tst_GalleryWindow::mnemonicsDoNotClash()
{
    GalleryWindow window(gallery::makeGalleryPages());
    for (GalleryPage* page : window.pages()) {
        QHash<QString, QString> owners;
        const QVector<Mnemonic> mnemonics = mnemonicsAroundPages(window) + mnemonicsIn(*page);
        QVERIFY(mnemonics.size() > 5);
        for (const Mnemonic& mnemonic : mnemonics) {
            QVERIFY2(!owners.contains(mnemonic.key),
                     qPrintable(QString("%1: %2 for \"%3\" and for \"%4\"")
                                    .arg(page->title(), mnemonic.key, owners[mnemonic.key], mnemonic.owner)));
            owners[mnemonic.key] = mnemonic.owner;
        }
    }
}

void tst_GalleryWindow::fitsOnTheScreen()
{
    const QFont font = QApplication::font();
    QFont large = font;
    large.setPixelSize(QFontInfo(font).pixelSize() * 2);
    for (const QFont& used : {font, large}) {
        QApplication::setFont(used);
        GalleryWindow window(gallery::makeGalleryPages());
        QApplication::setFont(font);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        for (GalleryPage* page : window.pages()) {
            window.showPage(*page);
            QVERIFY2(window.frameGeometry().width() <= screenOf(window).width(), qPrintable(page->title()));
            QVERIFY2(window.frameGeometry().height() <= screenOf(window).height(), qPrintable(page->title()));
        }
    }
}

void tst_GalleryWindow::comesBackAsItWas()
{
    QSettings().clear();
    QSize size;
    {
        GalleryWindow window(pages(true));
        window.restore();
        QCOMPARE(window.findChild<QStackedWidget*>()->currentIndex(), 0);
        window.show();
        window.resize(window.size() - QSize(30, 20));
        size = window.size();
        window.showPage(*window.pages()[1]);
        QVERIFY(window.close());
    }
    GalleryWindow window(pages(true));
    window.restore();
    QCOMPARE(window.size(), size);
    QCOMPARE(window.findChild<QStackedWidget*>()->currentIndex(), 1);
}

void tst_GalleryWindow::comesBackOnTheScreen()
{
    QSettings().clear();
    {
        GalleryWindow window(pages(true));
        window.setGeometry(QRect(QPoint(20000, -9000), screenOf(window).size() * 2));
        QVERIFY(window.close());
    }
    GalleryWindow window(pages(true));
    window.restore();
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QTRY_COMPARE(screenOf(window).united(window.frameGeometry()), screenOf(window));
}

void tst_GalleryWindow::findKeysLeadToTheSearch()
{
    GalleryWindow window(pages(true));
    window.show();
    takeKeyboardFocus(*window.findChild<QListWidget*>());
    QTest::keySequence(window.windowHandle(), QKeySequence::Find);
    QCOMPARE(window.focusWidget(), window.findChild<gallery::PageList*>()->findChild<QLineEdit*>());
}

UI_TEST_MAIN(tst_GalleryWindow)
#include "tst_GalleryWindow.moc"
