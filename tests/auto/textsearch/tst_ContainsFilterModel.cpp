#include "textsearch/ContainsFilterModel_p.h"
#include "textsearch/ModelTexts_p.h"

#include "EarlyListener.h"
#include "LazyList.h"
#include "RandomTexts.h"
#include "TestHome.h"
#include "modelTexts.h"

#include <QAbstractItemModelTester>
#include <QCoreApplication>
#include <QSignalSpy>
#include <QStandardItemModel>
#include <QStringListModel>
#include <QTest>

#include <functional>
#include <map>
#include <memory>

using zelmar::internal::ContainsFilterModel;
using zelmar::internal::ModelTexts;

namespace {

QStringList plainly(const QAbstractItemModel& model, const QString& text, Qt::CaseSensitivity caseSensitivity,
                    int column = 0, int role = Qt::EditRole)
{
    QStringList texts;
    for (const QString& candidate : textsOf(model, column, role)) {
        if (candidate.contains(text, caseSensitivity))
            texts += candidate;
    }
    return texts;
}

/// A list model whose rows can be moved, and which emits only the required signals for each change.
class MovableList : public QAbstractListModel
{
public:
    int rowCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : texts.size(); }
    QVariant data(const QModelIndex& index, int role) const override
    {
        ++reads;
        return role == Qt::EditRole || role == Qt::DisplayRole ? texts.at(index.row()) : QVariant();
    }

    void insert(int row, const QStringList& inserted)
    {
        beginInsertRows({}, row, row + inserted.size() - 1);
        for (int i = 0; i < inserted.size(); ++i)
            texts.insert(row + i, inserted.at(i));
        endInsertRows();
    }

    void remove(int row, int count)
    {
        beginRemoveRows({}, row, row + count - 1);
        texts.erase(texts.begin() + row, texts.begin() + row + count);
        endRemoveRows();
    }

    bool move(int row, int count, int destination)
    {
        if (!beginMoveRows({}, row, row + count - 1, {}, destination))
            return false;
        const QStringList moved = texts.mid(row, count);
        for (int i = 0; i < count; ++i)
            texts.insert(destination + i, moved.at(i));
        const int left = row < destination ? row : row + count;
        texts.erase(texts.begin() + left, texts.begin() + left + count);
        endMoveRows();
        return true;
    }

    void rewrite(int row, const QStringList& others, const QVector<int>& roles)
    {
        for (int i = 0; i < others.size(); ++i)
            texts[row + i] = others.at(i);
        Q_EMIT dataChanged(index(row), index(row + others.size() - 1), roles);
    }

    void reverse()
    {
        Q_EMIT layoutAboutToBeChanged();
        std::reverse(texts.begin(), texts.end());
        Q_EMIT layoutChanged();
    }

    void replaceAll(const QStringList& others)
    {
        beginResetModel();
        texts = others;
        endResetModel();
    }

    QStringList texts;
    mutable int reads = 0;
};

/// Makes one random edit of `list`. Most kinds of edit are equally probable.
void editAtRandom(MovableList& list, RandomTexts& random)
{
    const int size = list.texts.size();
    const int row = random.upTo(size + 1);
    const int count = size - row > 0 ? 1 + random.upTo(qMin(5, size - row)) : 0;
    QStringList others;
    for (int i = 0; i < qMax(1, count); ++i)
        others += random.text(12);
    switch (random.upTo(6)) {
    case 0:
        return list.insert(row, others);
    case 1:
        return count > 0 ? list.remove(row, count) : void();
    case 2:
        if (count > 0)
            list.move(row, count, random.upTo(size + 1));
        return;
    case 3:
        return count > 0
                   ? list.rewrite(row, others, random.upTo(2) == 0 ? QVector<int>() : QVector<int>{Qt::DisplayRole})
                   : void();
    case 4:
        return list.reverse();
    default:
        return random.upTo(10) == 0 ? list.replaceAll(others + list.texts) : void();
    }
}

