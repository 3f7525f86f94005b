#include "BuiltInDialogTest.h"

#include "ControlIds.h"
#include "DialogDriver.h"
#include "FileDialogActions.h"
#include "Keyboard.h"
#include "TestHome.h"

#include <QAccessible>
#include <QApplication>
#include <QFileDialog>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QToolButton>

namespace {

QStringList menuTexts(QFileDialog& dialog)
{
    QStringList texts;
    for (const QAction* action : acceptMenuArrow(dialog).menu()->actions())
        texts += action->text();
    return texts;
}

} // namespace

/// Tests the menu of the accept button.
class tst_FileDialogAcceptMenu : public BuiltInDialogTest
{
    Q_OBJECT

private Q_SLOTS:
    void menuByMouse();
    void menuByKeyboard_data();
    void menuByKeyboard();
    void acceptButtonStandsForTheFirstItem();
    void saveMenu();
    void menuAndFolders();
    void menuNeedsSomethingAcceptable();
    void menuAndRefusal();
    void menuChangesWhileOpen();
    void labelOfTheAcceptButton();
    void closedUnderTheMenu();
    void ownerDestroyedUnderTheMenu();
    void arrowIsAButtonForAssistiveTechnology();
};

void tst_FileDialogAcceptMenu::menuByMouse()
{
    const auto dialog = makeDialog();
    addItems(*dialog);
    DialogDriver driver;
    driver.onDialog<QFileDialog>("pick", [](QFileDialog& shown) {
        typeName(shown, QStringLiteral("a.dat"));
        QCOMPARE(acceptMenuArrow(shown).accessibleName(), QStringLiteral("More ways to open"));
        QCOMPARE(menuTexts(shown), (QStringList{"&Open", "Open &read-only", "Open a &copy"}));
        whenMenuIsOpen([](QMenu& open) {
            QTest::mouseClick(&open, Qt::LeftButton, Qt::NoModifier,
                              open.actionGeometry(open.actions().at(2)).center());
        });
        QTest::mouseClick(&acceptMenuArrow(shown), Qt::LeftButton);
    });
    QCOMPARE(dialog->show(m_window.get()), S_OK);
    QCOMPARE(dialog->sink().events, (QStringList{"folder", "item 3 12", "ok"}));
    QCOMPARE(dialog->selectedItem(menu), qint64(CopyItem));
    QCOMPARE(dialog->result(), path(QStringLiteral("a.dat")));
}

void tst_FileDialogAcceptMenu::menuByKeyboard_data()
{
    QTest::addColumn<bool>("onArrow");
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("modifiers");

    QTest::newRow("Down on the button") << false << int(Qt::Key_Down) << int(Qt::NoModifier);
    QTest::newRow("Alt+Down on the button") << false << int(Qt::Key_Down) << int(Qt::AltModifier);
    QTest::newRow("Down on the arrow") << true << int(Qt::Key_Down) << int(Qt::NoModifier);
    QTest::newRow("Space on the arrow") << true << int(Qt::Key_Space) << int(Qt::NoModifier);
    QTest::newRow("Return on the arrow") << true << int(Qt::Key_Return) << int(Qt::NoModifier);
}

void tst_FileDialogAcceptMenu::menuByKeyboard()
{
    QFETCH(bool, onArrow);
    QFETCH(int, key);
    QFETCH(int, modifiers);
    const auto dialog = makeDialog();
    addItems(*dialog);
    DialogDriver driver;
    driver.onDialog<QFileDialog>("pick", [=](QFileDialog& shown) {
        typeName(shown, QStringLiteral("a.dat"));
        QWidget& start = onArrow ? static_cast<QWidget&>(acceptMenuArrow(shown)) : acceptButton(shown);
        takeKeyboardFocus(start);
        pickFromMenu(1);
        QTest::keyClick(&start, Qt::Key(key), Qt::KeyboardModifiers(modifiers));
    });
    QCOMPARE(dialog->show(m_window.get()), S_OK);
    QCOMPARE(dialog->sink().events, (QStringList{"folder", "item 3 11", "ok"}));
    QCOMPARE(dialog->selectedItem(menu), qint64(ReadOnlyItem));
}

