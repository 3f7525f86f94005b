#include "platform/HelpLauncher.h"
#include "property/Property.h"
#include "ui/qt/dialogs/windows/ExtendedWinFileDialog.h"

#include "SystemDialogTest.h"
#include "TestHome.h"

#include <QApplication>
#include <QtTest>

#include <memory>
#include <vector>

using zelmar::HelpLauncher;

namespace {

const auto nothing = [] {};

boost::shared_ptr<zelmar::Property<bool>> makeBool(bool value)
{
    return boost::make_shared<zelmar::Property<bool>>(value);
}

void cancel(const SystemDialog& dialog)
{
    dialog.cancel();
}

} // namespace

/// Tests the controls that an application adds to the system's dialog from the user's point of view.
class tst_SystemDialogControls : public SystemDialogTest
{
    Q_OBJECT

private Q_SLOTS:
    void opensHelp();
    void hasNoHelpWithoutATopic();
    void runsTheActionOfItsButton();
    void closesFromAnAction_data();
    void closesFromAnAction();
    void showsBoxesAsTheirProperties_data();
    void showsBoxesAsTheirProperties();
    void setsThePropertyOfItsBox();
    void hasControlsThatWereAddedBetweenShowings();

    void hasNoMenuUnlessAskedFor();
    void offersItsMenu();
    void readsTheItemThatWasPicked_data();
    void readsTheItemThatWasPicked();
    void readsTheFirstItemWhenNoneWasPicked_data();
    void readsTheFirstItemWhenNoneWasPicked();
    void clearsTheMenu();

    void appliesHandlesBeforeShowing();
    void appliesHandlesWhileShown_data();
    void appliesHandlesWhileShown();
    void appliesTheHandlesOfItems();

private:
    std::unique_ptr<ExtendedWinFileDialog> makeDialog(const std::string& helpTopic = {}, bool menu = false,
                                                      QFileDialog::AcceptMode mode = QFileDialog::AcceptOpen) const;
    /// Shows the dialog, calls `look` while it is open, and closes it.
    void run(ExtendedWinFileDialog& dialog, const std::function<void(const SystemDialog&)>& look);
};

std::unique_ptr<ExtendedWinFileDialog> tst_SystemDialogControls::makeDialog(const std::string& helpTopic, bool menu,
                                                                            QFileDialog::AcceptMode mode) const
{
    return std::make_unique<ExtendedWinFileDialog>(*m_window, "Controls", path().toStdString(), "Data (*.dat)",
                                                   helpTopic, mode, menu);
}

void tst_SystemDialogControls::run(ExtendedWinFileDialog& dialog, const std::function<void(const SystemDialog&)>& look)
{
    m_driver->inDialog("look, and cancel", [&look](const SystemDialog& shown) {
        look(shown);
        shown.cancel();
    });
    QCOMPARE(dialog.exec(), QDialog::Rejected);
}

void tst_SystemDialogControls::opensHelp()
{
    std::vector<std::string> topics;
    HelpLauncher::getInstance().setHandler([&topics](const std::string& topic) { topics.push_back(topic); });
    const auto dialog = makeDialog("files/open.html#t\xC3\xB6pic");
    m_driver->inDialog("click", [](const SystemDialog& shown) { shown.click("&Help"); });
    m_driver->inDialogWhen(
        "click again", [&topics](const SystemDialog&) { return topics.size() == 1; },
        [](const SystemDialog& shown) { shown.click("&Help"); });
    m_driver->inDialogWhen(
        "cancel", [&topics](const SystemDialog&) { return topics.size() == 2; }, cancel);
    dialog->exec();
    HelpLauncher::getInstance().setHandler({});
    QCOMPARE(topics, std::vector<std::string>(2, "files/open.html#t\xC3\xB6pic"));
}

void tst_SystemDialogControls::hasNoHelpWithoutATopic()
{
    bool shownWithout = true;
    bool shownWith = false;
    run(*makeDialog(), [&](const SystemDialog& shown) { shownWithout = shown.isShown("&Help"); });
    run(*makeDialog("topic"), [&](const SystemDialog& shown) { shownWith = shown.isShown("&Help"); });
    QVERIFY(!shownWithout);
    QVERIFY(shownWith);
}