/// Makes one random edit that QStringListModel supports. Most edits change one row.
void editAtRandom(QStringListModel& list, RandomTexts& random)
{
    const int size = list.rowCount();
    const int row = random.upTo(size + 1);
    const int count = size - row > 0 ? 1 + random.upTo(qMin(5, size - row)) : 0;
    switch (random.upTo(12)) {
    case 0:
        list.insertRows(row, 1 + random.upTo(5));
        return;
    case 1:
        list.removeRows(row, count);
        return;
    case 2:
        list.moveRows({}, row, count, {}, random.upTo(size + 1));
        return;
    case 3:
        list.sort(0, random.upTo(2) == 0 ? Qt::AscendingOrder : Qt::DescendingOrder);
        return;
    case 4:
        list.setStringList(list.stringList() + QStringList{random.text(12)});
        return;
    default:
        list.setData(list.index(row), random.text(12));
        return;
    }
}

template <typename List>
void compareUnderRandomEdits(List& list, const QString& text, RandomTexts& random)
{
    ContainsFilterModel filter(nullptr);
    const QAbstractItemModelTester tester(&filter, QAbstractItemModelTester::FailureReportingMode::QtTest);
    filter.setSourceModel(&list);
    filter.setContainedText(text, Qt::CaseInsensitive);
    for (int edit = 0; edit < 1000; ++edit) {
        editAtRandom(list, random);
        QCOMPARE(textsOf(filter), plainly(list, text, Qt::CaseInsensitive));
        if (random.upTo(20) == 0) { // the user types between two edits
            filter.setContainedText(text + random.text(2), Qt::CaseInsensitive);
            editAtRandom(list, random);
            filter.setContainedText(text, Qt::CaseInsensitive);
            QCOMPARE(textsOf(filter), plainly(list, text, Qt::CaseInsensitive));
        }
    }
}

} // namespace

class tst_ContainsFilterModel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void showsEveryRowAtFirst();
    void keepsTheRowsThatContainTheText();
    void mapsToTheModelAndBack();
    void narrowsAndWidens();
    void looksAtOtherColumnsAndRoles();
    void keepsAllColumns();
    void leavesChildrenOut();
    void followsRandomEdits_data();
    void followsRandomEdits();
    void followsRandomEditsOfStrings_data();
    void followsRandomEditsOfStrings();
    void tellsOfChangedData();
    void followsAnotherModel();
    void survivesTheModel();
    void answersOthersWhileTheModelChanges_data();
    void answersOthersWhileTheModelChanges();
    void beginsAndEndsEachReset();
    void outlivesTheModel();
    void fetchesManyBatches();
    void takesChangedTextsThatAreToldLate();
    void takesAllTextsAsChanged();
    void countsOnNoAnnouncement();
    void readsAModelOnce();
    void forgetsWhatNobodyFollows();
    void keepsTheTextOfBothRolesOnce();
    void sharesTheStringsOfAList();
    void asksAListThatIsMore();
};

void tst_ContainsFilterModel::showsEveryRowAtFirst()
{
    ContainsFilterModel filter(nullptr);
    QCOMPARE(filter.rowCount(), 0);
    QCOMPARE(filter.columnCount(), 0);
    QVERIFY(!filter.mapFromSource({}).isValid());

    MovableList list;
    list.texts = QStringList{"Blue", "Value"};
    filter.setSourceModel(&list);
    QCOMPARE(textsOf(filter), list.texts);
    QCOMPARE(list.reads, 2); // by textsOf(); without a needle the filter reads no text
}

void tst_ContainsFilterModel::keepsTheRowsThatContainTheText()
{
    QStringListModel list({"Blue", "Red", "Value", "blues"});
    ContainsFilterModel filter(nullptr);
    const QAbstractItemModelTester tester(&filter, QAbstractItemModelTester::FailureReportingMode::QtTest);
    filter.setSourceModel(&list);

    filter.setContainedText(QStringLiteral("LUE"), Qt::CaseInsensitive);
    QCOMPARE(textsOf(filter), (QStringList{"Blue", "Value", "blues"}));
    filter.setContainedText(QStringLiteral("Blue"), Qt::CaseSensitive);
    QCOMPARE(textsOf(filter), (QStringList{"Blue"}));
    filter.setContainedText(QStringLiteral("nothing like it"), Qt::CaseSensitive);
    QCOMPARE(filter.rowCount(), 0);
    QVERIFY(!filter.hasChildren());
    filter.setContainedText(QString(), Qt::CaseSensitive);
    QCOMPARE(textsOf(filter), list.stringList());
}

