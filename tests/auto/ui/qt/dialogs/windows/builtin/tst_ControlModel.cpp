#include "ui/qt/dialogs/windows/builtin/ControlModel_p.h"

#include "TestHome.h"

#include <QTest>

using namespace zelmar::internal;

namespace {

const DWORD button = 1;
const DWORD box = 2;
const DWORD menu = 3;
const DWORD unknown = 99;

Control control(DWORD id, Control::Kind kind)
{
    Control result;
    result.id = id;
    result.kind = kind;
    return result;
}

/// Creates a model with a button, a check box and a menu with the items 10, 11 and 12.
ControlModel someControls()
{
    ControlModel model;
    model.add(control(button, Control::Kind::PushButton));
    model.add(control(box, Control::Kind::CheckButton));
    model.add(control(menu, Control::Kind::AcceptMenu));
    for (const DWORD item : {10U, 11U, 12U})
        model.addItem(menu, {item, QString::number(item)});
    return model;
}

} // namespace

class tst_ControlModel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_model = someControls(); }

    void orderOfAdding();
    void defaults();
    void idIsUsedOnce();
    void oneMenu();
    void whatCountsAsControls();
    void changes();
    void refusals_data();
    void refusals();
    void listenerIsToldOfChangesOnly();
    void items();
    void selection();
    void firstItemStandsForTheMenu();
    void removedItemIsNotSelected();

private:
    ControlModel m_model;
};

void tst_ControlModel::orderOfAdding()
{
    std::vector<DWORD> ids;
    for (const Control& added : m_model.controls())
        ids.push_back(added.id);
    QCOMPARE(ids, (std::vector<DWORD>{button, box, menu}));
    QCOMPARE(m_model.acceptMenu(), m_model.find(menu));
}

void tst_ControlModel::defaults()
{
    QCOMPARE(m_model.find(button)->state, CDCS_ENABLEDVISIBLE);
    QVERIFY(!m_model.find(button)->prominent);
    QVERIFY(!m_model.find(box)->checked);
    QCOMPARE(m_model.findItem(menu, 11)->state, CDCS_ENABLEDVISIBLE);
    QVERIFY(!m_model.find(unknown));
    QVERIFY(!m_model.findItem(menu, unknown));
    QVERIFY(!m_model.findItem(unknown, 10));
    QVERIFY(!m_model.findItem(button, 10));
}

void tst_ControlModel::idIsUsedOnce()
{
    for (const auto kind : {Control::Kind::PushButton, Control::Kind::CheckButton, Control::Kind::AcceptMenu})
        QVERIFY(!m_model.add(control(box, kind)));
    QCOMPARE(m_model.controls().size(), std::size_t(3));
    QVERIFY(!m_model.addItem(menu, {10, QStringLiteral("again")}));
    QCOMPARE(m_model.findItem(menu, 10)->text, QStringLiteral("10"));
}

void tst_ControlModel::oneMenu()
{
    QVERIFY(!m_model.add(control(7, Control::Kind::AcceptMenu)));
    QVERIFY(!m_model.find(7));
}

void tst_ControlModel::whatCountsAsControls()
{
    ControlModel model;
    QVERIFY(!model.hasControls());
    QVERIFY(!model.acceptMenu());
    model.add(control(menu, Control::Kind::AcceptMenu));
    QVERIFY(!model.hasControls());
    model.addItem(menu, {10, {}});
    QVERIFY(model.hasControls());
    model.removeItem(menu, 10);
    QVERIFY(!model.hasControls());
    model.add(control(button, Control::Kind::PushButton));
    model.setState(button, CDCS_INACTIVE); // a hidden control counts, because it may be shown while the dialog is open
    QVERIFY(model.hasControls());
}

void tst_ControlModel::changes()
{
    QVERIFY(m_model.setLabel(button, QStringLiteral("text")));
    QCOMPARE(m_model.find(button)->label, QStringLiteral("text"));
    QVERIFY(m_model.setState(menu, CDCS_VISIBLE));
    QCOMPARE(m_model.find(menu)->state, CDCS_VISIBLE);
    QVERIFY(m_model.setChecked(box, true));
    QVERIFY(m_model.find(box)->checked);
    QVERIFY(m_model.setChecked(box, false));
    QVERIFY(!m_model.find(box)->checked);
    QVERIFY(m_model.makeProminent(button));
    QVERIFY(m_model.find(button)->prominent);
    QVERIFY(m_model.setItemText(menu, 11, QStringLiteral("item")));
    QCOMPARE(m_model.findItem(menu, 11)->text, QStringLiteral("item"));
    QVERIFY(m_model.setItemState(menu, 12, CDCS_INACTIVE));
    QCOMPARE(m_model.findItem(menu, 12)->state, CDCS_INACTIVE);
}

using Change = std::function<bool(ControlModel&)>;
Q_DECLARE_METATYPE(Change)

