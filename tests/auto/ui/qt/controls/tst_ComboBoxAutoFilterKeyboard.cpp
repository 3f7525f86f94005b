#include "ui/qt/controls/ComboBoxAutoFilter.h"

#include "Keyboard.h"
#include "TestHome.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCompleter>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QListView>
#include <QScreen>
#include <QStringListModel>
#include <QTest>
#include <QVBoxLayout>
#include <QWindow>

#include <functional>
#include <memory>

using zelmar::ui::ComboBoxAutoFilter;

namespace {

/// An object that records how editings end.
class Ends : public QObject
{
    Q_OBJECT

public:
    explicit Ends(ComboBoxAutoFilter& box)
        : m_box(&box)
    {
        connect(&box, SIGNAL(selectionComplete()), this, SLOT(onComplete()));
        connect(&box, SIGNAL(editingCanceled()), this, SLOT(onCanceled()));
    }

    QStringList heard;
    bool deletesTheBox = false;

private Q_SLOTS:
    void onComplete() { hear(QStringLiteral("complete")); }
    void onCanceled() { hear(QStringLiteral("canceled")); }

private:
    void hear(const QString& end)
    {
        const QWidget* completions = m_box->completer()->popup(); // null in the mode that completes within the line
        const bool isOpen = m_box->isVisible() || (completions && completions->isVisible());
        heard += isOpen ? end + QStringLiteral(" while open") : end;
        if (deletesTheBox)
            delete m_box;
    }

    QPointer<ComboBoxAutoFilter> m_box;
};

} // namespace

class tst_ComboBoxAutoFilterKeyboard : public QObject
{
    Q_OBJECT

public:
    using Steps = std::function<void(tst_ComboBoxAutoFilterKeyboard&)>;

private Q_SLOTS:
    void init();
    void cleanup();

    void endsOnce_data();
    void endsOnce();
    void ownerMayDeleteItAtTheEnd_data() { endsOnce_data(); }
    void ownerMayDeleteItAtTheEnd();
    void deletesItselfWhenAsked();
    void goesOnWithoutAnEnd_data();
    void goesOnWithoutAnEnd();
    void keepsWhatWasTyped();
    void completionsGoWithTheFocus();
    void completionsGoWithTheBox();
    void takesWhatIsHighlighted();
    void marksTheFirstCompletion();
    void completesWithinTheLine();
    void takesTextOfAnInputMethod();
    void takesTextOfAnInputMethodForAnotherModel();
    void isValidForGoodAfterEscape();
    void remembersTheIndexAtTheStart();
    void mayBeOpenedAgain();
    void longListsAreDrawn();
    void listsFitTheirItems_data();
    void listsFitTheirItems();
    void listsStayOnTheScreen_data();
    void listsStayOnTheScreen();
    void completionsFollowTheModelWhileTheyAreShown();
    void survivesTheEndOfItsCompleterAtTheMark();

private:
    void type(const QString& text);
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void openList();
    void click(QAbstractItemView& list, int row);
    QAbstractItemView& completions() const { return *m_box->completer()->popup(); }

    std::unique_ptr<QWidget> m_window;
    QLineEdit* m_before = nullptr;
    QPointer<ComboBoxAutoFilter> m_box;
    QLineEdit* m_after = nullptr;
    std::unique_ptr<Ends> m_ends;
};

Q_DECLARE_METATYPE(tst_ComboBoxAutoFilterKeyboard::Steps)

void tst_ComboBoxAutoFilterKeyboard::init()
{
    m_window = std::make_unique<QWidget>();
    m_before = new QLineEdit;
    m_box = new ComboBoxAutoFilter(m_window.get());
    m_after = new QLineEdit;
    auto* layout = new QVBoxLayout(m_window.get());
    for (QWidget* widget :
         {static_cast<QWidget*>(m_before), static_cast<QWidget*>(m_box), static_cast<QWidget*>(m_after)})
        layout->addWidget(widget);
    m_box->setList({"Red", "Light Blue", "Blue", "Value"});
    m_box->setCompleterAttributes(true, QCompleter::PopupCompletion, Qt::CaseInsensitive, Qt::ElideRight,
                                  Qt::MatchContains);
    m_ends = std::make_unique<Ends>(*m_box);
    m_window->show();
    takeKeyboardFocus(*m_box);
    m_box->lineEdit()->selectAll();
}

