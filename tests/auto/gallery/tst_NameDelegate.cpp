#include "NameDelegate.h"

#include "Keyboard.h"
#include "TestHome.h"
#include "ui/qt/controls/ComboBoxAutoFilter.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCompleter>
#include <QLineEdit>
#include <QSignalSpy>
#include <QStandardItemModel>
#include <QStringListModel>
#include <QTableView>
#include <QTest>
#include <QVBoxLayout>
#include <QWindow>

#include <functional>
#include <memory>

using gallery::NameDelegate;
using zelmar::ui::ComboBoxAutoFilter;

Q_DECLARE_METATYPE(NameDelegate::Entry)

class tst_NameDelegate : public QObject
{
    Q_OBJECT

public:
    using Steps = std::function<void(tst_NameDelegate&)>;

private Q_SLOTS:
    void cleanup();

    void edits_data();
    void edits();
    void beginsWithTheCellsText();
    void marksNoCompletionOfAnyText();
    void leavesOtherCellsAlone();

private:
    void show(NameDelegate::Entry entry);
    ComboBoxAutoFilter* beginEditing();
    void type(const QString& text);
    void press(Qt::Key key);

    QStringListModel m_names{QStringList{"Red", "Light Blue", "Blue", "Value"}};
    std::unique_ptr<QWidget> m_window;
    QTableView* m_table = nullptr;
    QLineEdit* m_other = nullptr;
    QStandardItemModel* m_model = nullptr;
};

Q_DECLARE_METATYPE(tst_NameDelegate::Steps)

/// Two columns, of which the second is edited by name.
void tst_NameDelegate::show(NameDelegate::Entry entry)
{
    m_window = std::make_unique<QWidget>();
    m_table = new QTableView;
    m_other = new QLineEdit;
    auto* layout = new QVBoxLayout(m_window.get());
    layout->addWidget(m_table);
    layout->addWidget(m_other);
    m_model = new QStandardItemModel(3, 2, m_window.get());
    for (int row = 0; row < 3; ++row) {
        m_model->setItem(row, 0, new QStandardItem(QStringLiteral("plain")));
        m_model->setItem(row, 1, new QStandardItem(QStringLiteral("Value")));
    }
    m_table->setModel(m_model);
    const auto names = [this](const QModelIndex& index, QObject*) { return index.column() == 1 ? &m_names : nullptr; };
    m_table->setItemDelegate(new NameDelegate(entry, names, m_table));
    m_window->resize(400, 300);
    m_window->show();
    takeKeyboardFocus(*m_table);
    m_table->setCurrentIndex(m_model->index(1, 1));
}

void tst_NameDelegate::cleanup()
{
    m_window.reset();
}

ComboBoxAutoFilter* tst_NameDelegate::beginEditing()
{
    press(Qt::Key_F2);
    return m_table->findChild<ComboBoxAutoFilter*>();
}

void tst_NameDelegate::type(const QString& text)
{
    for (const QChar letter : text)
        QTest::keyClick(m_window->windowHandle(), letter.toLatin1());
}

void tst_NameDelegate::press(Qt::Key key)
{
    QTest::keyClick(m_window->windowHandle(), key);
}

void tst_NameDelegate::edits_data()
{
    using Entry = NameDelegate::Entry;
    QTest::addColumn<NameDelegate::Entry>("entry");
    QTest::addColumn<Steps>("steps");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("completed");
    QTest::addColumn<int>("canceled");

    const auto typeAnd = [](const char* text, const QVector<Qt::Key>& keys) -> Steps {
        return [=](tst_NameDelegate& test) {
            test.type(QString::fromLatin1(text));
            for (const Qt::Key key : keys)
                test.press(key);
        };
    };
    const Steps leave = [](tst_NameDelegate& test) {
        test.type(QStringLiteral("red"));
        test.m_table->findChild<ComboBoxAutoFilter*>()->completer()->popup()->hide();
        test.m_other->setFocus(Qt::MouseFocusReason);
    };
    QTest::newRow("Return takes the first name")
        << Entry::Name << typeAnd("blu", {Qt::Key_Return}) << "Light Blue" << 1 << 0;
    QTest::newRow("Tab takes it, too") << Entry::Name << typeAnd("blu", {Qt::Key_Tab}) << "Light Blue" << 1 << 0;
    QTest::newRow("what is no name is not taken")
        << Entry::Name << typeAnd("green", {Qt::Key_Return}) << "Value" << 1 << 0;
    QTest::newRow("Escape takes nothing") << Entry::Name << typeAnd("blu", {Qt::Key_Escape}) << "Value" << 0 << 1;
    QTest::newRow("Escape in the list restores")
        << Entry::Name << typeAnd("", {Qt::Key_F4, Qt::Key_Up, Qt::Key_Up, Qt::Key_Escape}) << "Value" << 0 << 1;
    QTest::newRow("Return in the list takes")
        << Entry::Name << typeAnd("", {Qt::Key_F4, Qt::Key_Up, Qt::Key_Up, Qt::Key_Return}) << "Light Blue" << 1 << 0;
    QTest::newRow("leaving takes what is there") << Entry::Name << leave << "Red" << 0 << 0;

    QTest::newRow("any text: as typed, by Return")
        << Entry::AnyText << typeAnd("Blu", {Qt::Key_Return}) << "Blu" << 1 << 0;
    QTest::newRow("any text: no name") << Entry::AnyText << typeAnd("green", {Qt::Key_Return}) << "green" << 1 << 0;
    QTest::newRow("any text: a name within another")
        << Entry::AnyText << typeAnd("Blue", {Qt::Key_Tab}) << "Blue" << 1 << 0;
    QTest::newRow("any text: a completion")
        << Entry::AnyText << typeAnd("blu", {Qt::Key_Down, Qt::Key_Return}) << "Light Blue" << 1 << 0;
    QTest::newRow("any text: the second completion")
        << Entry::AnyText << typeAnd("blu", {Qt::Key_Down, Qt::Key_Down, Qt::Key_Return}) << "Blue" << 1 << 0;
    QTest::newRow("any text: back from the completions")
        << Entry::AnyText << typeAnd("blu", {Qt::Key_Down, Qt::Key_Up, Qt::Key_Return}) << "blu" << 1 << 0;
    QTest::newRow("any text: from the list")
        << Entry::AnyText << typeAnd("", {Qt::Key_F4, Qt::Key_Up, Qt::Key_Return}) << "Blue" << 1 << 0;
    QTest::newRow("any text: nothing") << Entry::AnyText << typeAnd("", {Qt::Key_Backspace, Qt::Key_Return}) << "" << 1
                                       << 0;
    QTest::newRow("any text: untouched") << Entry::AnyText << typeAnd("", {Qt::Key_Return}) << "Value" << 1 << 0;
    QTest::newRow("any text: Escape") << Entry::AnyText << typeAnd("Blu", {Qt::Key_Escape}) << "Value" << 0 << 1;
    QTest::newRow("any text: leaving") << Entry::AnyText << leave << "red" << 0 << 0;
}