void tst_SystemDialogControls::runsTheActionOfItsButton()
{
    const auto dialog = makeDialog("topic");
    QStringList clicked;
    const QString second = QString::fromUtf8("S\xC3\xA9"
                                             "cond");
    dialog->addCustomButton("&First", [&clicked] { clicked += "first"; });
    dialog->addCustomButton(second.toStdString(), [&clicked] { clicked += "second"; });
    m_driver->inDialog("click the second", [&](const SystemDialog& shown) { shown.click(second); });
    m_driver->inDialogWhen(
        "click the first", [&clicked](const SystemDialog&) { return clicked.size() == 1; },
        [](const SystemDialog& shown) { shown.click("&First"); });
    m_driver->inDialogWhen(
        "accept", [&clicked](const SystemDialog&) { return clicked.size() == 2; },
        [](const SystemDialog& shown) { shown.acceptName("a.dat"); });
    QCOMPARE(dialog->exec(), QDialog::Accepted);
    QCOMPARE(clicked, (QStringList{"second", "first"}));
    QCOMPARE(dialog->selectedFiles(), QStringList{native("a.dat")});
}

void tst_SystemDialogControls::closesFromAnAction_data()
{
    QTest::addColumn<QFileDialog::AcceptMode>("acceptMode");
    QTest::addColumn<QFileDialog::FileMode>("mode");
    QTest::newRow("open") << QFileDialog::AcceptOpen << QFileDialog::ExistingFile;
    QTest::newRow("open several") << QFileDialog::AcceptOpen << QFileDialog::ExistingFiles;
    QTest::newRow("save") << QFileDialog::AcceptSave << QFileDialog::AnyFile;
}

void tst_SystemDialogControls::closesFromAnAction()
{
    QFETCH(QFileDialog::AcceptMode, acceptMode);
    QFETCH(QFileDialog::FileMode, mode);
    const auto dialog = makeDialog({}, false, acceptMode);
    dialog->setFileMode(mode);
    dialog->addCustomButton("Close", [&dialog] { dialog->close(); });
    for (int i = 0; i < 2; ++i) { // the dialog can be shown again
        m_driver->inDialog("click", [](const SystemDialog& shown) {
            shown.typeName("a.dat");
            shown.click("Close");
        });
        QCOMPARE(dialog->exec(), QDialog::Accepted);
        QCOMPARE(dialog->selectedFiles(), QStringList());
    }
}

void tst_SystemDialogControls::showsBoxesAsTheirProperties_data()
{
    QTest::addColumn<bool>("first");
    QTest::addColumn<bool>("second");
    QTest::newRow("off, on") << false << true;
    QTest::newRow("on, off") << true << false;
}

void tst_SystemDialogControls::showsBoxesAsTheirProperties()
{
    QFETCH(bool, first);
    QFETCH(bool, second);
    const auto dialog = makeDialog();
    dialog->addCustomCheckBox("First", makeBool(first));
    dialog->addCustomCheckBox("Second", makeBool(second));
    bool firstChecked = !first;
    bool secondChecked = !second;
    run(*dialog, [&](const SystemDialog& shown) {
        firstChecked = shown.isChecked("First");
        secondChecked = shown.isChecked("Second");
    });
    QCOMPARE(firstChecked, first);
    QCOMPARE(secondChecked, second);
}

void tst_SystemDialogControls::setsThePropertyOfItsBox()
{
    const auto property = makeBool(true);
    const auto other = makeBool(true);
    std::vector<bool> told;
    property->signalValueChanged().connect([&told](bool value) { told.push_back(value); });
    const auto dialog = makeDialog();
    dialog->addCustomCheckBox("Other", other);
    dialog->addCustomCheckBox("Box", property);
    for (std::size_t toggles = 0; toggles < 3; ++toggles)
        m_driver->inDialogWhen(
            "toggle", [&told, toggles](const SystemDialog&) { return told.size() == toggles; },
            [](const SystemDialog& shown) { shown.click("Box"); });
    bool checked = true;
    m_driver->inDialogWhen(
        "look, and cancel", [&told](const SystemDialog&) { return told.size() == 3; },
        [&](const SystemDialog& shown) {
            checked = shown.isChecked("Box");
            shown.cancel();
        });
    QCOMPARE(dialog->exec(), QDialog::Rejected);
    QCOMPARE(told, (std::vector<bool>{false, true, false}));
    QVERIFY(!checked);
    QVERIFY(!property->value());
    QVERIFY(other->value());
}

void tst_SystemDialogControls::hasControlsThatWereAddedBetweenShowings()
{
    const auto dialog = makeDialog();
    bool before = true;
    run(*dialog, [&](const SystemDialog& shown) { before = shown.has("Late"); });
    dialog->addCustomButton("Late", [&dialog] { dialog->close(); });
    QVERIFY(!before);
    m_driver->inDialog("click", [](const SystemDialog& shown) { shown.click("Late"); });
    QCOMPARE(dialog->exec(), QDialog::Accepted);
}