void tst_ComboBoxAutoFilterKeyboard::cleanup()
{
    m_window.reset();
    m_ends.reset();
}

/// Sends the key press to the window, as the window system does, so that an open pop-up receives it.
void tst_ComboBoxAutoFilterKeyboard::press(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    QTest::keyClick(m_window->windowHandle(), key, modifiers);
}

void tst_ComboBoxAutoFilterKeyboard::type(const QString& text)
{
    for (const QChar letter : text)
        QTest::keyClick(m_window->windowHandle(), letter.toLatin1());
}

void tst_ComboBoxAutoFilterKeyboard::openList()
{
    press(Qt::Key_F4);
    QTRY_VERIFY(m_box->view()->isVisible());
}

void tst_ComboBoxAutoFilterKeyboard::click(QAbstractItemView& list, int row)
{
    // A list that has just opened ignores a release, which may belong to the click that opened it.
    QTest::qWait(2 * QApplication::doubleClickInterval() / 3);
    const auto* shown = qobject_cast<QListView*>(&list);
    const QRect place = list.visualRect(list.model()->index(row, shown->modelColumn(), list.rootIndex()));
    QVERIFY(!place.isEmpty());
    QTest::mouseClick(list.viewport(), Qt::LeftButton, Qt::NoModifier, place.center());
}

void tst_ComboBoxAutoFilterKeyboard::endsOnce_data()
{
    QTest::addColumn<Steps>("steps");
    QTest::addColumn<QString>("end");
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("text");

    const auto typeAnd = [](const char* text, Qt::Key key) -> Steps {
        return [=](auto& test) {
            test.type(QString::fromLatin1(text));
            test.press(key);
        };
    };
    const auto listAnd = [](const QVector<Qt::Key>& keys) -> Steps {
        return [=](auto& test) {
            test.m_box->setCurrentIndex(1);
            test.openList();
            for (const Qt::Key key : keys)
                test.press(key);
        };
    };
    QTest::newRow("Return, with completions") << typeAnd("lue", Qt::Key_Return) << "complete" << 1 << "Light Blue";
    QTest::newRow("Enter, with completions") << typeAnd("alu", Qt::Key_Enter) << "complete" << 3 << "Value";
    QTest::newRow("Tab, with completions") << typeAnd("alu", Qt::Key_Tab) << "complete" << 3 << "Value";
    QTest::newRow("Return, without completions") << typeAnd("none", Qt::Key_Return) << "complete" << 0 << "none";
    QTest::newRow("Tab, without completions") << typeAnd("none", Qt::Key_Tab) << "complete" << 0 << "none";
    QTest::newRow("Tab, nothing typed") << typeAnd("", Qt::Key_Tab) << "complete" << 0 << "Red";
    QTest::newRow("Escape, with completions") << typeAnd("lue", Qt::Key_Escape) << "canceled" << 0 << "lue";
    QTest::newRow("Escape, without completions") << typeAnd("none", Qt::Key_Escape) << "canceled" << 0 << "none";
    QTest::newRow("Return in the list") << listAnd({Qt::Key_Down, Qt::Key_Down, Qt::Key_Return}) << "complete" << 3
                                        << "Value";
    QTest::newRow("Enter in the list") << listAnd({Qt::Key_Up, Qt::Key_Enter}) << "complete" << 0 << "Red";
    QTest::newRow("Escape in the list") << listAnd({Qt::Key_Down, Qt::Key_Down, Qt::Key_Escape}) << "canceled" << 1
                                        << "Light Blue";
    QTest::newRow("click in the list") << Steps([](auto& test) {
        test.openList();
        test.click(*test.m_box->view(), 3);
    }) << "complete" << 3 << "Value";
}

