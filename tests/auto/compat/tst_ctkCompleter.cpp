#include "compat/ctkCompleter.h"

#include "../textsearch/RandomTexts.h"
#include "TestHome.h"
#include "modelTexts.h"

#include <QAbstractItemView>
#include <QAbstractProxyModel>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QSignalSpy>
#include <QStandardItemModel>
#include <QStringListModel>
#include <QTest>

#include <functional>
#include <memory>
#include <utility>

static_assert(ctkCompleter::FilterContains == 1, "the number that callers may have stored");

namespace {

const QStringList colours = {"Blue", "Red", "Value", "Light Blue", "bluish"};

/// Returns enough texts for the library's own search to be used. Every fifth one contains "Light Blue".
QStringList manyTexts()
{
    QStringList texts;
    for (int row = 0; row < 1500; ++row)
        texts += colours.at(row % colours.size()) + QStringLiteral(" %1").arg(row);
    return texts;
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
    void survivesTheModelWhosePopupIsOpen();
    void takesSettersOfQCompleter();
    void takesAModelThroughQCompleter();
    void letsAnOverrideSplit();
    void leavesTheListWhenSplitIsAskedFor();
    void setsFilterModes();
    void keepsTheModelThatIsItsOwn();
    void takesAnotherModelWhileThePopupIsOpen();
    void letsSlotsChangeTheModel_data();
    void letsSlotsChangeTheModel();
    void isUsedWhileTheModelGoes_data();
    void isUsedWhileTheModelGoes();
    void isAskedAgainWhileItFilters();
    void keepsLongListsWhole();
    void worksInAComboBox();
    void startsAgain();
};

void tst_ctkCompleter::startsAsAQCompleter()
{
    const ctkCompleter empty;
    QVERIFY(!empty.sourceModel());
    QCOMPARE(empty.modelFiltering(), ctkCompleter::FilterStartsWith);
    QCOMPARE(completionsOf(empty), QStringList());

    ctkCompleter completer(colours);
    QCOMPARE(completionsOf(completer, QStringLiteral("B")), (QStringList{"Blue"}));
    completer.setCaseSensitivity(Qt::CaseInsensitive);
    QCOMPARE(completionsOf(completer, QStringLiteral("B")), (QStringList{"Blue", "bluish"}));
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
    QCOMPARE(completionsOf(completer, prefix), expected);
    QCOMPARE(completer.completionCount(), expected.size());
    QCOMPARE(completer.currentRow(), expected.isEmpty() ? -1 : 0);
    QCOMPARE(completer.currentCompletion(), expected.value(0));
    QCOMPARE(completer.completionPrefix(), prefix);
}

void tst_ctkCompleter::completesLikeQCompleter()
{
    RandomTexts random(3);
    for (int round = 0; round < 20; ++round) {
        QStringList texts;
        for (int i = 0; i < (round % 4 == 0 ? 100 : 1100); ++i)
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
            QCOMPARE(completionsOf(ours, typed), completionsOf(peer, typed));
            const int row = random.upTo(texts.size());
            model.setData(model.index(row), random.text(30));
            QCOMPARE(completionsOf(ours), completionsOf(peer));
            model.removeRows(row, 1);
            QCOMPARE(completionsOf(ours), completionsOf(peer));
            model.insertRows(row, 1);
            model.setData(model.index(row), random.text(30));
            QCOMPARE(completionsOf(ours), completionsOf(peer));
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
    QVERIFY(shown);
    QCOMPARE(shown->mapToSource(completer.currentIndex()), model.index(3));
    QCOMPARE(completer.model(), &model);
    // With a pointer to QCompleter only, as a combo box has, the model is the source model of QCompleter::model().
    const auto* given = qobject_cast<QAbstractProxyModel*>(static_cast<QCompleter&>(completer).model());
    QVERIFY(given);
    QCOMPARE(given->sourceModel(), &model);
    QCOMPARE(given->mapToSource(shown->mapToSource(completer.currentIndex())), model.index(3));

    model.setStringList(manyTexts());
    completer.setCompletionPrefix(QStringLiteral("Light Blue 1003"));
    QCOMPARE(completer.completionCount(), 1);
    QCOMPARE(shown->mapToSource(completer.currentIndex()), model.index(1003));
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
    QCOMPARE(completionsOf(completer, QStringLiteral("alu")), colours);
    QCOMPARE(completer.currentCompletion(), QStringLiteral("Value"));
    completer.setCompletionMode(QCompleter::PopupCompletion);
    QCOMPARE(completionsOf(completer, QStringLiteral("alu")), (QStringList{"Value"}));
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
    QCOMPARE(completionsOf(completer, QStringLiteral("lue")), QStringList());
    completer.setCompletionColumn(1);
    QCOMPARE(completionsOf(completer, QStringLiteral("blue")), (QStringList{"Blue"}));
    completer.setCompletionRole(Qt::UserRole);
    QCOMPARE(completionsOf(completer, QStringLiteral("blu")), (QStringList{"Red"}));
    QCOMPARE(completer.currentCompletion(), QStringLiteral("like blue"));
}

void tst_ctkCompleter::followsTheModel()
{
    QStringListModel model(colours);
    ctkCompleter completer(&model);
    completer.setModelFiltering(ctkCompleter::FilterContains);
    QCOMPARE(completionsOf(completer, QStringLiteral("lue")), (QStringList{"Blue", "Value", "Light Blue"}));
    model.setStringList({"Clue"});
    QCOMPARE(completionsOf(completer), (QStringList{"Clue"}));
    model.insertRows(0, 1);
    model.setData(model.index(0), QStringLiteral("Flue"));
    QCOMPARE(completionsOf(completer), (QStringList{"Flue", "Clue"}));
    model.sort(0);
    QCOMPARE(completionsOf(completer), (QStringList{"Clue", "Flue"}));
    model.removeRow(0);
    QCOMPARE(completionsOf(completer), (QStringList{"Flue"}));
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
    QCOMPARE(completionsOf(completer), (QStringList{"Glue"}));
    completer.setModel(nullptr);
    QCOMPARE(completionsOf(completer), QStringList());
}

void tst_ctkCompleter::deletesItsOwnModelOnly()
{
    ctkCompleter completer(colours);
    const QPointer<QAbstractItemModel> own(completer.sourceModel());
    QStringListModel other(colours);
    completer.setModel(&other);
    QVERIFY(!own);
    QCOMPARE(completionsOf(completer, QStringLiteral("R")), (QStringList{"Red"}));
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
    QCOMPARE(completionsOf(*completer), QStringList());
    QCOMPARE(completionsOf(*completer, QStringLiteral("e")), QStringList());
    completer->popup()->hide();
}

namespace {

/// A line edit with a completer over a long list.
struct Editor
{
    explicit Editor(const QStringList& texts = manyTexts())
        : model(std::make_unique<QStringListModel>(texts))
        , completer(new ctkCompleter(model.get(), &edit))
    {
        completer->setModelFiltering(ctkCompleter::FilterContains);
        edit.setCompleter(completer);
        edit.show();
    }

    bool type(const QString& text)
    {
        if (!QTest::qWaitForWindowActive(&edit))
            return false;
        QTest::keyClicks(&edit, text);
        return QTest::qWaitFor([this] { return completer->popup()->isVisible(); });
    }

    std::unique_ptr<QStringListModel> model;
    QLineEdit edit;
    QPointer<ctkCompleter> completer;
};

} // namespace

void tst_ctkCompleter::survivesTheModelWhosePopupIsOpen()
{
    Editor editor;
    QVERIFY(editor.type(QStringLiteral("lue")));
    QCOMPARE(editor.completer->completionCount(), 900);
    editor.model.reset();
    QVERIFY(!editor.completer->model());
    QCOMPARE(completionsOf(*editor.completer), QStringList());
    QTest::keyClick(editor.completer->popup(), Qt::Key_Down);
    QTest::keyClick(editor.completer->popup(), Qt::Key_Backspace);
    QVERIFY(!editor.completer->popup()->isVisible());
    QStringListModel other(manyTexts());
    editor.completer->setModel(&other);
    QVERIFY(editor.type(QStringLiteral("e 7")));
    QCOMPARE(editor.completer->completionCount(), completionsOf(*editor.completer).size());
}

/// Qt 6's combo box sets the model in this way.
void tst_ctkCompleter::takesAModelThroughQCompleter()
{
    QStringListModel first(manyTexts());
    ctkCompleter completer(&first);
    completer.setModelFiltering(ctkCompleter::FilterContains);
    QCOMPARE(completionsOf(completer, QStringLiteral("Light")).size(), 300);

    int uses = 0;
    auto second = std::make_unique<QStringListModel>(manyTexts().mid(0, 1200));
    // Connected before the completer has the model, so that this slot runs before the completer's.
    connect(second.get(), &QObject::destroyed, this, [&] {
        ++uses;
        completer.setCompletionPrefix(QStringLiteral("Blue"));
    });
    static_cast<QCompleter&>(completer).setModel(second.get());
    QCOMPARE(completer.completionCount(), 240); // the prefix is still "Light"
    QCOMPARE(completer.model(), second.get());
    QCOMPARE(completionsOf(completer, QStringLiteral("ght Bl")).size(), 240);
    second.reset();
    QCOMPARE(uses, 1);
    QCOMPARE(completer.completionCount(), 0);
}

void tst_ctkCompleter::takesSettersOfQCompleter()
{
    const auto model = std::make_unique<QStandardItemModel>(0, 2);
    for (const QString& text : manyTexts())
        model->appendRow({new QStandardItem(text), new QStandardItem(QStringLiteral("other ") + text)});
    ctkCompleter completer(model.get());
    QCompleter& base = completer;
    completer.setModelFiltering(ctkCompleter::FilterContains);
    QCOMPARE(completionsOf(completer, QStringLiteral("other")), QStringList());
    QCOMPARE(completionsOf(completer, QStringLiteral("Light")).size(), 300);
    base.setCompletionColumn(1);
    QCOMPARE(completer.completionCount(), 300);
    base.setCompletionPrefix(QStringLiteral("other"));
    QCOMPARE(completer.completionCount(), 1500);
    base.setCompletionPrefix(QStringLiteral("Light"));
    base.setCompletionMode(QCompleter::UnfilteredPopupCompletion);
    QCOMPARE(completer.completionModel()->rowCount(), 1500);
    QCOMPARE(completer.currentCompletion(), QStringLiteral("other Light Blue 3"));
    base.setCompletionMode(QCompleter::InlineCompletion);
    base.setCompletionPrefix(QStringLiteral("Light"));
    QCOMPARE(completer.currentCompletion(), QString());
    QStringListModel list(manyTexts());
    base.setModel(&list);
    base.setCompletionColumn(0);
    QCOMPARE(completer.model(), &list);
    QCOMPARE(completer.currentCompletion(), QStringLiteral("Light Blue 3"));
}

namespace {

/// A completer that optionally splits paths at blanks without calling the base class.
class SplittingCompleter : public ctkCompleter
{
public:
    using ctkCompleter::ctkCompleter;
    QStringList splitPath(const QString& path) const override
    {
        return splits ? QStringList{path.section(QLatin1Char('+'), -1)} : ctkCompleter::splitPath(path);
    }
    bool splits = false;
};

} // namespace

void tst_ctkCompleter::letsAnOverrideSplit()
{
    SplittingCompleter completer(manyTexts());
    completer.setModelFiltering(ctkCompleter::FilterContains);
    QCOMPARE(completionsOf(completer, QStringLiteral("Red+Light")), QStringList());
    completer.splits = true;
    QCOMPARE(completionsOf(completer, QStringLiteral("Red+Light")).size(), 300);
    completer.splits = false;
    QCOMPARE(completionsOf(completer, QStringLiteral("Light Blue 3")).first(), QStringLiteral("Light Blue 3"));
    completer.splits = true;
    QCOMPARE(completionsOf(completer, QStringLiteral("Red+Value")).size(), 300);
    QCOMPARE(completionsOf(completer, QStringLiteral("Red+Red")).size(), 300);
}

void tst_ctkCompleter::leavesTheListWhenSplitIsAskedFor()
{
    ctkCompleter completer(manyTexts());
    QCOMPARE(completer.splitPath(QStringLiteral("any")), QStringList{QString()});
    completer.setModelFiltering(ctkCompleter::FilterContains);
    completer.setCompletionPrefix(QStringLiteral("Light"));
    const QStringList before = completionsOf(completer);
    completer.splitPath(QStringLiteral("Red"));
    QCOMPARE(completionsOf(completer), before);
    QCOMPARE(completer.completionPrefix(), QStringLiteral("Light"));
}

void tst_ctkCompleter::setsFilterModes()
{
    ctkCompleter completer(manyTexts());
    completer.setFilterMode(Qt::MatchEndsWith);
    QCOMPARE(completionsOf(completer, QStringLiteral(" 7")).size(), 1);
    completer.setModelFiltering(ctkCompleter::FilterContains);
    QCOMPARE(completer.filterMode(), Qt::MatchContains);
    QCOMPARE(completionsOf(completer, QStringLiteral(" 7")).size(), 111);
    completer.setModelFiltering(ctkCompleter::FilterStartsWith);
    QCOMPARE(completer.filterMode(), Qt::MatchEndsWith);
    QCOMPARE(completionsOf(completer, QStringLiteral(" 7")).size(), 1);

    completer.setModelFiltering(ctkCompleter::FilterContains);
    completer.setCompletionMode(QCompleter::InlineCompletion);
    QCOMPARE(completer.filterMode(), Qt::MatchContains);
    QTest::ignoreMessage(QtWarningMsg, "Unhandled QCompleter::filterMode flag is used.");
    completer.setFilterMode(Qt::MatchRecursive);
    QCOMPARE(completer.modelFiltering(), ctkCompleter::FilterContains);
    completer.setFilterMode(Qt::MatchStartsWith);
    QCOMPARE(completer.modelFiltering(), ctkCompleter::FilterStartsWith);
    QCOMPARE(completer.filterMode(), Qt::MatchStartsWith);
}

void tst_ctkCompleter::keepsTheModelThatIsItsOwn()
{
    ctkCompleter completer(manyTexts());
    completer.setModelFiltering(ctkCompleter::FilterContains);
    const QPointer<QAbstractItemModel> own(completer.model());
    QCOMPARE(own->QObject::parent(), &completer);
    completer.setModel(own);
    completer.setModelFiltering(ctkCompleter::FilterStartsWith);
    completer.setModelFiltering(ctkCompleter::FilterContains);
    QVERIFY(own);
    QCOMPARE(completionsOf(completer, QStringLiteral("Light")).size(), 300);
    completer.setModel(nullptr);
    QVERIFY(!own);
    QVERIFY(!completer.model());
    QCOMPARE(completionsOf(completer, QStringLiteral("Red")), QStringList());
}

void tst_ctkCompleter::takesAnotherModelWhileThePopupIsOpen()
{
    Editor editor;
    QVERIFY(editor.type(QStringLiteral("lue")));
    QStringListModel other({"Glue", "Sand"});
    editor.completer->setModel(&other);
    editor.model.reset();
    QVERIFY(!editor.completer->popup()->isVisible());
    QCOMPARE(completionsOf(*editor.completer), QStringList{"Glue"});
    QTest::keyClick(&editor.edit, Qt::Key_Backspace);
    QTRY_VERIFY(editor.completer->popup()->isVisible());
    editor.completer->setModelFiltering(ctkCompleter::FilterStartsWith);
    QVERIFY(editor.completer->popup()->isVisible());
    QTest::keyClick(editor.completer->popup(), Qt::Key_Down);
    QTest::keyClick(editor.completer->popup(), Qt::Key_Return);
    QCOMPARE(editor.edit.text(), QStringLiteral("Glue"));
}

using Change = std::function<void(Editor&)>;
Q_DECLARE_METATYPE(Change)

void tst_ctkCompleter::letsSlotsChangeTheModel_data()
{
    QTest::addColumn<Change>("change");

    QTest::newRow("other texts") << Change([](Editor& editor) { editor.model->setStringList({"Glue"}); });
    QTest::newRow("rows gone") << Change([](Editor& editor) { editor.model->removeRows(0, 1400); });
    QTest::newRow("no model") << Change([](Editor& editor) { editor.completer->setModel(nullptr); });
    QTest::newRow("model destroyed") << Change([](Editor& editor) { editor.model.reset(); });
    QTest::newRow("other filtering") << Change(
        [](Editor& editor) { editor.completer->setModelFiltering(ctkCompleter::FilterStartsWith); });
    QTest::newRow("completer on its way out") << Change([](Editor& editor) { editor.completer->deleteLater(); });
    QTest::newRow("other prefix") << Change(
        [](Editor& editor) { editor.completer->setCompletionPrefix(QStringLiteral("Red")); });
}

void tst_ctkCompleter::letsSlotsChangeTheModel()
{
    QFETCH(Change, change);

    for (const bool highlights : {true, false}) {
        Editor editor;
        int changes = 0;
        const auto run = [&](const QString& text) {
            if (text.isEmpty() || ++changes > 1)
                return;
            change(editor);
        };
        if (highlights)
            connect(editor.completer, QOverload<const QString&>::of(&QCompleter::highlighted), this, run);
        else
            connect(editor.completer, QOverload<const QString&>::of(&QCompleter::activated), this, run);
        QVERIFY(editor.type(QStringLiteral("ght")));
        QTest::keyClick(editor.completer->popup(), Qt::Key_Down);
        if (editor.completer->popup()->isVisible())
            QTest::keyClick(editor.completer->popup(), Qt::Key_Return);
        QVERIFY(changes >= 1);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QTest::keyClicks(&editor.edit, QStringLiteral("x"));
        QTest::keyClick(&editor.edit, Qt::Key_Backspace);
        if (editor.completer && editor.completer->popup())
            editor.completer->popup()->hide();
    }
}

void tst_ctkCompleter::isUsedWhileTheModelGoes_data()
{
    QTest::addColumn<Change>("use");

    QTest::newRow("parts") << Change([](Editor& editor) { editor.completer->splitPath(QStringLiteral("Red")); });
    // A combo box of a newer Qt does this while its model is being replaced.
    QTest::newRow("prefix") << Change(
        [](Editor& editor) { editor.completer->setCompletionPrefix(QStringLiteral("Red")); });
    QTest::newRow("completions") << Change([](Editor& editor) {
        const QAbstractItemModel& completions = *editor.completer->completionModel();
        QVERIFY(!completions.index(0, 0).data().isValid());
        QCOMPARE(completions.flags(completions.index(0, 0)), Qt::ItemFlags());
        QCOMPARE(completions.columnCount(), 0);
        QVERIFY(!completions.canFetchMore({}));
    });
    QTest::newRow("model") << Change([](Editor& editor) { editor.completer->setModel(nullptr); });
    QTest::newRow("filtering") << Change(
        [](Editor& editor) { editor.completer->setModelFiltering(ctkCompleter::FilterStartsWith); });
    QTest::newRow("mode") << Change(
        [](Editor& editor) { editor.completer->setCompletionMode(QCompleter::UnfilteredPopupCompletion); });
    QTest::newRow("case") << Change([](Editor& editor) { editor.completer->setCaseSensitivity(Qt::CaseInsensitive); });
}

void tst_ctkCompleter::isUsedWhileTheModelGoes()
{
    QFETCH(Change, use);

    Editor editor;
    editor.completer->setModel(nullptr);
    int uses = 0;
    // Connected before the completer has the model, so that this slot runs before the completer's.
    connect(editor.model.get(), &QObject::destroyed, this, [&] {
        ++uses;
        QVERIFY(!editor.completer->model());
        use(editor);
    });
    editor.completer->setModel(editor.model.get());
    QVERIFY(editor.type(QStringLiteral("lue")));
    editor.model.reset();
    QCOMPARE(uses, 1);
    QVERIFY(!editor.completer->model());
    QCOMPARE(completionsOf(*editor.completer), QStringList());
    QStringListModel other(manyTexts());
    editor.completer->setModel(&other);
    editor.completer->setModelFiltering(ctkCompleter::FilterContains);
    QCOMPARE(completionsOf(*editor.completer, QStringLiteral("Light")).size(),
             editor.completer->completionMode() == QCompleter::PopupCompletion ? 300 : 1500);
    editor.completer->popup()->hide();
}

void tst_ctkCompleter::isAskedAgainWhileItFilters()
{
    ctkCompleter completer(manyTexts());
    completer.setModelFiltering(ctkCompleter::FilterContains);
    bool asks = true;
    connect(completer.completionModel(), &QAbstractItemModel::modelReset, this, [&] {
        if (std::exchange(asks, false))
            completer.setCompletionPrefix(QStringLiteral("Light"));
    });
    completer.setCompletionPrefix(QStringLiteral("Red"));
    QCOMPARE(completer.completionPrefix(), QStringLiteral("Light"));
    QCOMPARE(completionsOf(completer).size(), 300);
    QCOMPARE(completer.currentCompletion(), QStringLiteral("Light Blue 3"));
    asks = true;
    qobject_cast<QStringListModel*>(completer.model())->setStringList(manyTexts() + manyTexts());
    QCOMPARE(completionsOf(completer).size(), 600);
}

void tst_ctkCompleter::keepsLongListsWhole()
{
    QStandardItemModel items;
    for (const QString& text : manyTexts())
        items.appendRow(new QStandardItem(text));
    ctkCompleter completer(&items);
    completer.setModelFiltering(ctkCompleter::FilterContains);
    QCOMPARE(completionsOf(completer, QStringLiteral("Light")).size(), 300);
    items.item(3)->setSelectable(false);
    QCOMPARE(completionsOf(completer).size(), 300);
    auto* const heading = new QStandardItem(QStringLiteral("Lights"));
    heading->setSelectable(false);
    items.insertRow(0, heading);
    QCOMPARE(completionsOf(completer, QStringLiteral("Light")).size(), 301);
}

void tst_ctkCompleter::worksInAComboBox()
{
    QStandardItemModel items;
    for (int row = 0; row < 1500; ++row)
        items.appendRow(new QStandardItem(colours.at(row % 5))); // equal texts: the right row must be selected
    QComboBox box;
    box.setEditable(true);
    box.setModel(&items);
    auto* const completer = new ctkCompleter(&items, &box);
    completer->setModelFiltering(ctkCompleter::FilterContains);
    box.setCompleter(completer);
    box.show();
    QVERIFY(QTest::qWaitForWindowActive(&box));
    box.lineEdit()->clear();
    QTest::keyClicks(box.lineEdit(), QStringLiteral("ght"));
    QTRY_VERIFY(completer->popup()->isVisible());
    for (int key = 0; key < 4; ++key)
        QTest::keyClick(completer->popup(), Qt::Key_Down);
    QTest::keyClick(completer->popup(), Qt::Key_Return);
    QCOMPARE(box.currentIndex(), 18);
}

void tst_ctkCompleter::startsAgain()
{
    Editor editor;
    for (int run = 0; run < 3; ++run) {
        editor.edit.clear();
        QVERIFY(editor.type(QStringLiteral("ght")));
        QCOMPARE(editor.completer->popup()->model()->rowCount(), 300);
        QTest::keyClick(editor.completer->popup(), Qt::Key_Down);
        QTest::keyClick(editor.completer->popup(), Qt::Key_Return);
        QCOMPARE(editor.edit.text(), QStringLiteral("Light Blue 3"));
    }
}

UI_TEST_MAIN(tst_ctkCompleter)

#include "tst_ctkCompleter.moc"