void tst_ContainsFilterModel::mapsToTheModelAndBack()
{
    QStringListModel list({"Blue", "Red", "Value"});
    ContainsFilterModel filter(nullptr);
    filter.setSourceModel(&list);
    filter.setContainedText(QStringLiteral("lue"), Qt::CaseInsensitive);

    QCOMPARE(filter.mapToSource(filter.index(1, 0)), list.index(2));
    QCOMPARE(filter.mapFromSource(list.index(2)), filter.index(1, 0));
    QVERIFY(!filter.mapFromSource(list.index(1)).isValid());
    QVERIFY(!filter.mapToSource({}).isValid());
    QVERIFY(!filter.index(2, 0).isValid());
    QVERIFY(filter.setData(filter.index(1, 0), QStringLiteral("Blue, too")));
    QCOMPARE(list.stringList().last(), QStringLiteral("Blue, too"));
}

void tst_ContainsFilterModel::narrowsAndWidens()
{
    RandomTexts random(7);
    QStringList texts;
    for (int i = 0; i < 500; ++i)
        texts += random.text(30);
    QStringListModel list(texts);
    ContainsFilterModel filter(nullptr);
    filter.setSourceModel(&list);

    QString typed;
    for (int key = 0; key < 1000; ++key) {
        const int kind = random.upTo(5);
        if (kind == 0)
            typed.chop(1);
        else if (kind == 1 && typed.size() > 5)
            typed = random.text(2);
        else if (kind == 2)
            typed.insert(random.upTo(typed.size() + 1), random.text(1));
        else
            typed += random.text(1);
        const auto caseSensitivity = random.upTo(8) == 0 ? Qt::CaseSensitive : Qt::CaseInsensitive;
        filter.setContainedText(typed, caseSensitivity);
        QCOMPARE(textsOf(filter), plainly(list, typed, caseSensitivity));
    }
}

void tst_ContainsFilterModel::looksAtOtherColumnsAndRoles()
{
    QStandardItemModel items(3, 2);
    const QStringList shown = {"one blue", "two red", "three blue"};
    for (int row = 0; row < 3; ++row) {
        items.setItem(row, 1, new QStandardItem(shown.at(row)));
        items.item(row, 1)->setData(100 + row, Qt::UserRole);
    }
    ContainsFilterModel filter(nullptr);
    filter.setSourceModel(&items);
    filter.setTextColumn(1, Qt::EditRole);
    filter.setContainedText(QStringLiteral("blue"), Qt::CaseInsensitive);
    QCOMPARE(textsOf(filter, 1), (QStringList{"one blue", "three blue"}));

    // Numbers are converted to text before they are searched.
    filter.setTextColumn(1, Qt::UserRole);
    filter.setContainedText(QStringLiteral("02"), Qt::CaseInsensitive);
    QCOMPARE(textsOf(filter, 1), (QStringList{"three blue"}));

    items.item(0, 1)->setData(902, Qt::UserRole);
    QCOMPARE(textsOf(filter, 1), (QStringList{"one blue", "three blue"}));
    items.item(0, 1)->setText(QStringLiteral("no longer 02"));
    items.item(0, 1)->setData(1, Qt::UserRole);
    QCOMPARE(textsOf(filter, 1), (QStringList{"three blue"}));

    // All texts of a column that does not exist are empty.
    filter.setTextColumn(5, Qt::EditRole);
    filter.setContainedText(QStringLiteral("b"), Qt::CaseInsensitive);
    QCOMPARE(filter.rowCount(), 0);
}