void tst_FileDialogAcceptMenu::acceptButtonStandsForTheFirstItem()
{
    const auto dialog = makeDialog();
    addItems(*dialog);
    dialog->controls().SetSelectedControlItem(menu, CopyItem);
    DialogDriver driver;
    driver.onDialog<QFileDialog>("accept", [](QFileDialog& shown) {
        typeName(shown, QStringLiteral("a.dat"));
        QTest::mouseClick(&acceptButton(shown), Qt::LeftButton);
    });
    QCOMPARE(dialog->show(m_window.get()), S_OK);
    QCOMPARE(dialog->selectedItem(menu), qint64(PlainItem));
    QCOMPARE(dialog->sink().events, (QStringList{"folder", "ok"}));
}

void tst_FileDialogAcceptMenu::saveMenu()
{
    const auto dialog = makeDialog(CLSID_FileSaveDialog);
    dialog->controls().EnableOpenDropDown(menu);
    dialog->controls().AddControlItem(menu, PlainItem, L"&Save");
    dialog->controls().AddControlItem(menu, CopyItem, L"Save a &copy");
    DialogDriver driver;
    driver.onDialog<QFileDialog>("pick", [](QFileDialog& shown) {
        QCOMPARE(acceptMenuArrow(shown).accessibleName(), QStringLiteral("More ways to save"));
        typeName(shown, QStringLiteral("a.dat"));
        pickFromMenu(1);
        QTest::mouseClick(&acceptMenuArrow(shown), Qt::LeftButton);
    });
    driver.onDialog<QMessageBox>("no", [&dialog](QMessageBox& question) {
        QCOMPARE(dialog->sink().events, QStringList{"folder"});
        question.button(QMessageBox::No)->click();
    });
    driver.onDialog<QFileDialog>("pick again", [&dialog](QFileDialog& shown) {
        QCOMPARE(dialog->sink().events, QStringList{"folder"}); // the first choice only entered a folder
        typeName(shown, QStringLiteral("new.dat"));
        pickFromMenu(1);
        QTest::mouseClick(&acceptMenuArrow(shown), Qt::LeftButton);
    });
    QCOMPARE(dialog->show(m_window.get()), S_OK);
    QCOMPARE(dialog->sink().events, (QStringList{"folder", "item 3 12", "ok"}));
    QCOMPARE(dialog->result(), path(QStringLiteral("new.dat")));
}

/// Entering a folder does not close the dialog, whichever button or item the user pressed.
void tst_FileDialogAcceptMenu::menuAndFolders()
{
    const auto dialog = makeDialog();
    addItems(*dialog);
    DialogDriver driver;
    driver.onDialog<QFileDialog>("go", [](QFileDialog& shown) {
        typeName(shown, QStringLiteral("deeper"));
        pickFromMenu(1);
        QTest::mouseClick(&acceptMenuArrow(shown), Qt::LeftButton);
    });
    const QString deeper = path(QStringLiteral("deeper"));
    driver.onDialogWhen<QFileDialog>(
        "accept", [&deeper](QFileDialog& shown) { return shown.directory().path() == deeper; },
        [&dialog](QFileDialog& shown) {
            QCOMPARE(dialog->selectedItem(menu), qint64(PlainItem));
            acceptName(shown, QStringLiteral("d.dat"));
        });
    QCOMPARE(dialog->show(m_window.get()), S_OK);
    QCOMPARE(dialog->sink().events, (QStringList{"folder", "folder", "ok"}));
    QCOMPARE(dialog->selectedItem(menu), qint64(PlainItem));
}

void tst_FileDialogAcceptMenu::menuNeedsSomethingAcceptable()
{
    const auto dialog = makeDialog();
    addItems(*dialog);
    DialogDriver driver;
    driver.onDialog<QFileDialog>("look", [](QFileDialog& shown) {
        typeName(shown, QStringLiteral("missing"));
        QVERIFY(!acceptButton(shown).isEnabled());
        QVERIFY(!acceptMenuArrow(shown).isEnabled());
        typeName(shown, QStringLiteral("a.dat"));
        QVERIFY(acceptMenuArrow(shown).isEnabled());
        cancel(shown);
    });
    dialog->show(m_window.get());
}