void tst_SystemDialogControls::hasNoMenuUnlessAskedFor()
{
    bool without = true;
    bool with = false;
    run(*makeDialog(), [&](const SystemDialog& shown) { without = shown.hasAcceptMenu(); });
    const auto dialog = makeDialog({}, true);
    dialog->addAcceptButtonOption("First", 1);
    dialog->addAcceptButtonOption("Second", 2);
    run(*dialog, [&](const SystemDialog& shown) { with = shown.hasAcceptMenu(); });
    QVERIFY(!without);
    QVERIFY(with);
}

void tst_SystemDialogControls::offersItsMenu()
{
    const auto dialog = makeDialog("topic", true);
    dialog->addAcceptButtonOption("Import", 7);
    dialog->addAcceptButtonOption("\xC3\x9C"
                                  "bernehmen",
                                  8);
    QString label;
    QStringList items;
    m_driver->inDialog("open the menu", [&](const SystemDialog& shown) {
        label = shown.acceptLabel();
        shown.openAcceptMenu();
    });
    m_driver->inMenu("look", [&](const SystemMenu& menu) {
        items = menu.items();
        menu.close();
    });
    m_driver->inDialog("cancel", cancel);
    QCOMPARE(dialog->exec(), QDialog::Rejected);
    QCOMPARE(label, QString("Import"));
    QCOMPARE(items, (QStringList{"Import", QString::fromUtf8("\xC3\x9C"
                                                             "bernehmen")}));
}

void tst_SystemDialogControls::readsTheItemThatWasPicked_data()
{
    QTest::addColumn<int>("item");
    QTest::addColumn<int>("value");
    QTest::newRow("first") << 0 << 70;
    QTest::newRow("second") << 1 << -80;
    QTest::newRow("third") << 2 << 0;
}

void tst_SystemDialogControls::readsTheItemThatWasPicked()
{
    QFETCH(int, item);
    QFETCH(int, value);
    const auto dialog = makeDialog("topic", true);
    dialog->addAcceptButtonOption("First", 70);
    dialog->addCustomButton("Between", nothing);
    dialog->addAcceptButtonOption("Second", -80);
    dialog->addAcceptButtonOption("Third", 0);
    QCOMPARE(dialog->selectedAcceptMenuOption(), 255);
    m_driver->inDialog("type, and open the menu", [](const SystemDialog& shown) {
        shown.typeName("a.dat");
        shown.openAcceptMenu();
    });
    m_driver->inMenu("pick", [item](const SystemMenu& menu) { menu.pick(item); });
    QCOMPARE(dialog->exec(), QDialog::Accepted);
    QCOMPARE(dialog->selectedAcceptMenuOption(), value);
    QCOMPARE(dialog->selectedFiles(), QStringList{native("a.dat")});
}

void tst_SystemDialogControls::readsTheFirstItemWhenNoneWasPicked_data()
{
    QTest::addColumn<int>("items");
    QTest::addColumn<int>("value");
    QTest::newRow("no item") << 0 << 255;
    QTest::newRow("one item") << 1 << 7;
    QTest::newRow("two items") << 2 << 7;
}

void tst_SystemDialogControls::readsTheFirstItemWhenNoneWasPicked()
{
    QFETCH(int, items);
    QFETCH(int, value);
    const auto dialog = makeDialog({}, true);
    for (int i = 0; i < items; ++i)
        dialog->addAcceptButtonOption("Item", 7 + i);
    m_driver->inDialog("accept", [](const SystemDialog& shown) { shown.acceptName("a.dat"); });
    QCOMPARE(dialog->exec(), QDialog::Accepted);
    QCOMPARE(dialog->selectedAcceptMenuOption(), value);
}

void tst_SystemDialogControls::clearsTheMenu()
{
    const auto dialog = makeDialog({}, true);
    dialog->addAcceptButtonOption("Old", 1);
    dialog->addAcceptButtonOption("Older", 2);
    dialog->clearAcceptMenuOptions();
    dialog->addAcceptButtonOption("New", 3);
    dialog->addAcceptButtonOption("Newer", 4);
    QStringList items;
    m_driver->inDialog("type, and open the menu", [](const SystemDialog& shown) {
        shown.typeName("a.dat");
        shown.openAcceptMenu();
    });
    m_driver->inMenu("look, and pick", [&items](const SystemMenu& menu) {
        items = menu.items();
        menu.pick(1);
    });
    QCOMPARE(dialog->exec(), QDialog::Accepted);
    QCOMPARE(items, (QStringList{"New", "Newer"}));
    QCOMPARE(dialog->selectedAcceptMenuOption(), 4);
}