void tst_ContainsFilterModel::keepsAllColumns()
{
    QStandardItemModel items(2, 2);
    items.setItem(0, 0, new QStandardItem(QStringLiteral("Red")));
    items.setItem(1, 0, new QStandardItem(QStringLiteral("Blue")));
    items.setItem(1, 1, new QStandardItem(QStringLiteral("Sky")));
    ContainsFilterModel filter(nullptr);
    filter.setSourceModel(&items);
    filter.setContainedText(QStringLiteral("lue"), Qt::CaseInsensitive);
    QCOMPARE(textsOf(filter, 1), (QStringList{"Sky"}));

    items.insertColumn(0);
    QCOMPARE(filter.columnCount(), 3);
    QCOMPARE(filter.rowCount(), 0); // the first column is now the new, empty one
    items.removeColumn(0);
    QCOMPARE(textsOf(filter, 1), (QStringList{"Sky"}));
}

void tst_ContainsFilterModel::leavesChildrenOut()
{
    QStandardItemModel items;
    items.appendRow(new QStandardItem(QStringLiteral("Blue")));
    items.appendRow(new QStandardItem(QStringLiteral("Red")));
    ContainsFilterModel filter(nullptr);
    const QAbstractItemModelTester tester(&filter, QAbstractItemModelTester::FailureReportingMode::QtTest);
    filter.setSourceModel(&items);
    filter.setContainedText(QStringLiteral("e"), Qt::CaseInsensitive);
    items.item(0)->appendRow(new QStandardItem(QStringLiteral("Azure")));
    QCOMPARE(textsOf(filter), (QStringList{"Blue", "Red"}));
    QCOMPARE(filter.rowCount(filter.index(0, 0)), 0);
    QVERIFY(!filter.mapFromSource(items.item(0)->child(0)->index()).isValid());
    items.item(0)->child(0)->setText(QStringLiteral("Steel"));
    items.item(0)->removeRow(0);
    QCOMPARE(textsOf(filter), (QStringList{"Blue", "Red"}));
}

void tst_ContainsFilterModel::followsRandomEdits_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("unfiltered") << "";
    QTest::newRow("one letter") << "k";
    QTest::newRow("two letters") << "ab";
    QTest::newRow("in few") << "b1";
}

void tst_ContainsFilterModel::followsRandomEdits()
{
    QFETCH(QString, text);

    RandomTexts random(unsigned(text.size()) + 1);
    MovableList list;
    for (int i = 0; i < 200; ++i)
        list.texts += random.text(12);
    compareUnderRandomEdits(list, text, random);
}

void tst_ContainsFilterModel::followsRandomEditsOfStrings_data()
{
    followsRandomEdits_data();
}

void tst_ContainsFilterModel::followsRandomEditsOfStrings()
{
    QFETCH(QString, text);

    RandomTexts random(unsigned(text.size()) + 20);
    QStringList texts;
    for (int i = 0; i < 200; ++i)
        texts += random.text(12);
    QStringListModel list(texts);
    compareUnderRandomEdits(list, text, random);
}

void tst_ContainsFilterModel::tellsOfChangedData()
{
    QStringListModel list({"Blue", "Red", "Value"});
    ContainsFilterModel filter(nullptr);
    filter.setSourceModel(&list);
    filter.setContainedText(QStringLiteral("lue"), Qt::CaseInsensitive);
    const QSignalSpy changed(&filter, &QAbstractItemModel::dataChanged);
    const QSignalSpy reset(&filter, &QAbstractItemModel::modelReset);

    list.setData(list.index(2), QStringLiteral("lue as ever"));
    QCOMPARE(reset.count(), 0);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.at(0).at(0).toModelIndex(), filter.index(1, 0));
    list.setData(list.index(1), QStringLiteral("Reddish"));
    QCOMPARE(changed.count(), 1);
    QCOMPARE(reset.count(), 0);
    list.setData(list.index(1), QStringLiteral("Bluish, not lue"));
    QCOMPARE(reset.count(), 1);
    QCOMPARE(filter.rowCount(), 3);
}

