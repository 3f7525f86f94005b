#include "compat/ctkCompleter.h"

#include "TestHome.h"
#include "filter/RandomTexts.h"

#include <QAbstractItemView>
#include <QAbstractProxyModel>
#include <QApplication>
#include <QLineEdit>
#include <QSignalSpy>
#include <QStandardItemModel>
#include <QStringListModel>
#include <QTest>

#include <memory>

static_assert(ctkCompleter::FilterContains == 1, "the number that callers may have stored");

namespace {

const QStringList colours = {"Blue", "Red", "Value", "Light Blue", "bluish"};

QStringList completions(const QCompleter& completer)
{
    const QAbstractItemModel& list = *completer.completionModel();
    QStringList texts;
    for (int row = 0; row < list.rowCount(); ++row)
        texts += list.index(row, completer.completionColumn()).data().toString();
    return texts;
}

QStringList completions(QCompleter& completer, const QString& prefix)
{
    completer.setCompletionPrefix(prefix);
    return completions(completer);
}

} // namespace

class tst_ctkCompleter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void startsAsAQCompleter();
    void completesWithWhatContainsTheText_data();
    void completesWithWhatContainsTheText();
    void completesLikeQCompleter();
    void tellsTheRowOfTheModel();
    void completesWithinTheLineWhatStartsWithTheText();
    void showsAllAndMarksTheFirst();
    void looksAtOtherColumnsAndRoles();
    void followsTheModel();
    void takesAnotherModel();
    void deletesItsOwnModelOnly();
    void survivesTheModel();
};

void tst_ctkCompleter::startsAsAQCompleter()
{
    const ctkCompleter empty;
    QVERIFY(!empty.sourceModel());
    QCOMPARE(empty.modelFiltering(), ctkCompleter::FilterStartsWith);
    QCOMPARE(completions(empty), QStringList());

    ctkCompleter completer(colours);
    QCOMPARE(completions(completer, QStringLiteral("B")), (QStringList{"Blue"}));
    completer.setCaseSensitivity(Qt::CaseInsensitive);
    QCOMPARE(completions(completer, QStringLiteral("B")), (QStringList{"Blue", "bluish"}));
    QCOMPARE(completer.filterMode(), Qt::MatchStartsWith);
}

void tst_ctkCompleter::completesWithWhatContainsTheText_data()
{
    QTest::addColumn<QString>("prefix");
    QTest::addColumn<bool>("caseTold");
    QTest::addColumn<QStringList>("expected");

    QTest::newRow("nothing typed") << "" << false << colours;
    QTest::newRow("in the middle") << "lue" << false << QStringList{"Blue", "Value", "Light Blue"};
    QTest::newRow("any case") << "BLU" << false << QStringList{"Blue", "Light Blue", "bluish"};
    QTest::newRow("its case") << "Blu" << true << QStringList{"Blue", "Light Blue"};
    QTest::newRow("in none") << "green" << false << QStringList();
}

void tst_ctkCompleter::completesWithWhatContainsTheText()
{
    QFETCH(QString, prefix);
    QFETCH(bool, caseTold);
    QFETCH(QStringList, expected);

    ctkCompleter completer(colours);
    completer.setModelFiltering(ctkCompleter::FilterContains);
    completer.setCaseSensitivity(caseTold ? Qt::CaseSensitive : Qt::CaseInsensitive);
    QCOMPARE(completions(completer, prefix), expected);
    QCOMPARE(completer.completionCount(), expected.size());
    QCOMPARE(completer.currentRow(), expected.isEmpty() ? -1 : 0);
    QCOMPARE(completer.currentCompletion(), expected.value(0));
    QCOMPARE(completer.completionPrefix(), prefix);
}

void tst_ctkCompleter::completesLikeQCompleter()
{
    RandomTexts random(3);
    for (int round = 0; round < 100; ++round) {
        QStringList texts;
        for (int i = 0; i < 100; ++i)
            texts += random.text(30);
        QStringListModel model(texts);
        QCompleter peer(&model);
        peer.setFilterMode(Qt::MatchContains);
        ctkCompleter ours(&model);
        ours.setModelFiltering(ctkCompleter::FilterContains);
        const auto caseSensitivity = round % 2 == 0 ? Qt::CaseInsensitive : Qt::CaseSensitive;
        peer.setCaseSensitivity(caseSensitivity);
        ours.setCaseSensitivity(caseSensitivity);

        QString typed;
        for (int key = 0; key < 20; ++key) {
            if (random.upTo(3) == 0)
                typed.chop(1);
            else
                typed += random.text(2);
            QCOMPARE(completions(ours, typed), completions(peer, typed));
            const int row = random.upTo(texts.size());
            model.setData(model.index(row), random.text(30));
            QCOMPARE(completions(ours), completions(peer));
            model.removeRows(row, 1);
            QCOMPARE(completions(ours), completions(peer));
            model.insertRows(row, 1);
            model.setData(model.index(row), random.text(30));
            QCOMPARE(completions(ours), completions(peer));
        }
    }
}