void tst_NameDelegate::edits()
{
    QFETCH(NameDelegate::Entry, entry);
    QFETCH(Steps, steps);
    QFETCH(QString, text);
    QFETCH(int, completed);
    QFETCH(int, canceled);

    show(entry);
    QPointer<ComboBoxAutoFilter> box = beginEditing();
    QVERIFY(box);
    QVERIFY(box->hasFocus());
    const QSignalSpy completions(box.data(), SIGNAL(selectionComplete()));
    const QSignalSpy cancellations(box.data(), SIGNAL(editingCanceled()));
    const QSignalSpy changes(m_model, &QAbstractItemModel::dataChanged);
    steps(*this);
    QCOMPARE(m_model->index(1, 1).data().toString(), text);
    QCOMPARE(completions.count(), completed);
    QCOMPARE(cancellations.count(), canceled);
    QVERIFY(changes.count() <= 1);
    QTRY_VERIFY(!box);
    if (completed + canceled > 0)
        QVERIFY(m_table->hasFocus());
    QCOMPARE(m_table->currentIndex(), m_model->index(1, 1));

    // And again: nothing is left of the first time.
    takeKeyboardFocus(*m_table);
    QVERIFY(beginEditing());
    press(Qt::Key_Escape);
    QCOMPARE(m_model->index(1, 1).data().toString(), text);
}

void tst_NameDelegate::beginsWithTheCellsText()
{
    show(NameDelegate::Entry::AnyText);
    m_model->item(1, 1)->setText(QStringLiteral("not one of them"));
    const ComboBoxAutoFilter* box = beginEditing();
    QVERIFY(box);
    QCOMPARE(box->currentText(), QStringLiteral("not one of them"));
    QCOMPARE(box->lineEdit()->selectedText(), QStringLiteral("not one of them"));
    QCOMPARE(box->currentIndex(), -1);
    QVERIFY(!box->completer()->popup()->isVisible());
}

/// What is marked in the list is what Return takes.
void tst_NameDelegate::marksNoCompletionOfAnyText()
{
    for (const auto entry : {NameDelegate::Entry::Name, NameDelegate::Entry::AnyText}) {
        show(entry);
        const ComboBoxAutoFilter* box = beginEditing();
        QVERIFY(box);
        type(QStringLiteral("blu"));
        const QAbstractItemView& list = *box->completer()->popup();
        QVERIFY(list.isVisible());
        const bool isMarked = entry == NameDelegate::Entry::Name;
        QTRY_COMPARE(list.currentIndex().isValid(), isMarked);
        QCOMPARE(list.selectionModel()->hasSelection(), isMarked);
        QCOMPARE(box->lineEdit()->text(), QStringLiteral("blu"));
        press(Qt::Key_Escape);
    }
}

void tst_NameDelegate::leavesOtherCellsAlone()
{
    show(NameDelegate::Entry::Name);
    m_table->setCurrentIndex(m_model->index(1, 0));
    QVERIFY(!beginEditing());
    QVERIFY(m_table->findChild<QLineEdit*>());
    type(QStringLiteral("typed"));
    press(Qt::Key_Return);
    QTRY_COMPARE(m_model->index(1, 0).data().toString(), QStringLiteral("typed"));
}

UI_TEST_MAIN(tst_NameDelegate)

#include "tst_NameDelegate.moc"