void tst_ContainsFilterModel::followsAnotherModel()
{
    QStringListModel first({"Blue"});
    QStringListModel second({"Value", "Red"});
    ContainsFilterModel filter(nullptr);
    filter.setSourceModel(&first);
    filter.setContainedText(QStringLiteral("lue"), Qt::CaseInsensitive);
    filter.setSourceModel(&second);
    filter.setContainedText(QStringLiteral("lue"), Qt::CaseInsensitive);
    QCOMPARE(textsOf(filter), (QStringList{"Value"}));
    const QSignalSpy reset(&filter, &QAbstractItemModel::modelReset);
    first.setStringList({"Blue", "Clue"});
    QCOMPARE(reset.count(), 0);
    second.setStringList({"Glue"});
    QCOMPARE(textsOf(filter), (QStringList{"Glue"}));
    filter.setSourceModel(nullptr);
    QCOMPARE(filter.rowCount(), 0);
    second.setStringList({"Flue"});
}

void tst_ContainsFilterModel::survivesTheModel()
{
    auto list = std::make_unique<QStringListModel>(QStringList{"Blue"});
    ContainsFilterModel filter(nullptr);
    filter.setSourceModel(list.get());
    filter.setContainedText(QStringLiteral("lue"), Qt::CaseInsensitive);
    const QSignalSpy reset(&filter, &QAbstractItemModel::modelReset);
    list.reset();
    QCOMPARE(reset.count(), 1);
    QCOMPARE(filter.rowCount(), 0);
    filter.setContainedText(QStringLiteral("l"), Qt::CaseInsensitive);
    filter.setTextColumn(1, Qt::DisplayRole);
    QCOMPARE(filter.rowCount(), 0);
}

namespace {

const char* signalNamed(const QByteArray& name)
{
    static const std::map<QByteArray, const char*> signalsByName = {
        {"rows about to come", SIGNAL(rowsAboutToBeInserted(QModelIndex, int, int))},
        {"rows have come", SIGNAL(rowsInserted(QModelIndex, int, int))},
        {"rows are about to go", SIGNAL(rowsAboutToBeRemoved(QModelIndex, int, int))},
        {"rows have gone", SIGNAL(rowsRemoved(QModelIndex, int, int))},
        {"rows are about to move", SIGNAL(rowsAboutToBeMoved(QModelIndex, int, int, QModelIndex, int))},
        {"rows have moved", SIGNAL(rowsMoved(QModelIndex, int, int, QModelIndex, int))},
        {"the order is about to change", SIGNAL(layoutAboutToBeChanged())},
        {"the order has changed", SIGNAL(layoutChanged())},
        {"all is about to change", SIGNAL(modelAboutToBeReset())},
        {"all has changed", SIGNAL(modelReset())},
        {"a text has changed", SIGNAL(dataChanged(QModelIndex, QModelIndex, QVector<int>))},
    };
    return signalsByName.at(name);
}

/// Makes one change of each kind. Each of them changes or moves the rows that contain "lue".
void changeInEachWay(MovableList& list)
{
    list.insert(0, {"Glue", "Sand"});
    list.remove(0, 1);
    list.move(0, 2, 3);
    list.reverse();
    list.rewrite(0, {"Clue"}, {});
    list.replaceAll({"Blue", "Red", "Value", "Flue"});
}

/// Reads all rows of `filter`, which a view may do at any time. Rows that no longer exist must have no data.
void walkOver(const ContainsFilterModel& filter)
{
    for (int row = 0; row < filter.rowCount(); ++row) {
        const QModelIndex index = filter.index(row, 0);
        QVERIFY(index.isValid());
        const QModelIndex source = filter.mapToSource(index);
        QVERIFY(!source.isValid() || source.row() < filter.sourceModel()->rowCount());
        QVERIFY(!source.isValid() || source.data().toString().contains(QLatin1String("lue")));
        QCOMPARE(index.data(), source.data());
        if (source.isValid())
            QVERIFY(index.flags().testFlag(Qt::ItemIsEnabled));
    }
    QVERIFY(!filter.index(filter.rowCount(), 0).isValid());
}

} // namespace