void tst_FileDialogAcceptMenu::menuAndRefusal()
{
    const auto dialog = makeDialog();
    addItems(*dialog);
    int asked = 0;
    dialog->sink().whenTold = [&dialog, &asked](const QString& event) {
        if (event != QLatin1String("ok"))
            return S_OK;
        ++asked;
        return dialog->selectedItem(menu) == ReadOnlyItem ? HRESULT(S_FALSE) : S_OK;
    };
    DialogDriver driver;
    driver.onDialog<QFileDialog>("pick", [](QFileDialog& shown) {
        typeName(shown, QStringLiteral("a.dat"));
        pickFromMenu(1);
        QTest::mouseClick(&acceptMenuArrow(shown), Qt::LeftButton);
    });
    driver.onDialogWhen<QFileDialog>(
        "the button itself", [&asked](QFileDialog&) { return asked == 1; },
        [](QFileDialog& shown) { acceptButton(shown).click(); });
    QCOMPARE(dialog->show(m_window.get()), S_OK);
    QCOMPARE(dialog->sink().events, (QStringList{"folder", "item 3 11", "ok", "ok"}));
    QCOMPARE(dialog->selectedItem(menu), qint64(PlainItem));
}

void tst_FileDialogAcceptMenu::menuChangesWhileOpen()
{
    const auto dialog = makeDialog();
    IFileDialogCustomize& controls = dialog->controls();
    controls.AddPushButton(button, L"Action");
    DialogDriver driver;
    driver.onDialog<QFileDialog>("change", [&](QFileDialog& shown) {
        typeName(shown, QStringLiteral("a.dat"));
        const int plainWidth = acceptButton(shown).minimumWidth();
        QVERIFY(!acceptMenuArrow(shown).isVisible());
        QTest::keyClick(&acceptButton(shown), Qt::Key_Down); // the menu is empty and does not open
        addItems(*dialog);
        QVERIFY(acceptMenuArrow(shown).isVisible());
        QVERIFY(acceptButton(shown).minimumWidth() > plainWidth);
        controls.SetControlItemState(menu, ReadOnlyItem, CDCS_ENABLED);
        QCOMPARE(menuTexts(shown), (QStringList{"&Open", "Open a &copy"}));
        controls.SetControlItemState(menu, CopyItem, CDCS_VISIBLE);
        QVERIFY(!acceptMenuArrow(shown).menu()->actions().at(1)->isEnabled());
        controls.SetControlItemText(menu, CopyItem, L"Other");
        QCOMPARE(menuTexts(shown), (QStringList{"&Open", "Other"}));
        controls.RemoveControlItem(menu, CopyItem);
        QCOMPARE(menuTexts(shown), QStringList{"&Open"});
        controls.SetControlState(menu, CDCS_VISIBLE);
        QVERIFY(acceptMenuArrow(shown).isVisible() && !acceptMenuArrow(shown).isEnabled()
                && acceptButton(shown).isEnabled());
        controls.SetControlState(menu, CDCS_ENABLED);
        QVERIFY(!acceptMenuArrow(shown).isVisible());
        QCOMPARE(acceptButton(shown).minimumWidth(), plainWidth);
        controls.SetControlState(menu, CDCS_ENABLEDVISIBLE);
        QVERIFY(acceptMenuArrow(shown).isVisible() && acceptMenuArrow(shown).isEnabled());
        controls.RemoveAllControlItems(menu);
        QVERIFY(!acceptMenuArrow(shown).isVisible());
        cancel(shown);
    });
    dialog->show(m_window.get());
}

