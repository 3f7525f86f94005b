// Tests the completions while the model changes, also within slots that receive the change before the completer.

#include "EarlyListener.h"
#include "LazyList.h"
#include "TestHome.h"
#include "modelTexts.h"
#include "ui/qt/controls/ComboBoxAutoFilter.h"

#include <QAbstractItemView>
#include <QAbstractProxyModel>
#include <QApplication>
#include <QIdentityProxyModel>
#include <QLineEdit>
#include <QListView>
#include <QSortFilterProxyModel>
#include <QStandardItemModel>
#include <QStringListModel>
#include <QTest>

#include <functional>
#include <memory>
#include <vector>

using zelmar::ui::ComboBoxAutoFilter;

namespace {

const QStringList letters = {"Alpha", "Beta", "Gamma"};

/// A model and, if it is a proxy, its source model.
struct Models
{
    std::vector<std::unique_ptr<QAbstractItemModel>> owned;

    QAbstractItemModel& edited() const { return *owned.front(); }
    QAbstractItemModel& shown() const { return *owned.back(); }

    template <typename Proxy>
    Models& below()
    {
        auto proxy = std::make_unique<Proxy>();
        proxy->setSourceModel(owned.back().get());
        owned.push_back(std::move(proxy));
        return *this;
    }
};

Models makeStandard(const QStringList& texts)
{
    auto model = std::make_unique<QStandardItemModel>();
    for (const QString& text : texts)
        model->appendRow(new QStandardItem(text));
    Models models;
    models.owned.push_back(std::move(model));
    return models;
}

Models makeModels(const QString& kind, const QStringList& texts)
{
    Models models;
    if (kind == QLatin1String("string list"))
        models.owned.push_back(std::make_unique<QStringListModel>(texts));
    else
        models = makeStandard(texts);
    if (kind == QLatin1String("identity proxy"))
        models.below<QIdentityProxyModel>();
    if (kind == QLatin1String("sorted proxy"))
        models.below<QSortFilterProxyModel>().shown().sort(0);
    return models;
}

void addModelKinds()
{
    QTest::addColumn<QString>("kind");
    for (const char* kind : {"string list", "standard", "identity proxy", "sorted proxy"})
        QTest::newRow(kind) << kind;
}

void setUp(ComboBoxAutoFilter& box)
{
    box.setCompleterAttributes(true, QCompleter::PopupCompletion, Qt::CaseInsensitive, Qt::ElideRight,
                               Qt::MatchContains);
}

std::unique_ptr<ComboBoxAutoFilter> makeBox(QAbstractItemModel& model)
{
    auto box = std::make_unique<ComboBoxAutoFilter>(nullptr);
    box->setListModel(&model, true, QCompleter::PopupCompletion, Qt::CaseInsensitive, Qt::ElideRight,
                      Qt::MatchContains);
    return box;
}

QStringList completions(const ComboBoxAutoFilter& box)
{
    return completionsOf(*box.completer());
}

QStringList completions(const ComboBoxAutoFilter& box, const char* prefix)
{
    return completionsOf(*box.completer(), QString::fromUtf8(prefix));
}

/// Appends a row. If the model supports it, the row has its text when it is inserted.
void append(QAbstractItemModel& model, const QString& text)
{
    if (auto* const items = qobject_cast<QStandardItemModel*>(&model))
        return items->appendRow(new QStandardItem(text));
    const int row = model.rowCount();
    QVERIFY(model.insertRows(row, 1));
    QVERIFY(model.setData(model.index(row, 0), text));
}

} // namespace

class tst_ComboBoxAutoFilterModels : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void survivesTheRemovalOfTheCurrentItem();
    void survivesTheRemovalOfTheCurrentRow_data();
    void survivesTheRemovalOfTheCurrentRow();
    void offersItemsThatComeLater();
    void offersItemsThatComeAfterAll();
    void offersRowsThatComeLater_data();
    void offersRowsThatComeLater();
    void takesAnotherTextWhileTheFirstRowIsAdded();
    void editsAreTakenFromAnySlot_data();
    void editsAreTakenFromAnySlot();
    void completersShareALazyList();
    void judgesRowsByTheirPresentText_data();
    void judgesRowsByTheirPresentText();
    void findsTheTextThatTheCurrentItemHasNow();
    void survivesItsOwnFirstModel();
    void survivesAPrefixWhileTheModelGoes_data();
    void survivesAPrefixWhileTheModelGoes();
    void showsAColumnThatComesLater();
};