void tst_ContainsFilterModel::answersOthersWhileTheModelChanges_data()
{
    QTest::addColumn<bool>("types");
    QTest::addColumn<QByteArray>("signal");
    for (const char* signal :
         {"rows about to come", "rows have come", "rows are about to go", "rows have gone", "rows are about to move",
          "rows have moved", "the order is about to change", "the order has changed", "all is about to change",
          "all has changed", "a text has changed"}) {
        QTest::newRow(qPrintable(QStringLiteral("looks, %1").arg(signal))) << false << QByteArray(signal);
        QTest::newRow(qPrintable(QStringLiteral("types, %1").arg(signal))) << true << QByteArray(signal);
    }
}

void tst_ContainsFilterModel::answersOthersWhileTheModelChanges()
{
    QFETCH(bool, types);
    QFETCH(QByteArray, signal);

    MovableList list;
    list.texts = QStringList{"Blue", "Red", "Value", "Sky"};
    EarlyListener listener(list, signalNamed(signal));
    ContainsFilterModel filter(nullptr);
    const QAbstractItemModelTester tester(&filter, QAbstractItemModelTester::FailureReportingMode::QtTest);
    filter.setSourceModel(&list);
    filter.setContainedText(QStringLiteral("lue"), Qt::CaseInsensitive);
    listener.action = [&] {
        walkOver(filter);
        if (types && signal != "a text has changed") {
            filter.setContainedText(QStringLiteral("l"), Qt::CaseInsensitive);
            QCOMPARE(textsOf(filter), plainly(list, QStringLiteral("l"), Qt::CaseInsensitive));
            filter.setContainedText(QStringLiteral("lue"), Qt::CaseInsensitive);
            QCOMPARE(textsOf(filter), plainly(list, QStringLiteral("lue"), Qt::CaseInsensitive));
        }
    };
    changeInEachWay(list);
    QVERIFY(!listener.action);
    QCOMPARE(textsOf(filter), (QStringList{"Blue", "Value", "Flue"}));
}

void tst_ContainsFilterModel::beginsAndEndsEachReset()
{
    MovableList list;
    list.texts = QStringList{"Blue", "Red", "Value", "Sky"};
    EarlyListener listener(list, SIGNAL(rowsInserted(QModelIndex, int, int)));
    ContainsFilterModel filter(nullptr);
    filter.setSourceModel(&list);
    filter.setContainedText(QStringLiteral("lue"), Qt::CaseInsensitive);
    int open = 0;
    connect(&filter, &QAbstractItemModel::modelAboutToBeReset, this, [&] { ++open; });
    connect(&filter, &QAbstractItemModel::modelReset, this, [&] { QVERIFY(--open >= 0); });
    const QSignalSpy resets(&filter, &QAbstractItemModel::modelReset);
    listener.action = [&] {
        QCOMPARE(open, 1);
        list.remove(0, 1); // other listeners receive this removal before the insertion
        filter.setContainedText(QStringLiteral("alue"), Qt::CaseInsensitive);
        filter.setTextColumn(0, Qt::DisplayRole);
    };
    changeInEachWay(list);
    QCOMPARE(open, 0);
    QVERIFY(!resets.isEmpty());
    filter.setContainedText(QStringLiteral("lue"), Qt::CaseInsensitive);
    QCOMPARE(textsOf(filter), plainly(list, QStringLiteral("lue"), Qt::CaseInsensitive));
}