void tst_SystemDialogControls::appliesHandlesBeforeShowing()
{
    const auto dialog = makeDialog();
    dialog->addCustomButton("Hidden", nothing)->hide();
    dialog->addCustomButton("Disabled", nothing)->setEnabled(false);
    dialog->addCustomCheckBox("Hidden box", makeBool(true))->hide();
    dialog->addCustomCheckBox("Disabled box", makeBool(true))->setEnabled(false);
    dialog->addCustomButton("Ordinary", nothing);
    QStringList shownOnes;
    QStringList enabledOnes;
    run(*dialog, [&](const SystemDialog& shown) {
        for (const char* label : {"Hidden", "Disabled", "Hidden box", "Disabled box", "Ordinary"}) {
            if (shown.isShown(label))
                shownOnes += label;
            if (shown.isEnabled(label))
                enabledOnes += label;
        }
    });
    QCOMPARE(shownOnes, (QStringList{"Disabled", "Disabled box", "Ordinary"}));
    QCOMPARE(enabledOnes, (QStringList{"Hidden", "Hidden box", "Ordinary"}));
}

void tst_SystemDialogControls::appliesHandlesWhileShown_data()
{
    QTest::addColumn<bool>("box");
    QTest::newRow("button") << false;
    QTest::newRow("check box") << true;
}

void tst_SystemDialogControls::appliesHandlesWhileShown()
{
    QFETCH(bool, box);
    const auto dialog = makeDialog("topic", true);
    QWidget* const handle =
        box ? dialog->addCustomCheckBox("Control", makeBool(false)) : dialog->addCustomButton("Control", nothing);
    dialog->addCustomButton("Neighbour", nothing);
    QStringList states;
    const auto note = [&states](const SystemDialog& shown) {
        const auto state = [&shown](const char* label) {
            return QString(shown.isShown(label) ? "shown" : "hidden") + (shown.isEnabled(label) ? "" : ", disabled");
        };
        QCOMPARE(state("Neighbour"), QString("shown"));
        states += state("Control");
    };
    run(*dialog, [&](const SystemDialog& shown) {
        note(shown);
        handle->hide();
        note(shown);
        handle->setEnabled(false);
        note(shown);
        handle->show();
        note(shown);
        handle->setEnabled(true);
        note(shown);
    });
    QCOMPARE(states, (QStringList{"shown", "hidden", "hidden, disabled", "shown, disabled", "shown"}));
    QVERIFY(!handle->windowHandle()); // the handle itself never gets a window
}

void tst_SystemDialogControls::appliesTheHandlesOfItems()
{
    const auto dialog = makeDialog({}, true);
    dialog->addAcceptButtonOption("First", 1);
    QWidget* const disabled = dialog->addAcceptButtonOption("Disabled", 2);
    QWidget* const hidden = dialog->addAcceptButtonOption("Hidden", 3);
    QStringList items;
    bool enabled = true;
    m_driver->inDialog("open the menu", [&](const SystemDialog& shown) {
        disabled->setEnabled(false);
        hidden->hide();
        shown.openAcceptMenu();
    });
    m_driver->inMenu("look", [&](const SystemMenu& menu) {
        items = menu.items();
        enabled = menu.isEnabled(1);
        menu.close();
    });
    m_driver->inDialog("show them again", [&](const SystemDialog& shown) {
        disabled->setEnabled(true);
        hidden->show();
        shown.openAcceptMenu();
    });
    QStringList itemsAfter;
    bool enabledAfter = false;
    m_driver->inMenu("look again", [&](const SystemMenu& menu) {
        itemsAfter = menu.items();
        enabledAfter = menu.isEnabled(1);
        menu.close();
    });
    m_driver->inDialog("cancel", cancel);
    dialog->exec();
    QCOMPARE(items, (QStringList{"First", "Disabled"}));
    QVERIFY(!enabled);
    QCOMPARE(itemsAfter, (QStringList{"First", "Disabled", "Hidden"}));
    QVERIFY(enabledAfter);
}

UI_TEST_MAIN(tst_SystemDialogControls)
#include "tst_SystemDialogControls.moc"