void tst_ComboBoxAutoFilterModels::survivesTheRemovalOfTheCurrentItem()
{
    ComboBoxAutoFilter box(nullptr);
    box.addItems(letters);
    box.setCurrentIndex(2);
    setUp(box);
    box.removeItem(2);
    QCOMPARE(box.currentText(), QStringLiteral("Beta"));
    QCOMPARE(completions(box), (QStringList{"Beta"}));
    QCOMPARE(completions(box, "a"), (QStringList{"Alpha", "Beta"}));
}

void tst_ComboBoxAutoFilterModels::survivesTheRemovalOfTheCurrentRow_data()
{
    addModelKinds();
}

void tst_ComboBoxAutoFilterModels::survivesTheRemovalOfTheCurrentRow()
{
    QFETCH(QString, kind);

    const Models models = makeModels(kind, letters);
    const auto box = std::make_unique<ComboBoxAutoFilter>(nullptr);
    box->setModel(&models.shown());
    box->setCurrentIndex(2);
    setUp(*box); // the texts have not been read yet
    QVERIFY(models.edited().removeRows(2, 1));
    QCOMPARE(box->currentText(), QStringLiteral("Beta"));
    QCOMPARE(completions(*box), (QStringList{"Beta"}));
    box->setCurrentIndex(0);
    QVERIFY(models.edited().removeRows(0, 2));
    QCOMPARE(completions(*box), QStringList());
    QCOMPARE(completions(*box, ""), QStringList());
}

void tst_ComboBoxAutoFilterModels::offersItemsThatComeLater()
{
    ComboBoxAutoFilter box(nullptr);
    setUp(box);
    box.setList(letters);
    QCOMPARE(completions(box), (QStringList{"Alpha"})); // completes the text of the item that has become current
    QCOMPARE(completions(box, ""), letters);
    QCOMPARE(completions(box, "t"), (QStringList{"Beta"}));
}

void tst_ComboBoxAutoFilterModels::offersItemsThatComeAfterAll()
{
    ComboBoxAutoFilter box(nullptr);
    box.setList(letters);
    setUp(box);
    box.clear();
    box.setList({"Delta", "Zeta", "Eta"});
    QCOMPARE(completions(box), (QStringList{"Delta"}));
    QCOMPARE(completions(box, "et"), (QStringList{"Zeta", "Eta"}));
    QCOMPARE(completions(box, "").size(), 3);
}

void tst_ComboBoxAutoFilterModels::offersRowsThatComeLater_data()
{
    addModelKinds();
}

void tst_ComboBoxAutoFilterModels::offersRowsThatComeLater()
{
    QFETCH(QString, kind);

    const Models models = makeModels(kind, {});
    const auto box = std::make_unique<ComboBoxAutoFilter>(nullptr);
    box->setModel(&models.shown());
    setUp(*box);
    for (const QString& text : letters) {
        append(models.edited(), text);
        QCOMPARE(completions(*box, "").size(), models.shown().rowCount());
        QCOMPARE(completions(*box, "a").size(), models.shown().rowCount());
    }
    QCOMPARE(completions(*box, "et"), (QStringList{"Beta"}));
    append(models.edited(), QStringLiteral("Theta"));
    QCOMPARE(completions(*box), (QStringList{"Beta", "Theta"}));
    QCOMPARE(completions(*box, "").size(), 4);

    QVERIFY(models.edited().removeRows(0, 4));
    QCOMPARE(completions(*box), QStringList());
    append(models.edited(), QStringLiteral("Zeta"));
    QCOMPARE(completions(*box, "et"), (QStringList{"Zeta"}));
}

void tst_ComboBoxAutoFilterModels::takesAnotherTextWhileTheFirstRowIsAdded()
{
    ComboBoxAutoFilter box(nullptr);
    setUp(box);
    int changes = 0;
    connect(&box, QOverload<int>::of(&QComboBox::currentIndexChanged), &box, [&](int index) {
        ++changes;
        box.setItemText(index, QStringLiteral("Omega"));
    });
    box.addItem(QStringLiteral("Alpha"));
    QCOMPARE(changes, 1);
    QCOMPARE(completions(box, "meg"), (QStringList{"Omega"}));
    QCOMPARE(completions(box, "lph"), QStringList());
    box.addItem(QStringLiteral("Beta"));
    QCOMPARE(completions(box, ""), (QStringList{"Omega", "Beta"}));
}