void tst_ComboBoxAutoFilterKeyboard::endsOnce()
{
    QFETCH(Steps, steps);
    QFETCH(QString, end);
    QFETCH(int, index);
    QFETCH(QString, text);

    steps(*this);
    QCOMPARE(m_ends->heard, QStringList{end});
    QVERIFY(!m_box->isVisible());
    QVERIFY(!m_box->view()->isVisible());
    QVERIFY(!completions().isVisible());
    QCOMPARE(m_box->currentIndex(), index);
    QCOMPARE(m_box->lineEdit()->text(), text);
    // The focus is with the parent of the box and not with another field.
    QVERIFY(!m_before->hasFocus() && !m_after->hasFocus());
    QTRY_VERIFY(hasKeyboard(*m_window)); // the window system may have activated the list
    QCOMPARE(QApplication::focusWidget(), m_window.get());
}

/// QComboBox and QCompleter access their members after the signals of a click and after passing a key press on. If they
/// have been deleted, this fails because the C library overwrites freed memory in this program.
void tst_ComboBoxAutoFilterKeyboard::ownerMayDeleteItAtTheEnd()
{
    QFETCH(Steps, steps);
    QFETCH(QString, end);

    m_ends->deletesTheBox = true;
    steps(*this);
    QVERIFY(!m_box);
    QCOMPARE(m_ends->heard, QStringList{end});
}

void tst_ComboBoxAutoFilterKeyboard::deletesItselfWhenAsked()
{
    m_box->setAttribute(Qt::WA_DeleteOnClose);
    type(QStringLiteral("lue"));
    press(Qt::Key_Return);
    QCOMPARE(m_ends->heard, QStringList{"complete"});
    QTRY_VERIFY(!m_box);
}

void tst_ComboBoxAutoFilterKeyboard::goesOnWithoutAnEnd_data()
{
    QTest::addColumn<Steps>("steps");
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("text");

    QTest::newRow("letters") << Steps([](auto& test) { test.type(QStringLiteral("lue")); }) << 0 << "lue";
    QTest::newRow("arrows in the box") << Steps([](auto& test) { test.press(Qt::Key_Down); }) << 1 << "Light Blue";
    QTest::newRow("arrows in the list") << Steps([](auto& test) {
        test.openList();
        test.press(Qt::Key_Down);
    }) << 1 << "Light Blue";
    QTest::newRow("arrows after a press in the list that was let go elsewhere") << Steps([](auto& test) {
        test.openList();
        QWidget* list = test.m_box->view()->viewport();
        const QModelIndex last = test.m_box->model()->index(3, 0);
        QTest::mousePress(list, Qt::LeftButton, Qt::NoModifier, test.m_box->view()->visualRect(last).center());
        QTest::mouseRelease(list, Qt::LeftButton, Qt::NoModifier, QPoint(-100, -200));
        QVERIFY(test.m_box->view()->isVisible());
        test.m_box->hidePopup();
        test.press(Qt::Key_Down);
    }) << 1 << "Light Blue";
    QTest::newRow("another field") << Steps([](auto& test) {
        test.type(QStringLiteral("lue"));
        test.m_after->setFocus();
    }) << 0 << "lue";
    QTest::newRow("the field before, by keyboard")
        << Steps([](auto& test) { test.press(Qt::Key_Backtab, Qt::ShiftModifier); }) << 0 << "Red";
    QTest::newRow("a click on a completion") << Steps([](auto& test) {
        test.type(QStringLiteral("lue"));
        QTRY_VERIFY(test.completions().isVisible());
        test.click(test.completions(), 2);
    }) << 3 << "Value";
}

void tst_ComboBoxAutoFilterKeyboard::goesOnWithoutAnEnd()
{
    QFETCH(Steps, steps);
    QFETCH(int, index);
    QFETCH(QString, text);

    steps(*this);
    QCOMPARE(m_ends->heard, QStringList());
    QVERIFY(m_box->isVisible());
    QCOMPARE(m_box->currentIndex(), index);
    QCOMPARE(m_box->lineEdit()->text(), text);
}