void tst_ControlModel::refusals_data()
{
    QTest::addColumn<Change>("change");
    const auto row = [](const char* name, const Change& change) { QTest::newRow(name) << change; };

    // clang-format off
    row("label of nothing", [](ControlModel& model) { return model.setLabel(unknown, {}); });
    row("state of nothing", [](ControlModel& model) { return model.setState(unknown, CDCS_VISIBLE); });
    row("check of nothing", [](ControlModel& model) { return model.setChecked(unknown, true); });
    row("check of a push button", [](ControlModel& model) { return model.setChecked(button, true); });
    row("prominent nothing", [](ControlModel& model) { return model.makeProminent(unknown); });
    row("prominent menu", [](ControlModel& model) { return model.makeProminent(menu); });
    row("item of nothing", [](ControlModel& model) { return model.addItem(unknown, {1, {}}); });
    row("item of a push button", [](ControlModel& model) { return model.addItem(button, {1, {}}); });
    row("removed item of nothing", [](ControlModel& model) { return model.removeItem(unknown, 10); });
    row("removed item that there is not", [](ControlModel& model) { return model.removeItem(menu, unknown); });
    row("all items of nothing", [](ControlModel& model) { return model.removeAllItems(unknown); });
    row("all items of a push button", [](ControlModel& model) { return model.removeAllItems(button); });
    row("text of no item", [](ControlModel& model) { return model.setItemText(menu, unknown, {}); });
    row("state of no item", [](ControlModel& model) { return model.setItemState(menu, unknown, CDCS_VISIBLE); });
    row("selected nothing", [](ControlModel& model) { return model.selectItem(menu, unknown); });
    row("selected in nothing", [](ControlModel& model) { return model.selectItem(unknown, 10); });
    // clang-format on
}

void tst_ControlModel::refusals()
{
    QFETCH(Change, change);
    m_model.setListener([] { QFAIL("there was no change"); });
    QVERIFY(!change(m_model));
}

void tst_ControlModel::listenerIsToldOfChangesOnly()
{
    int changes = 0;
    m_model.setListener([&changes] { ++changes; });
    m_model.setLabel(button, QStringLiteral("a"));
    QCOMPARE(changes, 1);
    m_model.addItem(menu, {13, {}});
    m_model.selectItem(menu, 13);
    m_model.removeAllItems(menu);
    QCOMPARE(changes, 4);
    m_model.setListener({});
    m_model.setLabel(button, QStringLiteral("b"));
    QCOMPARE(changes, 4);
}

void tst_ControlModel::items()
{
    QVERIFY(m_model.removeItem(menu, 11));
    QVERIFY(!m_model.findItem(menu, 11));
    QVERIFY(m_model.addItem(menu, {11, QStringLiteral("last")}));
    QCOMPARE(m_model.find(menu)->items.back().id, 11U);
    QVERIFY(m_model.removeAllItems(menu));
    QVERIFY(m_model.find(menu)->items.empty());
    QVERIFY(m_model.removeAllItems(menu));
}

void tst_ControlModel::selection()
{
    QCOMPARE(m_model.selectedItem(menu).value_or(0), 10U); // the first item, because none was selected
    QVERIFY(m_model.selectItem(menu, 12));
    QCOMPARE(m_model.selectedItem(menu).value_or(0), 12U);
    QVERIFY(!m_model.selectedItem(button));
    QVERIFY(!m_model.selectedItem(unknown));
    m_model.removeAllItems(menu);
    QVERIFY(!m_model.selectedItem(menu));
    m_model.addItem(menu, {13, {}});
    m_model.addItem(menu, {12, {}});
    QCOMPARE(m_model.selectedItem(menu).value_or(0), 13U); // removing all items has reset the selection
}

void tst_ControlModel::firstItemStandsForTheMenu()
{
    QCOMPARE(firstItem(*m_model.find(menu))->id, 10U);
    m_model.setItemState(menu, 10, CDCS_ENABLED);
    QCOMPARE(firstItem(*m_model.find(menu))->id, 11U);
    m_model.setItemState(menu, 11, CDCS_INACTIVE);
    m_model.setItemState(menu, 12, CDCS_INACTIVE);
    QCOMPARE(firstItem(*m_model.find(menu))->id, 10U); // the first item, because none is visible
    m_model.removeAllItems(menu);
    QVERIFY(!firstItem(*m_model.find(menu)));
}

void tst_ControlModel::removedItemIsNotSelected()
{
    m_model.selectItem(menu, 12);
    m_model.removeItem(menu, 10);
    QCOMPARE(m_model.selectedItem(menu).value_or(0), 12U);
    m_model.removeItem(menu, 12);
    QCOMPARE(m_model.selectedItem(menu).value_or(0), 11U);
    m_model.addItem(menu, {12, {}});
    QCOMPARE(m_model.selectedItem(menu).value_or(0), 11U);
}

CORE_TEST_MAIN(tst_ControlModel)
#include "tst_ControlModel.moc"
