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

#include <memory>

using gallery::NameDelegate;
using zelmar::ui::ComboBoxAutoFilter;

Q_DECLARE_METATYPE(NameDelegate::Entry)

class tst_NameDelegate : public QObject
{
    Q_OBJECT

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
    constexpr auto Name = NameDelegate::Entry::Name;
    constexpr auto AnyText = NameDelegate::Entry::AnyText;
    const struct
    {
        const char* meaning;
        NameDelegate::Entry entry;
        const char* typed;
        QVector<Qt::Key> keys; ///< Without keys, the user clicks on another field.
        const char* text;
    } rows[] = {
        {"Return takes the first name", Name, "blu", {Qt::Key_Return}, "Light Blue"},
        {"Tab takes it, too", Name, "blu", {Qt::Key_Tab}, "Light Blue"},
        {"what is no name is not taken", Name, "green", {Qt::Key_Return}, "Value"},
        {"Escape takes nothing", Name, "blu", {Qt::Key_Escape}, "Value"},
        {"Escape in the list", Name, "", {Qt::Key_F4, Qt::Key_Up, Qt::Key_Up, Qt::Key_Escape}, "Value"},
        {"Return in the list", Name, "", {Qt::Key_F4, Qt::Key_Up, Qt::Key_Up, Qt::Key_Return}, "Light Blue"},
        {"leaving takes what is there", Name, "red", {}, "Red"},
        {"any text: as typed, by Return", AnyText, "Blu", {Qt::Key_Return}, "Blu"},
        {"any text: no name", AnyText, "green", {Qt::Key_Return}, "green"},
        {"any text: a name within another", AnyText, "Blue", {Qt::Key_Tab}, "Blue"},
        {"any text: a completion", AnyText, "blu", {Qt::Key_Down, Qt::Key_Return}, "Light Blue"},
        {"any text: the second completion", AnyText, "blu", {Qt::Key_Down, Qt::Key_Down, Qt::Key_Return}, "Blue"},
        {"any text: back from the list", AnyText, "blu", {Qt::Key_Down, Qt::Key_Up, Qt::Key_Return}, "blu"},
        {"any text: from the list", AnyText, "", {Qt::Key_F4, Qt::Key_Up, Qt::Key_Return}, "Blue"},
        {"any text: nothing", AnyText, "", {Qt::Key_Backspace, Qt::Key_Return}, ""},
        {"any text: untouched", AnyText, "", {Qt::Key_Return}, "Value"},
        {"any text: Escape", AnyText, "Blu", {Qt::Key_Escape}, "Value"},
        {"any text: leaving", AnyText, "red", {}, "red"},
    };
    QTest::addColumn<NameDelegate::Entry>("entry");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QVector<Qt::Key>>("keys");
    QTest::addColumn<QString>("text");
    for (const auto& row : rows)
        QTest::newRow(row.meaning) << row.entry << QString(row.typed) << row.keys << QString(row.text);
}

void tst_NameDelegate::edits()
{
    QFETCH(NameDelegate::Entry, entry);
    QFETCH(QString, typed);
    QFETCH(QVector<Qt::Key>, keys);
    QFETCH(QString, text);

    show(entry);
    QPointer<ComboBoxAutoFilter> box = beginEditing();
    QVERIFY(box);
    QVERIFY(box->hasFocus());
    const QSignalSpy completions(box.data(), SIGNAL(selectionComplete()));
    const QSignalSpy cancellations(box.data(), SIGNAL(editingCanceled()));
    const QSignalSpy changes(m_model, &QAbstractItemModel::dataChanged);
    type(typed);
    for (const Qt::Key key : keys)
        press(key);
    if (keys.isEmpty()) {
        box->completer()->popup()->hide();
        m_other->setFocus(Qt::MouseFocusReason);
    }
    QCOMPARE(m_model->index(1, 1).data().toString(), text);
    const bool isCancelled = keys.endsWith(Qt::Key_Escape);
    QCOMPARE(completions.count(), !isCancelled && !keys.isEmpty() ? 1 : 0);
    QCOMPARE(cancellations.count(), isCancelled ? 1 : 0);
    QVERIFY(changes.count() <= 1);
    QTRY_VERIFY(!box);
    QCOMPARE(m_table->hasFocus(), !keys.isEmpty());
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
    m_model->item(1, 1)->setText(QString("not one of them"));
    const ComboBoxAutoFilter* box = beginEditing();
    QVERIFY(box);
    QCOMPARE(box->currentText(), QString("not one of them"));
    QCOMPARE(box->lineEdit()->selectedText(), QString("not one of them"));
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