void tst_ComboBoxAutoFilterKeyboard::keepsWhatWasTyped()
{
    type(QStringLiteral("lu"));
    QTRY_VERIFY(completions().isVisible());
    QCOMPARE(m_box->lineEdit()->text(), QStringLiteral("lu"));
    QCOMPARE(m_box->lineEdit()->cursorPosition(), 2);
    QVERIFY(!m_box->lineEdit()->hasSelectedText());

    press(Qt::Key_Left);
    type(QStringLiteral("b"));
    QCOMPARE(m_box->lineEdit()->text(), QStringLiteral("lbu"));
    QCOMPARE(m_box->lineEdit()->cursorPosition(), 2);
    press(Qt::Key_Backspace);
    press(Qt::Key_Home);
    type(QStringLiteral("b"));
    QCOMPARE(m_box->lineEdit()->text(), QStringLiteral("blu"));
    QCOMPARE(m_box->lineEdit()->cursorPosition(), 1);
    QCOMPARE(completions().model()->rowCount(), 2);
    QCOMPARE(m_box->currentIndex(), 0);
}

/// A shortcut may give the focus to another field while the completions are open.
void tst_ComboBoxAutoFilterKeyboard::completionsGoWithTheFocus()
{
    type(QStringLiteral("lue"));
    QTRY_VERIFY(completions().isVisible());
    m_after->setFocus(Qt::ShortcutFocusReason);
    QVERIFY(!completions().isVisible());
    QTest::keyClick(m_window->windowHandle(), Qt::Key_X);
    QCOMPARE(m_after->text(), QStringLiteral("x"));
    QCOMPARE(m_box->lineEdit()->text(), QStringLiteral("lue"));
    QCOMPARE(m_ends->heard, QStringList());
}

/// A shortcut may show another page while the completions are open.
void tst_ComboBoxAutoFilterKeyboard::completionsGoWithTheBox()
{
    type(QStringLiteral("lue"));
    QTRY_VERIFY(completions().isVisible());
    m_box->hide();
    QVERIFY(!completions().isVisible());
    QCOMPARE(m_box->lineEdit()->text(), QStringLiteral("lue"));
    QCOMPARE(m_ends->heard, QStringList());
}

void tst_ComboBoxAutoFilterKeyboard::takesWhatIsHighlighted()
{
    type(QStringLiteral("lue"));
    QTRY_VERIFY(completions().isVisible());
    press(Qt::Key_Down);
    QCOMPARE(m_box->lineEdit()->text(), QStringLiteral("Blue"));
    press(Qt::Key_Down);
    QCOMPARE(m_box->lineEdit()->text(), QStringLiteral("Value"));
    press(Qt::Key_Return);
    QCOMPARE(m_ends->heard, QStringList{"complete"});
    QCOMPARE(m_box->currentIndex(), 3);
}

void tst_ComboBoxAutoFilterKeyboard::marksTheFirstCompletion()
{
    type(QStringLiteral("lue"));
    QTRY_VERIFY(completions().isVisible());
    QCOMPARE(completions().currentIndex().data().toString(), QStringLiteral("Light Blue"));
    QVERIFY(completions().selectionModel()->isSelected(completions().currentIndex()));
    press(Qt::Key_Backspace);
    press(Qt::Key_Backspace);
    press(Qt::Key_Backspace);
    QTRY_VERIFY(!completions().isVisible());
    QCOMPARE(m_box->lineEdit()->text(), QString());
    type(QStringLiteral("v"));
    QTRY_VERIFY(completions().isVisible());
    QCOMPARE(completions().currentIndex().data().toString(), QStringLiteral("Value"));
}

void tst_ComboBoxAutoFilterKeyboard::completesWithinTheLine()
{
    m_box->setCompleterAttributes(true, QCompleter::InlineCompletion, Qt::CaseInsensitive, Qt::ElideRight,
                                  Qt::MatchContains);
    m_after->setFocus();
    m_box->setFocus();
    m_box->lineEdit()->selectAll();
    type(QStringLiteral("li"));
    QCOMPARE(m_box->lineEdit()->text(), QStringLiteral("light Blue"));
    QCOMPARE(m_box->lineEdit()->selectedText(), QStringLiteral("ght Blue"));
    // An item that contains the text elsewhere than at its start does not complete it.
    m_box->lineEdit()->selectAll();
    type(QStringLiteral("lu"));
    QCOMPARE(m_box->lineEdit()->text(), QStringLiteral("lu"));
    press(Qt::Key_Return);
    QCOMPARE(m_box->currentIndex(), 1);
}

