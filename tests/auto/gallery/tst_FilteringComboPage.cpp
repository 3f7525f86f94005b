#include "pages/FilteringComboPage.h"

#include "ui/qt/controls/ComboBoxAutoFilter.h"

#include "Keyboard.h"
#include "TestHome.h"

#include <QAbstractItemModel>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QtTest>

#include <algorithm>

using gallery::FilteringComboPage;
using zelmar::ui::ComboBoxAutoFilter;

/// Edits the value of the form with the page's own button and keys.
class tst_FilteringComboPage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void hasOneEditorAtATime();
    void tellsWhichNameIsUnknown();
};

void tst_FilteringComboPage::hasOneEditorAtATime()
{
    FilteringComboPage page;
    page.show();
    takeKeyboardFocus(page);
    auto* const value = page.findChild<QPushButton*>();
    const QString name = value->text();

    value->click();
    const QPointer<ComboBoxAutoFilter> box = page.findChild<ComboBoxAutoFilter*>();
    QVERIFY(box);
    box->lineEdit()->setText(QStringLiteral("typed"));
    value->click();
    QTest::keyClick(page.windowHandle(), Qt::Key_S, Qt::AltModifier); // the mnemonic of the label
    QCOMPARE(page.findChildren<ComboBoxAutoFilter*>().size(), 1);
    QCOMPARE(box->lineEdit()->text(), QStringLiteral("typed"));

    // The first key ends the only editor. The second one presses the button, which opens another one.
    QTest::keyClick(page.windowHandle(), Qt::Key_Escape);
    QTRY_VERIFY(!box);
    QCOMPARE(value->text(), name);
    value->click();
    QTest::keyClick(page.windowHandle(), Qt::Key_Return);
    QTRY_COMPARE(page.findChildren<ComboBoxAutoFilter*>().size(), 0);
    QCOMPARE(value->text(), name);
}

void tst_FilteringComboPage::tellsWhichNameIsUnknown()
{
    FilteringComboPage page;
    page.show();
    auto& table = *page.findChild<QTableView*>();
    const QModelIndex cell = table.model()->index(2, 1);
    const QString before = cell.data().toString();
    const auto shows = [&page](const QString& text) {
        const QList<QLabel*> labels = page.findChildren<QLabel*>();
        return std::any_of(labels.begin(), labels.end(), [&](const QLabel* label) { return label->text() == text; });
    };
    const auto enter = [&](const QString& text) {
        takeKeyboardFocus(table);
        table.setCurrentIndex(cell);
        QTest::keyClick(page.windowHandle(), Qt::Key_F2);
        for (const QChar letter : text)
            QTest::keyClick(page.windowHandle(), letter.toLatin1());
        QTest::keyClick(page.windowHandle(), Qt::Key_Return);
        QTRY_COMPARE(page.findChildren<ComboBoxAutoFilter*>().size(), 0);
    };
    enter("zzz");
    QCOMPARE(cell.data().toString(), before);
    QVERIFY(shows("\"zzz\" is no signal."));
    enter("press");
    QVERIFY(cell.data().toString() != before);
    QVERIFY(!shows("\"zzz\" is no signal."));
}

UI_TEST_MAIN(tst_FilteringComboPage)
#include "tst_FilteringComboPage.moc"