void tst_FileDialogAcceptMenu::labelOfTheAcceptButton()
{
    const auto dialog = makeDialog();
    addItems(*dialog);
    IFileDialogCustomize& controls = dialog->controls();
    controls.SetControlItemText(menu, PlainItem, L"Open &all");
    DialogDriver driver;
    driver.onDialog<QFileDialog>("look", [&](QFileDialog& shown) {
        const QPushButton& accept = acceptButton(shown);
        QCOMPARE(accept.text(), QStringLiteral("Open &all"));
        typeName(shown, QStringLiteral("deeper")); // the button opens the folder, whatever the first item is
        QCOMPARE(accept.text(), QStringLiteral("&Open"));
        typeName(shown, QStringLiteral("a.dat"));
        QCOMPARE(accept.text(), QStringLiteral("Open &all"));
        controls.SetControlItemState(menu, PlainItem, CDCS_ENABLED);
        QCOMPARE(accept.text(), QStringLiteral("Open &read-only"));
        controls.SetControlState(menu, CDCS_INACTIVE);
        QCOMPARE(accept.text(), QStringLiteral("&Open"));
        (*dialog)->SetOkButtonLabel(L"Take");
        QCOMPARE(accept.text(), QStringLiteral("Take"));
        controls.SetControlState(menu, CDCS_ENABLEDVISIBLE);
        QCOMPARE(accept.text(), QStringLiteral("Open &read-only"));
        cancel(shown);
    });
    dialog->show(m_window.get());
}

void tst_FileDialogAcceptMenu::closedUnderTheMenu()
{
    const auto dialog = makeDialog();
    addItems(*dialog);
    DialogDriver driver;
    driver.onDialog<QFileDialog>("open, close", [&dialog](QFileDialog& shown) {
        typeName(shown, QStringLiteral("a.dat"));
        whenMenuIsOpen([&dialog](QMenu&) { (*dialog)->Close(E_FAIL); });
        QTest::mouseClick(&acceptMenuArrow(shown), Qt::LeftButton);
    });
    QCOMPARE(dialog->show(m_window.get()), E_FAIL);
    QVERIFY(!QApplication::activePopupWidget());
}

void tst_FileDialogAcceptMenu::ownerDestroyedUnderTheMenu()
{
    const auto dialog = makeDialog();
    addItems(*dialog);
    DialogDriver driver;
    driver.onDialog<QFileDialog>("open, destroy", [this](QFileDialog& shown) {
        typeName(shown, QStringLiteral("a.dat"));
        whenMenuIsOpen([this](QMenu&) { m_window.reset(); });
        QTest::mouseClick(&acceptMenuArrow(shown), Qt::LeftButton);
    });
    QCOMPARE(dialog->show(m_window.get()), cancelledResult);
    QVERIFY(!QApplication::activePopupWidget());
}

void tst_FileDialogAcceptMenu::arrowIsAButtonForAssistiveTechnology()
{
    const auto dialog = makeDialog();
    addItems(*dialog);
    DialogDriver driver;
    driver.onDialog<QFileDialog>("open the menu", [](QFileDialog& shown) {
        QAccessibleInterface* const accessible = QAccessible::queryAccessibleInterface(&acceptMenuArrow(shown));
        QVERIFY(accessible);
        QCOMPARE(accessible->role(), QAccessible::ButtonMenu);
        QCOMPARE(accessible->text(QAccessible::Name), QStringLiteral("More ways to open"));
        const auto states = [accessible] { return accessible->state(); };
        QAccessibleActionInterface& actions = *accessible->actionInterface();
        const QString showMenu = QAccessibleActionInterface::showMenuAction();
        QVERIFY(states().hasPopup && states().expandable && !states().expanded && states().disabled);
        QVERIFY(!actions.actionNames().contains(showMenu));
        actions.doAction(showMenu);

        typeName(shown, QStringLiteral("a.dat"));
        QVERIFY(!states().disabled && !states().expanded);
        QVERIFY(actions.actionNames().contains(showMenu));
        bool wasExpanded = false;
        whenMenuIsOpen([&](QMenu&) {
            wasExpanded = states().expanded;
            actions.doAction(showMenu);
        });
        actions.doAction(showMenu);
        QTRY_VERIFY(wasExpanded && !states().expanded);
        cancel(shown);
    });
    QCOMPARE(dialog->show(m_window.get()), cancelledResult);
}

UI_TEST_MAIN(tst_FileDialogAcceptMenu)
#include "tst_FileDialogAcceptMenu.moc"