void tst_ContainsFilterModel::outlivesTheModel()
{
    auto list = std::make_unique<MovableList>();
    list->texts = QStringList{"Blue", "Red", "Value"};
    ContainsFilterModel filter(nullptr);
    filter.setSourceModel(list.get());
    filter.setContainedText(QStringLiteral("lue"), Qt::CaseInsensitive);
    const QPersistentModelIndex shown = filter.index(0, 0);
    QVERIFY(shown.isValid());
    const QSignalSpy resets(&filter, &QAbstractItemModel::modelReset);
    list.reset();
    QVERIFY(!resets.isEmpty());
    QVERIFY(!shown.isValid());
    QVERIFY(!filter.sourceModel());
    filter.setContainedText(QStringLiteral("l"), Qt::CaseInsensitive);
    filter.setTextColumn(1, Qt::EditRole);
    QCOMPARE(filter.rowCount(), 0);
    QCOMPARE(filter.columnCount(), 0);
    QVERIFY(!filter.canFetchMore({}));
}

void tst_ContainsFilterModel::fetchesManyBatches()
{
    QStringList texts;
    for (int row = 0; row < 30000; ++row)
        texts += QString::number(row);
    LazyList list(texts, 1);
    ContainsFilterModel filter(nullptr);
    connect(&filter, &QAbstractItemModel::modelReset, this, [&] { // QCompleter does the same
        if (filter.canFetchMore({}))
            filter.fetchMore({});
    });
    filter.setSourceModel(&list);
    filter.setContainedText(QStringLiteral("2999"), Qt::CaseInsensitive);
    QCOMPARE(filter.rowCount(), 13); // 2999, 12999, 22999, and 29990 to 29999
}

void tst_ContainsFilterModel::takesChangedTextsThatAreToldLate()
{
    MovableList list;
    list.texts = QStringList{"Blue", "Red", "Value", "Sky", "Sand"};
    EarlyListener listener(list, SIGNAL(dataChanged(QModelIndex, QModelIndex, QVector<int>)));
    ContainsFilterModel filter(nullptr);
    filter.setSourceModel(&list);
    filter.setContainedText(QStringLiteral("lue"), Qt::CaseInsensitive);

    listener.action = [&] { list.insert(0, {"Grey", "Lue"}); };
    list.rewrite(3, {"Clue"}, {});
    QCOMPARE(textsOf(filter), (QStringList{"Lue", "Blue", "Value", "Clue"}));
    listener.action = [&] { list.remove(0, 3); };
    list.rewrite(6, {"Glue"}, {});
    QCOMPARE(textsOf(filter), (QStringList{"Value", "Clue", "Glue"}));
    listener.action = [&] { list.move(0, 2, 4); };
    list.rewrite(0, {"Flue"}, {});
    QCOMPARE(textsOf(filter), plainly(list, QStringLiteral("lue"), Qt::CaseInsensitive));
    QCOMPARE(filter.rowCount(), 4);
}

void tst_ContainsFilterModel::takesAllTextsAsChanged()
{
    MovableList list;
    list.texts = QStringList{"Blue", "Red"};
    ContainsFilterModel filter(nullptr);
    filter.setSourceModel(&list);
    filter.setContainedText(QStringLiteral("lue"), Qt::CaseInsensitive);
    list.texts = QStringList{"Sky", "Clue"};
    Q_EMIT list.dataChanged({}, {});
    QCOMPARE(textsOf(filter), (QStringList{"Clue"}));
}

void tst_ContainsFilterModel::countsOnNoAnnouncement()
{
    MovableList list;
    list.texts = QStringList{"Blue", "Red"};
    std::unique_ptr<ContainsFilterModel> filter;
    EarlyListener listener(list, SIGNAL(rowsAboutToBeInserted(QModelIndex, int, int)));
    listener.action = [&] { // a filter that is created during a change only receives the signal at its end
        filter = std::make_unique<ContainsFilterModel>(nullptr);
        filter->setSourceModel(&list);
        filter->setContainedText(QStringLiteral("lue"), Qt::CaseInsensitive);
        QCOMPARE(filter->rowCount(), 1);
    };
    list.insert(0, {"Clue", "Glue"});
    QCOMPARE(textsOf(*filter), (QStringList{"Clue", "Glue", "Blue"}));
}