void tst_ctkCompleter::tellsTheRowOfTheModel()
{
    QStringListModel model(colours);
    ctkCompleter completer(&model);
    completer.setModelFiltering(ctkCompleter::FilterContains);
    completer.setCompletionPrefix(QStringLiteral("Light"));
    const auto* shown = qobject_cast<QAbstractProxyModel*>(completer.completionModel());
    const auto* filtered = qobject_cast<QAbstractProxyModel*>(completer.model());
    QVERIFY(shown && filtered);
    QCOMPARE(filtered->mapToSource(shown->mapToSource(completer.currentIndex())), model.index(3));
}

void tst_ctkCompleter::completesWithinTheLineWhatStartsWithTheText()
{
    ctkCompleter completer({"Value", "Glue", "lucky"});
    completer.setCompletionMode(QCompleter::InlineCompletion);
    completer.setModelFiltering(ctkCompleter::FilterContains);
    completer.setCompletionPrefix(QStringLiteral("lu"));
    QCOMPARE(completer.currentCompletion(), QStringLiteral("lucky"));
    completer.setCompletionPrefix(QStringLiteral("lue"));
    QCOMPARE(completer.currentCompletion(), QString());
}

void tst_ctkCompleter::showsAllAndMarksTheFirst()
{
    ctkCompleter completer(colours);
    completer.setModelFiltering(ctkCompleter::FilterContains);
    completer.setCompletionMode(QCompleter::UnfilteredPopupCompletion);
    completer.setCaseSensitivity(Qt::CaseInsensitive);
    QCOMPARE(completions(completer, QStringLiteral("alu")), colours);
    QCOMPARE(completer.currentCompletion(), QStringLiteral("Value"));
    completer.setCompletionMode(QCompleter::PopupCompletion);
    QCOMPARE(completions(completer, QStringLiteral("alu")), (QStringList{"Value"}));
}

void tst_ctkCompleter::looksAtOtherColumnsAndRoles()
{
    QStandardItemModel items(2, 2);
    items.setItem(0, 1, new QStandardItem(QStringLiteral("Blue")));
    items.setItem(1, 1, new QStandardItem(QStringLiteral("Red")));
    items.item(1, 1)->setData(QStringLiteral("like blue"), Qt::UserRole);
    ctkCompleter completer(&items);
    completer.setModelFiltering(ctkCompleter::FilterContains);
    completer.setCaseSensitivity(Qt::CaseInsensitive);
    QCOMPARE(completions(completer, QStringLiteral("lue")), QStringList());
    completer.setCompletionColumn(1);
    QCOMPARE(completions(completer, QStringLiteral("blue")), (QStringList{"Blue"}));
    completer.setCompletionRole(Qt::UserRole);
    QCOMPARE(completions(completer, QStringLiteral("blu")), (QStringList{"Red"}));
    QCOMPARE(completer.currentCompletion(), QStringLiteral("like blue"));
}

void tst_ctkCompleter::followsTheModel()
{
    QStringListModel model(colours);
    ctkCompleter completer(&model);
    completer.setModelFiltering(ctkCompleter::FilterContains);
    QCOMPARE(completions(completer, QStringLiteral("lue")), (QStringList{"Blue", "Value", "Light Blue"}));
    model.setStringList({"Clue"});
    QCOMPARE(completions(completer), (QStringList{"Clue"}));
    model.insertRows(0, 1);
    model.setData(model.index(0), QStringLiteral("Flue"));
    QCOMPARE(completions(completer), (QStringList{"Flue", "Clue"}));
    model.sort(0);
    QCOMPARE(completions(completer), (QStringList{"Clue", "Flue"}));
    model.removeRow(0);
    QCOMPARE(completions(completer), (QStringList{"Flue"}));
}

void tst_ctkCompleter::takesAnotherModel()
{
    QStringListModel first(colours);
    QStringListModel second({"Glue", "Sand"});
    ctkCompleter completer(&first);
    completer.setModelFiltering(ctkCompleter::FilterContains);
    completer.setCompletionPrefix(QStringLiteral("lue"));
    completer.setModel(&second);
    QCOMPARE(completer.sourceModel(), &second);
    QCOMPARE(completions(completer), (QStringList{"Glue"}));
    completer.setModel(nullptr);
    QCOMPARE(completions(completer), QStringList());
}

void tst_ctkCompleter::deletesItsOwnModelOnly()
{
    ctkCompleter completer(colours);
    const QPointer<QAbstractItemModel> own(completer.sourceModel());
    QStringListModel other(colours);
    completer.setModel(&other);
    QVERIFY(!own);
    QCOMPARE(completions(completer, QStringLiteral("R")), (QStringList{"Red"}));
    QStringListModel third;
    completer.setModel(&third);
    QCOMPARE(other.stringList(), colours);
}

void tst_ctkCompleter::survivesTheModel()
{
    auto model = std::make_unique<QStringListModel>(colours);
    QLineEdit edit;
    auto* completer = new ctkCompleter(model.get(), &edit);
    completer->setModelFiltering(ctkCompleter::FilterContains);
    edit.setCompleter(completer);
    completer->setCompletionPrefix(QStringLiteral("lue"));
    completer->complete();
    QTRY_VERIFY(completer->popup()->isVisible());
    model.reset();
    QCOMPARE(completions(*completer), QStringList());
    QCOMPARE(completions(*completer, QStringLiteral("e")), QStringList());
    completer->popup()->hide();
}

UI_TEST_MAIN(tst_ctkCompleter)

#include "tst_ctkCompleter.moc"