void tst_ComboBoxAutoFilterModels::editsAreTakenFromAnySlot_data()
{
    QTest::addColumn<QByteArray>("signal");
    QTest::newRow("rows about to come") << QByteArray(SIGNAL(rowsAboutToBeInserted(QModelIndex, int, int)));
    QTest::newRow("rows have come") << QByteArray(SIGNAL(rowsInserted(QModelIndex, int, int)));
    QTest::newRow("texts have changed") << QByteArray(SIGNAL(dataChanged(QModelIndex, QModelIndex, QVector<int>)));
    QTest::newRow("rows are about to go") << QByteArray(SIGNAL(rowsAboutToBeRemoved(QModelIndex, int, int)));
    QTest::newRow("rows have gone") << QByteArray(SIGNAL(rowsRemoved(QModelIndex, int, int)));
}

void tst_ComboBoxAutoFilterModels::editsAreTakenFromAnySlot()
{
    QFETCH(QByteArray, signal);

    const bool isBefore = signal.contains("About");
    QStandardItemModel model;
    EarlyListener listener(model, signal.constData());
    for (const QString& text : letters)
        model.appendRow(new QStandardItem(text));
    const auto box = makeBox(model);
    QCOMPARE(completions(*box, "ta"), (QStringList{"Beta"}));
    listener.action = [&] {
        if (isBefore)
            model.item(0)->setText(QStringLiteral("Iota"));
        else
            model.insertRow(0, new QStandardItem(QStringLiteral("Iota")));
        completions(*box, "t");
    };
    model.insertRow(1, new QStandardItem(QStringLiteral("Delta")));
    model.item(2)->setText(QStringLiteral("Theta"));
    model.removeRow(model.rowCount() - 1);
    QVERIFY(!listener.action);
    QStringList expected;
    for (int row = 0; row < model.rowCount(); ++row) {
        const QString text = model.index(row, 0).data().toString();
        if (text.contains(QLatin1Char('t'), Qt::CaseInsensitive))
            expected += text;
    }
    QCOMPARE(completions(*box), expected);
    QCOMPARE(completions(*box, "T"), expected);
    QCOMPARE(completions(*box, "").size(), model.rowCount());
}

void tst_ComboBoxAutoFilterModels::completersShareALazyList()
{
    LazyList list({"Alpha", "Beta"}, 2);
    const auto first = makeBox(list);
    const auto second = makeBox(list);
    completions(*first, "et");
    completions(*second, "ta");
    list.addUnseen({"Zeta", "Eta", "Iota", "Theta"});
    QVERIFY(list.insertRows(0, 1, {}));
    QVERIFY(list.setData(list.index(0), QStringLiteral("Betatron"), Qt::EditRole));
    QCOMPARE(completions(*first), (QStringList{"Betatron", "Beta", "Zeta", "Eta", "Theta"}));
    QCOMPARE(completions(*second), (QStringList{"Betatron", "Beta", "Zeta", "Eta", "Iota", "Theta"}));
}

void tst_ComboBoxAutoFilterModels::judgesRowsByTheirPresentText_data()
{
    QTest::addColumn<int>("others");
    QTest::newRow("few rows, among which QCompleter looks") << 0;
    QTest::newRow("many rows, whose texts are cached") << 1000;
}

void tst_ComboBoxAutoFilterModels::judgesRowsByTheirPresentText()
{
    QFETCH(int, others);
    QStringList texts = {"pump", "pearl", "pipe"};
    for (int row = 0; row < others; ++row)
        texts += "other";
    QStringListModel model(texts);
    const auto box = makeBox(model);
    QCOMPARE(completions(*box, "p").size(), 3);
    model.setData(model.index(0), QStringLiteral("present"));
    QCOMPARE(completions(*box, "pr"), (QStringList{"present"}));
    QCOMPARE(completions(*box, "p").size(), 3);
    model.setData(model.index(0), QStringLiteral("pump"));
    QCOMPARE(completions(*box, "pr"), QStringList());

    QCOMPARE(completions(*box, "p").size(), 3);
    QCOMPARE(completions(*box, "pu"), (QStringList{"pump"}));
    model.setData(model.index(0), QStringLiteral("pure")); // still contains the prefix, but goes on differently
    model.setData(model.index(1), QStringLiteral("earl")); // no longer contains a former prefix
    QCOMPARE(completions(*box, "pur"), (QStringList{"pure"}));
    QCOMPARE(completions(*box, "p"), (QStringList{"pure", "pipe"}));
}