void tst_ContainsFilterModel::readsAModelOnce()
{
    MovableList list;
    list.texts = QStringList{"Blue", "Red", "Value"};
    for (int box = 0; box < 3; ++box) {
        ContainsFilterModel filter(nullptr);
        filter.setSourceModel(&list);
        filter.setContainedText(QStringLiteral("l"), Qt::CaseInsensitive);
        filter.setContainedText(QStringLiteral("lu"), Qt::CaseSensitive);
        QCOMPARE(filter.rowCount(), 2);
    }
    QCOMPARE(list.reads, 3);
}

void tst_ContainsFilterModel::forgetsWhatNobodyFollows()
{
    MovableList list;
    list.texts = QStringList{"Blue", "Red"};
    ModelTexts& texts = ModelTexts::of(list, 0, Qt::EditRole);
    QCOMPARE(texts.texts(), list.texts);
    list.insert(0, {"Value"});
    list.rewrite(0, {"Values"}, {});
    list.replaceAll({"Grey"});
    QCOMPARE(list.reads, 2);
    QCOMPARE(&ModelTexts::of(list, 0, Qt::EditRole), &texts);
    QCOMPARE(texts.texts(), list.texts);
    QCOMPARE(list.reads, 3);
}

void tst_ContainsFilterModel::keepsTheTextOfBothRolesOnce()
{
    /// A list model that creates each text anew.
    class Computed : public MovableList
    {
    public:
        QVariant data(const QModelIndex& index, int role) const override
        {
            return role == Qt::EditRole || (role == Qt::DisplayRole && index.row() == 0)
                       ? QVariant(QStringLiteral("Row %1").arg(index.row()))
                       : QVariant(QStringLiteral("Shown"));
        }
    };
    Computed list;
    list.texts = QStringList{"", ""};
    const QStringList edited = ModelTexts::of(list, 0, Qt::EditRole).texts();
    const QStringList shown = ModelTexts::of(list, 0, Qt::DisplayRole).texts();
    QVERIFY(shown.at(0).isSharedWith(edited.at(0)));
    QCOMPARE(edited.at(1), QStringLiteral("Row 1"));
    QCOMPARE(shown.at(1), QStringLiteral("Shown"));
}

void tst_ContainsFilterModel::sharesTheStringsOfAList()
{
    QStringListModel list({"Blue", "Red"});
    for (const int role : {Qt::EditRole, Qt::DisplayRole})
        QVERIFY(ModelTexts::of(list, 0, role).texts().isSharedWith(list.stringList()));
    QCOMPARE(ModelTexts::of(list, 0, Qt::ToolTipRole).texts(), (QStringList{"", ""}));
    QCOMPARE(ModelTexts::of(list, 1, Qt::EditRole).texts(), (QStringList{"", ""}));

    // The list is not shared again after an edit, because the model would have to copy it for the next edit.
    ModelTexts& texts = ModelTexts::of(list, 0, Qt::EditRole);
    const QSignalSpy changed(&texts, &ModelTexts::changed);
    list.setData(list.index(1), QStringLiteral("Green"));
    QCOMPARE(changed.count(), 1);
    QCOMPARE(texts.texts(), list.stringList());
    QVERIFY(!texts.texts().isSharedWith(list.stringList()));
    list.insertRow(1);
    QCOMPARE(texts.texts(), list.stringList());
    QVERIFY(!texts.texts().isSharedWith(list.stringList()));
}

void tst_ContainsFilterModel::asksAListThatIsMore()
{
    class Numbered : public QStringListModel
    {
    public:
        using QStringListModel::QStringListModel;
        QVariant data(const QModelIndex& index, int role) const override
        {
            return QStringLiteral("%1 %2").arg(index.row()).arg(QStringListModel::data(index, role).toString());
        }
    };
    Numbered list(QStringList{"Blue", "Red"});
    QCOMPARE(ModelTexts::of(list, 0, Qt::EditRole).texts(), (QStringList{"0 Blue", "1 Red"}));
}

CORE_TEST_MAIN(tst_ContainsFilterModel)

#include "tst_ContainsFilterModel.moc"