void tst_ComboBoxAutoFilterKeyboard::takesTextOfAnInputMethod()
{
    QInputMethodEvent composing(QStringLiteral("al"), {});
    QApplication::sendEvent(m_box, &composing);
    QCOMPARE(m_box->lineEdit()->text(), QString());
    QVERIFY(!completions().isVisible());
    QInputMethodEvent commit;
    commit.setCommitString(QStringLiteral("alu"));
    QApplication::sendEvent(m_box, &commit);
    QCOMPARE(m_box->lineEdit()->text(), QStringLiteral("alu"));
    QCOMPARE(m_box->lineEdit()->cursorPosition(), 3);
    QTRY_VERIFY(completions().isVisible());
    QCOMPARE(completions().model()->index(0, 0).data().toString(), QStringLiteral("Value"));
    press(Qt::Key_Return);
    QCOMPARE(m_box->currentIndex(), 3);
}

void tst_ComboBoxAutoFilterKeyboard::takesTextOfAnInputMethodForAnotherModel()
{
    QStringListModel other({"Steel Blue", "Gold"});
    m_box->setModel(&other);
    m_box->lineEdit()->selectAll();
    QInputMethodEvent commit;
    commit.setCommitString(QStringLiteral("old"));
    QApplication::sendEvent(m_box, &commit);
    QTRY_VERIFY(completions().isVisible());
    QCOMPARE(completions().model()->index(0, 0).data().toString(), QStringLiteral("Gold"));
    completions().hide();
}

void tst_ComboBoxAutoFilterKeyboard::isValidForGoodAfterEscape()
{
    press(Qt::Key_Escape);
    m_box->lineEdit()->setText(QStringLiteral("none"));
    QVERIFY(m_box->validateEntry());
    m_box->lineEdit()->setText(QStringLiteral("Value"));
    QVERIFY(m_box->validateEntry());
    QCOMPARE(m_box->currentIndex(), 0);
}

void tst_ComboBoxAutoFilterKeyboard::remembersTheIndexAtTheStart()
{
    // The index is recorded once, after the text has selected an item.
    m_box->lineEdit()->setText(QStringLiteral("alu"));
    openList();
    press(Qt::Key_Up);
    QCOMPARE(m_box->currentIndex(), 2);
    m_box->hidePopup();
    openList();
    press(Qt::Key_Up);
    QCOMPARE(m_box->currentIndex(), 0);
    press(Qt::Key_Escape);
    QCOMPARE(m_box->currentIndex(), 3);
    QCOMPARE(m_ends->heard, QStringList{"canceled"});
}

void tst_ComboBoxAutoFilterKeyboard::mayBeOpenedAgain()
{
    openList();
    click(*m_box->view(), 1);
    QCOMPARE(m_ends->heard, (QStringList{"complete"}));
    m_box->show();
    takeKeyboardFocus(*m_box);
    press(Qt::Key_Down);
    QCOMPARE(m_ends->heard, (QStringList{"complete"}));
    m_ends->heard.clear();
    m_box->lineEdit()->selectAll();
    type(QStringLiteral("alu"));
    press(Qt::Key_Return);
    m_box->show();
    takeKeyboardFocus(*m_box);
    m_box->lineEdit()->selectAll();
    type(QStringLiteral("red"));
    QTRY_VERIFY(completions().isVisible());
    press(Qt::Key_Tab);
    QCOMPARE(m_ends->heard, (QStringList{"complete", "complete"}));
    QCOMPARE(m_box->currentIndex(), 0);
}