void tst_ComboBoxAutoFilterModels::findsTheTextThatTheCurrentItemHasNow()
{
    QStandardItemModel model;
    for (const QString& text : letters)
        model.appendRow(new QStandardItem(text));
    const auto box = makeBox(model);
    box->setCurrentIndex(1);
    box->lineEdit()->setText(QStringLiteral("eta"));
    QVERIFY(box->validateEntry());
    QList<bool> valid;
    connect(box.get(), &QComboBox::editTextChanged, box.get(), [&] { valid += box->validateEntry(); });
    model.item(1)->setText(QStringLiteral("Omega"));
    QCOMPARE(valid, QList<bool>{true});
    QCOMPARE(box->currentIndex(), 1);
}

void tst_ComboBoxAutoFilterModels::survivesItsOwnFirstModel()
{
    ComboBoxAutoFilter box(nullptr);
    for (int round = 0; round < 3; ++round) {
        auto* const own = new QStringListModel(letters, &box);
        box.setListModel(own, true, QCompleter::PopupCompletion, Qt::CaseInsensitive, Qt::ElideRight,
                         Qt::MatchContains);
        QCOMPARE(completions(box, "et"), (QStringList{"Beta"}));
    }
    QStringListModel other({"Theta"});
    box.setModel(&other);
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0) // Qt 6's combo box gives the completer the model, too
    QCOMPARE(completions(box, "a"), QStringList());
    QTest::keyClick(&box, Qt::Key_Home);
#endif
    QCOMPARE(completions(box, "a"), (QStringList{"Theta"}));
}

void tst_ComboBoxAutoFilterModels::survivesAPrefixWhileTheModelGoes_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("meanwhile");
    QTest::newRow("same text") << "et"
                               << "et";
    QTest::newRow("another text") << "et"
                                  << "lph";
    QTest::newRow("longer") << "e"
                            << "et";
    QTest::newRow("shorter") << "et"
                             << "e";
    QTest::newRow("none") << "et"
                          << "";
    QTest::newRow("the first") << ""
                               << "et";
    QTest::newRow("never any") << ""
                               << "";
}

void tst_ComboBoxAutoFilterModels::survivesAPrefixWhileTheModelGoes()
{
    QFETCH(QString, before);
    QFETCH(QString, meanwhile);

    QPointer<QCompleter> completer;
    auto* const model = new QStringListModel(letters);
    // Receives the signal before the completer does, as a combo box that sets the prefix while it deletes its model.
    connect(model, &QObject::destroyed, this, [&] { completer->setCompletionPrefix(meanwhile); });
    const auto box = makeBox(*model);
    completer = box->completer();
    completer->setCompletionPrefix(before);
    delete model;
    QCOMPARE(completions(*box), QStringList());
    QCOMPARE(completions(*box, "a"), QStringList());
}

void tst_ComboBoxAutoFilterModels::showsAColumnThatComesLater()
{
    QStandardItemModel model;
    const auto box = makeBox(model);
    box->setModelColumn(1);
    setUp(*box);
    for (const QString& text : letters)
        model.appendRow({new QStandardItem(QStringLiteral("key of ") + text), new QStandardItem(text)});
    QCOMPARE(completions(*box, "et"), (QStringList{"Beta"}));
    const auto* const list = qobject_cast<QListView*>(box->completer()->popup());
    QVERIFY(list);
    QCOMPARE(list->modelColumn(), 1);
    box->showPopup();
    QCOMPARE(qobject_cast<QListView*>(box->view())->modelColumn(), 1);
    box->hidePopup();
}

UI_TEST_MAIN(tst_ComboBoxAutoFilterModels)

#include "tst_ComboBoxAutoFilterModels.moc"