void tst_ComboBoxAutoFilterKeyboard::longListsAreDrawn()
{
    QStringList names;
    for (int i = 0; i < 300000; ++i)
        names += QStringLiteral("Name %1").arg(i);
    QStringListModel model(names);
    m_box->setModel(&model);
    m_box->lineEdit()->selectAll();
    type(QStringLiteral("na"));
    QTRY_VERIFY(completions().isVisible());
    type(QStringLiteral("me")); // the list is still being laid out
    for (int turn = 0; turn < 20; ++turn)
        QCoreApplication::processEvents();
    const auto isDrawn = [this] {
        QWidget& list = *completions().viewport();
        const QPoint place = list.mapToGlobal(QPoint());
        // The picture excludes the first item, which is highlighted and therefore drawn in any case.
        const QImage image =
            list.screen()->grabWindow(0, place.x(), place.y() + 30, list.width(), list.height() - 30).toImage();
        QSet<QRgb> colours;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x)
                colours.insert(image.pixel(x, y));
        }
        return colours.size() > 1;
    };
    QVERIFY(isDrawn());
}

void tst_ComboBoxAutoFilterKeyboard::listsFitTheirItems_data()
{
    QTest::addColumn<bool>("completions");
    QTest::newRow("drop-down list") << false;
    QTest::newRow("completions") << true;
}

void tst_ComboBoxAutoFilterKeyboard::listsFitTheirItems()
{
    QFETCH(bool, completions);

    const QString name = QStringLiteral("lue, much longer than the field, which is narrow");
    m_box->addItem(name);
    m_box->setFixedWidth(80);
    QAbstractItemView& list = completions ? this->completions() : *m_box->view();
    if (completions)
        type(QStringLiteral("lue"));
    else
        openList();
    QTRY_VERIFY(list.isVisible());
    QVERIFY(list.viewport()->width() >= list.fontMetrics().horizontalAdvance(name));
    QVERIFY(list.width() < 2 * list.fontMetrics().horizontalAdvance(name));
}

void tst_ComboBoxAutoFilterKeyboard::listsStayOnTheScreen_data()
{
    listsFitTheirItems_data();
}

void tst_ComboBoxAutoFilterKeyboard::listsStayOnTheScreen()
{
    QFETCH(bool, completions);

    const QRect screen = m_window->screen()->availableGeometry();
    m_box->addItem(QString(1000, QLatin1Char('l')));
    m_box->setFixedWidth(80);
    m_window->resize(100, 120);
    m_window->move(screen.bottomRight() - QPoint(140, 160));
    QTRY_VERIFY(m_box->mapToGlobal(QPoint()).x() > screen.center().x());
    QAbstractItemView& list = completions ? this->completions() : *m_box->view();
    if (completions)
        type(QStringLiteral("l"));
    else
        openList();
    QTRY_VERIFY(list.isVisible());
    const auto isOnScreen = [&] {
        const QRect place(list.window()->mapToGlobal(QPoint()), list.window()->size());
        return screen.contains(place);
    };
    QTRY_VERIFY(isOnScreen());
}

void tst_ComboBoxAutoFilterKeyboard::completionsFollowTheModelWhileTheyAreShown()
{
    type(QStringLiteral("lue"));
    QTRY_VERIFY(completions().isVisible());
    m_box->insertItem(0, QStringLiteral("Clue"));
    QCOMPARE(completions().model()->rowCount(), 4);
    m_box->removeItem(2);
    QCOMPARE(completions().model()->rowCount(), 3);
    QCOMPARE(completions().model()->index(0, 0).data().toString(), QStringLiteral("Clue"));
    QCOMPARE(m_box->lineEdit()->text(), QStringLiteral("lue"));
    press(Qt::Key_Return);
    QCOMPARE(m_box->currentText(), QStringLiteral("Clue"));
}

void tst_ComboBoxAutoFilterKeyboard::survivesTheEndOfItsCompleterAtTheMark()
{
    const QPointer<QCompleter> completer(m_box->completer());
    connect(completer->popup()->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            [&] { delete completer; });
    type(QStringLiteral("lue"));
    QVERIFY(!completer);
    QCOMPARE(m_box->lineEdit()->text(), QStringLiteral("lue"));
    QVERIFY(m_box->validateEntry());
    QCOMPARE(m_box->currentText(), QStringLiteral("Light Blue"));
}

UI_TEST_MAIN(tst_ComboBoxAutoFilterKeyboard)

#include "tst_ComboBoxAutoFilterKeyboard.moc"
