#include "BuiltInDialogTest.h"

#include "DialogDriver.h"
#include "FileDialogActions.h"
#include "Keyboard.h"
#include "TestHome.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLayout>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QStyle>
#include <QTest>
#include <QTimer>
#include <QToolButton>

#include <memory>
#include <stdexcept>
#include <string>

namespace {

const DWORD button = 1;
const DWORD box = 2;
const DWORD menu = 3;
const DWORD unknown = 99;

enum Item : DWORD { PlainItem = 10, ReadOnlyItem, CopyItem };

QAbstractButton* controlNamed(QFileDialog& dialog, const QString& text)
{
    for (auto* control : dialog.findChildren<QAbstractButton*>()) {
        if (control->text() == text)
            return control;
    }
    return nullptr;
}

QWidget& bar(QFileDialog& dialog)
{
    return *dialog.findChild<QWidget*>(QStringLiteral("controlBar"));
}

QPushButton& acceptButton(QFileDialog& dialog)
{
    const auto kind = dialog.acceptMode() == QFileDialog::AcceptSave ? QDialogButtonBox::Save : QDialogButtonBox::Open;
    return *dialog.findChild<QDialogButtonBox*>()->button(kind);
}

QToolButton& arrow(QFileDialog& dialog)
{
    return *dialog.findChild<QToolButton*>(QStringLiteral("acceptMenuArrow"));
}

QStringList menuTexts(QFileDialog& dialog)
{
    QStringList texts;
    for (const QAction* action : arrow(dialog).menu()->actions())
        texts += action->text();
    return texts;
}

/// Calls `action` in the event loop of the menu that is about to open.
void whenMenuIsOpen(const std::function<void(QMenu&)>& action)
{
    QTimer::singleShot(0, [action] {
        auto* open = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        if (open && open->isVisible())
            action(*open);
        else
            whenMenuIsOpen(action);
    });
}

/// Picks the item at `row` (from 0) of the menu that is about to open, with the Down and Return keys.
void pickRow(int row)
{
    whenMenuIsOpen([row](QMenu& open) {
        open.setActiveAction(nullptr);
        for (int i = 0; i <= row; ++i)
            QTest::keyClick(&open, Qt::Key_Down);
        QTest::keyClick(&open, Qt::Key_Return);
    });
}

void addItems(const BuiltInDialog& dialog)
{
    dialog.controls().EnableOpenDropDown(menu);
    dialog.controls().AddControlItem(menu, PlainItem, L"&Open");
    dialog.controls().AddControlItem(menu, ReadOnlyItem, L"Open &read-only");
    dialog.controls().AddControlItem(menu, CopyItem, L"Open a &copy");
}

} // namespace

class tst_FileDialogControls : public BuiltInDialogTest
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void operations();
    void operationsOnMenus();
    void statesRoundTrip();

    void whoDrawsTheDialog();
    void pushButton();
    void returnAccepts();
    void checkButton();
    void checkSurvives();
    void changesWhileOpen();
    void hiddenOnesTakeNoRoom();
    void rowWraps();
    void mnemonics();
    void tabOrder();
    void prominentButton();
    void rightToLeft_data();
    void rightToLeft();
    void throwingSink_data();
    void throwingSink();
    void closedByAButton();

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
};

void tst_FileDialogControls::cleanup()
{
    QApplication::setLayoutDirection(Qt::LeftToRight);
    BuiltInDialogTest::cleanup();
}

// Before the dialog is shown

void tst_FileDialogControls::operations()
{
    const auto dialog = makeDialog();
    IFileDialogCustomize& controls = dialog->controls();
    QCOMPARE(controls.AddPushButton(button, L"Action"), S_OK);
    QCOMPARE(controls.AddCheckButton(box, L"Option", TRUE), S_OK);
    QVERIFY(dialog->isChecked(box));
    QCOMPARE(controls.AddPushButton(box, L"Action"), E_INVALIDARG);
    QCOMPARE(controls.AddCheckButton(button, L"Option", TRUE), E_INVALIDARG);
    QCOMPARE(controls.EnableOpenDropDown(button), E_INVALIDARG);
    QCOMPARE(controls.SetControlLabel(button, L"Other"), S_OK);
    QCOMPARE(controls.SetControlLabel(unknown, L"Other"), E_INVALIDARG);
    QCOMPARE(controls.SetCheckButtonState(box, FALSE), S_OK);
    QVERIFY(!dialog->isChecked(box));
    QCOMPARE(controls.SetCheckButtonState(button, FALSE), E_INVALIDARG);
    BOOL checked = TRUE;
    QCOMPARE(controls.GetCheckButtonState(button, &checked), E_INVALIDARG);
    QCOMPARE(controls.GetCheckButtonState(box, nullptr), E_POINTER);
    QCOMPARE(controls.MakeProminent(button), S_OK);
    QCOMPARE(controls.MakeProminent(unknown), E_INVALIDARG);
}

void tst_FileDialogControls::operationsOnMenus()
{
    const auto dialog = makeDialog();
    IFileDialogCustomize& controls = dialog->controls();
    QCOMPARE(controls.EnableOpenDropDown(menu), S_OK);
    QCOMPARE(controls.EnableOpenDropDown(menu + 1), E_INVALIDARG);
    QCOMPARE(dialog->selectedItem(menu), qint64(E_FAIL));
    QCOMPARE(dialog->selectedItem(unknown), qint64(E_INVALIDARG));
    QCOMPARE(controls.AddControlItem(menu, PlainItem, L"Open"), S_OK);
    QCOMPARE(controls.AddControlItem(menu, PlainItem, L"Again"), E_INVALIDARG);
    QCOMPARE(controls.AddControlItem(unknown, PlainItem, L"Open"), E_INVALIDARG);
    QCOMPARE(controls.AddControlItem(menu, CopyItem, L"Copy"), S_OK);
    QCOMPARE(dialog->selectedItem(menu), qint64(PlainItem));
    QCOMPARE(controls.SetSelectedControlItem(menu, CopyItem), S_OK);
    QCOMPARE(dialog->selectedItem(menu), qint64(CopyItem));
    QCOMPARE(controls.SetSelectedControlItem(menu, unknown), E_INVALIDARG);
    QCOMPARE(controls.SetControlItemText(menu, CopyItem, L"Other"), S_OK);
    QCOMPARE(controls.SetControlItemText(menu, unknown, L"Other"), E_INVALIDARG);
    QCOMPARE(controls.RemoveControlItem(menu, CopyItem), S_OK);
    QCOMPARE(controls.RemoveControlItem(menu, CopyItem), E_INVALIDARG);
    QCOMPARE(dialog->selectedItem(menu), qint64(PlainItem));
    QCOMPARE(controls.RemoveAllControlItems(menu), S_OK);
    QCOMPARE(controls.RemoveAllControlItems(unknown), E_INVALIDARG);
    QCOMPARE(dialog->selectedItem(menu), qint64(E_FAIL));
    QCOMPARE(controls.GetSelectedControlItem(menu, nullptr), E_POINTER);
}

void tst_FileDialogControls::statesRoundTrip()
{
    const auto dialog = makeDialog();
    IFileDialogCustomize& controls = dialog->controls();
    controls.AddPushButton(button, L"Action");
    addItems(*dialog);
    CDCONTROLSTATEF state = CDCS_INACTIVE;
    for (const DWORD control : {button, menu}) {
        QCOMPARE(controls.GetControlState(control, &state), S_OK);
        QCOMPARE(state, CDCS_ENABLEDVISIBLE);
        for (const auto set : {CDCS_INACTIVE, CDCS_ENABLED, CDCS_VISIBLE, CDCS_ENABLEDVISIBLE}) {
            QCOMPARE(controls.SetControlState(control, set), S_OK);
            QCOMPARE(controls.GetControlState(control, &state), S_OK);
            QCOMPARE(state, set);
        }
    }
    QCOMPARE(controls.GetControlItemState(menu, CopyItem, &state), S_OK);
    QCOMPARE(state, CDCS_ENABLEDVISIBLE);
    QCOMPARE(controls.SetControlItemState(menu, CopyItem, CDCS_VISIBLE), S_OK);
    QCOMPARE(controls.GetControlItemState(menu, CopyItem, &state), S_OK);
    QCOMPARE(state, CDCS_VISIBLE);
    QCOMPARE(controls.GetControlState(unknown, &state), E_INVALIDARG);
    QCOMPARE(controls.SetControlState(unknown, CDCS_VISIBLE), E_INVALIDARG);
    QCOMPARE(controls.GetControlItemState(menu, unknown, &state), E_INVALIDARG);
    QCOMPARE(controls.SetControlItemState(menu, unknown, CDCS_VISIBLE), E_INVALIDARG);
    QCOMPARE(controls.GetControlState(button, nullptr), E_POINTER);
    QCOMPARE(controls.GetControlItemState(menu, CopyItem, nullptr), E_POINTER);
}

// Buttons and check boxes

void tst_FileDialogControls::whoDrawsTheDialog()
{
    for (const char* kind : {"none", "menu without items", "button", "hidden button", "menu"}) {
        const QByteArray name = kind;
        const auto dialog = makeDialog();
        if (name.endsWith("button"))
            dialog->controls().AddPushButton(button, L"Action");
        if (name == "hidden button")
            dialog->controls().SetControlState(button, CDCS_INACTIVE);
        if (name == "menu without items")
            dialog->controls().EnableOpenDropDown(menu);
        if (name == "menu")
            addItems(*dialog);
        const bool byQt = name != "none" && name != "menu without items";
        DialogDriver driver;
        driver.onDialog<QFileDialog>(kind, [byQt](QFileDialog& shown) {
            QCOMPARE(shown.testOption(QFileDialog::DontUseNativeDialog), byQt);
            // QFileDialog lets the desktop draw only objects whose meta-object is its own.
            QCOMPARE(shown.metaObject(), &QFileDialog::staticMetaObject);
            cancel(shown);
        });
        dialog->show(m_window.get());
    }
}

void tst_FileDialogControls::pushButton()
{
    const auto dialog = makeDialog();
    dialog->controls().AddPushButton(button, L"Action");
    DialogDriver driver;
    driver.onDialog<QFileDialog>("click", [&dialog](QFileDialog& shown) {
        auto* control = controlNamed(shown, QStringLiteral("Action"));
        QVERIFY(control && control->isVisible() && control->isEnabled());
        QTest::mouseClick(control, Qt::LeftButton);
        takeKeyboardFocus(*control);
        QTest::keyClick(control, Qt::Key_Space);
        QVERIFY(shown.isVisible());
        QCOMPARE(dialog->sink().events, (QStringList{"folder", "button 1", "button 1"}));
        cancel(shown);
    });
    QCOMPARE(dialog->show(m_window.get()), cancelledResult);
}

void tst_FileDialogControls::returnAccepts()
{
    const auto dialog = makeDialog();
    dialog->controls().AddPushButton(button, L"Action");
    dialog->controls().AddPushButton(unknown, L"Help");
    dialog->controls().MakeProminent(unknown);
    DialogDriver driver;
    driver.onDialog<QFileDialog>("type, press Return on the box", [](QFileDialog& shown) {
        typeName(shown, QStringLiteral("a.dat"));
        QVERIFY(acceptButton(shown).isDefault());
        takeKeyboardFocus(*controlNamed(shown, QStringLiteral("Action")));
        QTest::keyClick(&shown, Qt::Key_Return);
    });
    QCOMPARE(dialog->show(m_window.get()), S_OK);
    QCOMPARE(dialog->sink().events, (QStringList{"folder", "ok"}));
    QCOMPARE(dialog->result(), m_folders->path(QStringLiteral("a.dat")));
}

void tst_FileDialogControls::checkButton()
{
    const auto dialog = makeDialog();
    dialog->controls().AddCheckButton(box, L"Option", TRUE);
    DialogDriver driver;
    driver.onDialog<QFileDialog>("toggle", [&dialog](QFileDialog& shown) {
        auto* control = qobject_cast<QCheckBox*>(controlNamed(shown, QStringLiteral("Option")));
        QVERIFY(control && control->isChecked());
        takeKeyboardFocus(*control);
        QTest::keyClick(control, Qt::Key_Space);
        QVERIFY(!dialog->isChecked(box));
        QTest::keyClick(control, Qt::Key_Space);
        QVERIFY(dialog->isChecked(box));
        const QStringList byUser{"folder", "check 2 off", "check 2 on"};
        QCOMPARE(dialog->sink().events, byUser);
        QCOMPARE(dialog->controls().SetCheckButtonState(box, FALSE), S_OK);
        QVERIFY(!control->isChecked());
        QCOMPARE(dialog->sink().events, byUser); // a change by the program is not reported
        cancel(shown);
    });
    QCOMPARE(dialog->show(m_window.get()), cancelledResult);
}

void tst_FileDialogControls::checkSurvives()
{
    const auto dialog = makeDialog();
    dialog->controls().AddCheckButton(box, L"Option", FALSE);
    DialogDriver driver;
    driver.onDialog<QFileDialog>("toggle", [](QFileDialog& shown) {
        controlNamed(shown, QStringLiteral("Option"))->click();
        cancel(shown);
    });
    dialog->show(m_window.get());
    QVERIFY(dialog->isChecked(box));
    driver.onDialog<QFileDialog>("look", [](QFileDialog& shown) {
        QVERIFY(controlNamed(shown, QStringLiteral("Option"))->isChecked());
        cancel(shown);
    });
    dialog->show(m_window.get());
    QCOMPARE(dialog->sink().events, (QStringList{"folder", "check 2 on", "folder"}));
}

void tst_FileDialogControls::changesWhileOpen()
{
    const auto dialog = makeDialog();
    IFileDialogCustomize& controls = dialog->controls();
    controls.AddPushButton(button, L"Action");
    DialogDriver driver;
    driver.onDialog<QFileDialog>("change", [&](QFileDialog& shown) {
        auto* control = controlNamed(shown, QStringLiteral("Action"));
        controls.SetControlState(button, CDCS_VISIBLE);
        QVERIFY(control->isVisible() && !control->isEnabled());
        control->click();
        controls.SetControlState(button, CDCS_ENABLED);
        QVERIFY(!control->isVisible());
        controls.SetControlState(button, CDCS_ENABLEDVISIBLE);
        QVERIFY(control->isVisible() && control->isEnabled());
        controls.SetControlLabel(button, L"Other");
        QCOMPARE(control->text(), QStringLiteral("Other"));
        controls.AddCheckButton(box, L"Late", TRUE);
        auto* late = controlNamed(shown, QStringLiteral("Late"));
        QVERIFY(late && late->isVisible() && late->isChecked());
        late->click();
        controls.MakeProminent(button);
        QVERIFY(control->isVisible());
        control->click();
        cancel(shown);
    });
    dialog->show(m_window.get());
    QCOMPARE(dialog->sink().events, (QStringList{"folder", "check 2 off", "button 1"}));
}

void tst_FileDialogControls::hiddenOnesTakeNoRoom()
{
    const auto dialog = makeDialog();
    IFileDialogCustomize& controls = dialog->controls();
    for (const DWORD id : {1U, 2U, 3U})
        controls.AddPushButton(id, std::to_wstring(id).c_str());
    DialogDriver driver;
    driver.onDialog<QFileDialog>("hide", [&](QFileDialog& shown) {
        const auto lastX = [&shown] { return controlNamed(shown, QStringLiteral("3"))->x(); };
        const auto roomBelow = [&shown] {
            shown.layout()->activate();
            return shown.height() - fileTypeCombo(shown).geometry().bottom();
        };
        const int x = lastX();
        const int room = roomBelow();
        controls.SetControlState(2, CDCS_ENABLED);
        QTRY_VERIFY(lastX() < x);
        for (const DWORD id : {1U, 3U})
            controls.SetControlState(id, CDCS_ENABLED);
        QVERIFY(!bar(shown).isVisible());
        QTRY_VERIFY(roomBelow() < room);
        QCOMPARE(roomBelow() - 1, shown.layout()->contentsMargins().bottom());
        cancel(shown);
    });
    dialog->show(m_window.get());
}

void tst_FileDialogControls::rowWraps()
{
    const auto dialog = makeDialog();
    int plainWidth = 0;
    DialogDriver driver;
    driver.onDialog<QFileDialog>("look", [&plainWidth](QFileDialog& shown) {
        plainWidth = shown.minimumSizeHint().width();
        cancel(shown);
    });
    dialog->show(m_window.get());
    for (const DWORD id : {1U, 2U, 3U, 4U, 5U, 6U})
        dialog->controls().AddPushButton(id, (L"A rather long label " + std::to_wstring(id)).c_str());
    driver.onDialog<QFileDialog>("look", [&plainWidth](QFileDialog& shown) {
        QCOMPARE(shown.minimumSizeHint().width(), plainWidth);
        const QRect inside = bar(shown).rect();
        QRect last;
        for (int id = 1; id <= 6; ++id) {
            const QRect place = controlNamed(shown, QStringLiteral("A rather long label %1").arg(id))->geometry();
            QVERIFY(inside.contains(place));
            QVERIFY(!place.intersects(last));
            QVERIFY(place.top() > last.top() || place.left() > last.right() || id == 1);
            last = place;
        }
        QVERIFY(last.top() > 0);
        QCOMPARE(bar(shown).x(), fileNameEdit(shown).x());
        cancel(shown);
    });
    dialog->show(m_window.get());
}

void tst_FileDialogControls::mnemonics()
{
    const auto dialog = makeDialog();
    dialog->controls().AddPushButton(button, L"&Preview");
    dialog->controls().AddCheckButton(box, L"Read &only", FALSE);      // the Open button has Alt+O
    dialog->controls().AddCheckButton(unknown, L"With &notes", FALSE); // the name's label has Alt+N
    DialogDriver driver;
    driver.onDialog<QFileDialog>("press", [&dialog](QFileDialog& shown) {
        typeName(shown, QStringLiteral("a.dat"));
        QTest::keyClick(&shown, Qt::Key_P, Qt::AltModifier);
        QTRY_COMPARE(dialog->sink().events,
                     (QStringList{"folder", "button 1"})); // reported when the button is released
        takeKeyboardFocus(fileTypeCombo(shown));
        QTest::keyClick(&shown, Qt::Key_N, Qt::AltModifier);
        QVERIFY(fileNameEdit(shown).hasFocus());
        QTest::keyClick(&shown, Qt::Key_O, Qt::AltModifier);
    });
    QCOMPARE(dialog->show(m_window.get()), S_OK);
    QCOMPARE(dialog->sink().events, (QStringList{"folder", "button 1", "ok"}));
}

void tst_FileDialogControls::tabOrder()
{
    const auto dialog = makeDialog();
    dialog->controls().AddPushButton(unknown, L"Help");
    dialog->controls().MakeProminent(unknown);
    dialog->controls().AddPushButton(button, L"Action");
    dialog->controls().AddCheckButton(box, L"Option", FALSE);
    addItems(*dialog);
    dialog->setName(QStringLiteral("a.dat")); // typing it would open the completer, which takes the first Tab
    DialogDriver driver;
    driver.onDialog<QFileDialog>("walk", [](QFileDialog& shown) {
        takeKeyboardFocus(fileNameEdit(shown));
        QStringList walk;
        for (int i = 0; i < 7; ++i) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            const auto* focused = qobject_cast<QAbstractButton*>(QApplication::focusWidget());
            walk += focused && !focused->text().isEmpty() ? focused->text() : QApplication::focusWidget()->objectName();
        }
        QCOMPARE(walk,
                 (QStringList{"fileTypeCombo", "Action", "Option", "&Open", "acceptMenuArrow", "Cancel", "Help"}));
        cancel(shown);
    });
    dialog->show(m_window.get());
}

void tst_FileDialogControls::prominentButton()
{
    const auto dialog = makeDialog();
    dialog->controls().AddPushButton(button, L"&Help");
    dialog->controls().MakeProminent(button);
    DialogDriver driver;
    driver.onDialog<QFileDialog>("press", [&dialog](QFileDialog& shown) {
        const auto* buttons = shown.findChild<QDialogButtonBox*>();
        auto* help = qobject_cast<QPushButton*>(controlNamed(shown, QStringLiteral("&Help")));
        QCOMPARE(buttons->buttonRole(help), QDialogButtonBox::HelpRole);
        QVERIFY(!help->autoDefault());
        QVERIFY(!bar(shown).isVisible());
        QTest::keyClick(&shown, Qt::Key_H, Qt::AltModifier);
        QTRY_COMPARE(dialog->sink().events, (QStringList{"folder", "button 1"}));
        QVERIFY(shown.isVisible());
        cancel(shown);
    });
    dialog->show(m_window.get());
}

void tst_FileDialogControls::rightToLeft_data()
{
    QTest::addColumn<Qt::LayoutDirection>("direction");
    QTest::newRow("left to right") << Qt::LeftToRight;
    QTest::newRow("right to left") << Qt::RightToLeft;
}

void tst_FileDialogControls::rightToLeft()
{
    QFETCH(Qt::LayoutDirection, direction);
    QApplication::setLayoutDirection(direction);
    const auto dialog = makeDialog();
    dialog->controls().AddPushButton(button, L"First");
    dialog->controls().AddCheckButton(box, L"Second", FALSE);
    addItems(*dialog);
    DialogDriver driver;
    driver.onDialog<QFileDialog>("look", [direction](QFileDialog& shown) {
        const auto mirrored = [direction](const QWidget& widget) {
            return QStyle::visualRect(direction, widget.parentWidget()->rect(), widget.geometry());
        };
        const QRect first = mirrored(*controlNamed(shown, QStringLiteral("First")));
        const QRect second = mirrored(*controlNamed(shown, QStringLiteral("Second")));
        QCOMPARE(first.left(), 0);
        QVERIFY(second.left() > first.right());
        QCOMPARE(mirrored(bar(shown)).left(), mirrored(fileNameEdit(shown)).left());

        const QPushButton& accept = acceptButton(shown);
        const QRect arrowPlace = mirrored(arrow(shown));
        QVERIFY(arrowPlace.left() > accept.width() / 2);
        QVERIFY(accept.rect().contains(arrowPlace));
        QVERIFY(accept.width() >= accept.sizeHint().width() + 2 * arrowPlace.width());
        cancel(shown);
    });
    dialog->show(m_window.get());
}

void tst_FileDialogControls::throwingSink_data()
{
    QTest::addColumn<QString>("event");
    QTest::newRow("on a click") << "button 1";
    QTest::newRow("on a toggle") << "check 2 on";
    QTest::newRow("on a picked item") << "item 3 11";
}

void tst_FileDialogControls::throwingSink()
{
    QFETCH(QString, event);
    const auto dialog = makeDialog();
    dialog->controls().AddPushButton(button, L"Action");
    dialog->controls().AddCheckButton(box, L"Option", FALSE);
    addItems(*dialog);
    dialog->sink().whenTold = [&event](const QString& told) {
        if (told == event)
            throw std::runtime_error("the program's own");
        return S_OK;
    };
    DialogDriver driver;
    driver.onDialog<QFileDialog>("act", [&event](QFileDialog& shown) {
        typeName(shown, QStringLiteral("a.dat"));
        if (event.startsWith(QLatin1String("button")))
            controlNamed(shown, QStringLiteral("Action"))->click();
        else if (event.startsWith(QLatin1String("check")))
            controlNamed(shown, QStringLiteral("Option"))->click();
        else {
            pickRow(1);
            QTest::mouseClick(&arrow(shown), Qt::LeftButton);
        }
    });
    QVERIFY_EXCEPTION_THROWN(dialog->show(m_window.get()), std::runtime_error);
    QVERIFY(driver.finished());
    QCOMPARE(dialog->sink().events.last(), event);
    QCOMPARE(dialog->result(), QString());

    dialog->sink().whenTold = {};
    driver.onDialog<QFileDialog>("accept", [](QFileDialog& shown) { acceptName(shown, QStringLiteral("b.dat")); });
    QCOMPARE(dialog->show(m_window.get()), S_OK);
}

void tst_FileDialogControls::closedByAButton()
{
    const auto dialog = makeDialog();
    dialog->controls().AddPushButton(button, L"&Done");
    dialog->sink().whenTold = [&dialog](const QString& event) {
        return event == QLatin1String("button 1") ? (*dialog)->Close(S_OK) : S_OK;
    };
    DialogDriver driver;
    driver.onDialog<QFileDialog>("press", [](QFileDialog& shown) {
        typeName(shown, QStringLiteral("a.dat"));
        QTest::keyClick(&shown, Qt::Key_D, Qt::AltModifier);
    });
    QCOMPARE(dialog->show(m_window.get()), S_OK);
    QCOMPARE(dialog->result(), QString());
    QCOMPARE(dialog->sink().events, (QStringList{"folder", "button 1"}));
}

// The accept button's menu

void tst_FileDialogControls::menuByMouse()
{
    const auto dialog = makeDialog();
    addItems(*dialog);
    DialogDriver driver;
    driver.onDialog<QFileDialog>("pick", [](QFileDialog& shown) {
        typeName(shown, QStringLiteral("a.dat"));
        QCOMPARE(arrow(shown).accessibleName(), QStringLiteral("More ways to open"));
        QCOMPARE(menuTexts(shown), (QStringList{"&Open", "Open &read-only", "Open a &copy"}));
        whenMenuIsOpen([](QMenu& open) {
            QTest::mouseClick(&open, Qt::LeftButton, Qt::NoModifier,
                              open.actionGeometry(open.actions().at(2)).center());
        });
        QTest::mouseClick(&arrow(shown), Qt::LeftButton);
    });
    QCOMPARE(dialog->show(m_window.get()), S_OK);
    QCOMPARE(dialog->sink().events, (QStringList{"folder", "item 3 12", "ok"}));
    QCOMPARE(dialog->selectedItem(menu), qint64(CopyItem));
    QCOMPARE(dialog->result(), m_folders->path(QStringLiteral("a.dat")));
}

void tst_FileDialogControls::menuByKeyboard_data()
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

void tst_FileDialogControls::menuByKeyboard()
{
    QFETCH(bool, onArrow);
    QFETCH(int, key);
    QFETCH(int, modifiers);
    const auto dialog = makeDialog();
    addItems(*dialog);
    DialogDriver driver;
    driver.onDialog<QFileDialog>("pick", [=](QFileDialog& shown) {
        typeName(shown, QStringLiteral("a.dat"));
        QWidget& start = onArrow ? static_cast<QWidget&>(arrow(shown)) : acceptButton(shown);
        takeKeyboardFocus(start);
        pickRow(1);
        QTest::keyClick(&start, Qt::Key(key), Qt::KeyboardModifiers(modifiers));
    });
    QCOMPARE(dialog->show(m_window.get()), S_OK);
    QCOMPARE(dialog->sink().events, (QStringList{"folder", "item 3 11", "ok"}));
    QCOMPARE(dialog->selectedItem(menu), qint64(ReadOnlyItem));
}

void tst_FileDialogControls::acceptButtonStandsForTheFirstItem()
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

void tst_FileDialogControls::saveMenu()
{
    const auto dialog = makeDialog(CLSID_FileSaveDialog);
    dialog->controls().EnableOpenDropDown(menu);
    dialog->controls().AddControlItem(menu, PlainItem, L"&Save");
    dialog->controls().AddControlItem(menu, CopyItem, L"Save a &copy");
    DialogDriver driver;
    driver.onDialog<QFileDialog>("pick", [](QFileDialog& shown) {
        QCOMPARE(arrow(shown).accessibleName(), QStringLiteral("More ways to save"));
        typeName(shown, QStringLiteral("a.dat"));
        pickRow(1);
        QTest::mouseClick(&arrow(shown), Qt::LeftButton);
    });
    driver.onDialog<QMessageBox>("no", [&dialog](QMessageBox& question) {
        QCOMPARE(dialog->sink().events, QStringList{"folder"});
        question.button(QMessageBox::No)->click();
    });
    driver.onDialog<QFileDialog>("pick again", [&dialog](QFileDialog& shown) {
        QCOMPARE(dialog->sink().events, QStringList{"folder"}); // the first choice only entered a folder
        typeName(shown, QStringLiteral("new.dat"));
        pickRow(1);
        QTest::mouseClick(&arrow(shown), Qt::LeftButton);
    });
    QCOMPARE(dialog->show(m_window.get()), S_OK);
    QCOMPARE(dialog->sink().events, (QStringList{"folder", "item 3 12", "ok"}));
    QCOMPARE(dialog->result(), m_folders->path(QStringLiteral("new.dat")));
}

/// Entering a folder does not close the dialog, whichever button or item the user pressed.
void tst_FileDialogControls::menuAndFolders()
{
    const auto dialog = makeDialog();
    addItems(*dialog);
    DialogDriver driver;
    driver.onDialog<QFileDialog>("go", [](QFileDialog& shown) {
        typeName(shown, QStringLiteral("deeper"));
        pickRow(1);
        QTest::mouseClick(&arrow(shown), Qt::LeftButton);
    });
    const QString deeper = m_folders->path(QStringLiteral("deeper"));
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

void tst_FileDialogControls::menuNeedsSomethingAcceptable()
{
    const auto dialog = makeDialog();
    addItems(*dialog);
    DialogDriver driver;
    driver.onDialog<QFileDialog>("look", [](QFileDialog& shown) {
        typeName(shown, QStringLiteral("missing"));
        QVERIFY(!acceptButton(shown).isEnabled());
        QVERIFY(!arrow(shown).isEnabled());
        typeName(shown, QStringLiteral("a.dat"));
        QVERIFY(arrow(shown).isEnabled());
        cancel(shown);
    });
    dialog->show(m_window.get());
}

void tst_FileDialogControls::menuAndRefusal()
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
        pickRow(1);
        QTest::mouseClick(&arrow(shown), Qt::LeftButton);
    });
    driver.onDialogWhen<QFileDialog>(
        "the button itself", [&asked](QFileDialog&) { return asked == 1; },
        [](QFileDialog& shown) { acceptButton(shown).click(); });
    QCOMPARE(dialog->show(m_window.get()), S_OK);
    QCOMPARE(dialog->sink().events, (QStringList{"folder", "item 3 11", "ok", "ok"}));
    QCOMPARE(dialog->selectedItem(menu), qint64(PlainItem));
}

void tst_FileDialogControls::menuChangesWhileOpen()
{
    const auto dialog = makeDialog();
    IFileDialogCustomize& controls = dialog->controls();
    controls.AddPushButton(button, L"Action");
    DialogDriver driver;
    driver.onDialog<QFileDialog>("change", [&](QFileDialog& shown) {
        typeName(shown, QStringLiteral("a.dat"));
        const int plainWidth = acceptButton(shown).minimumWidth();
        QVERIFY(!arrow(shown).isVisible());
        QTest::keyClick(&acceptButton(shown), Qt::Key_Down); // the menu is empty and does not open
        addItems(*dialog);
        QVERIFY(arrow(shown).isVisible());
        QVERIFY(acceptButton(shown).minimumWidth() > plainWidth);
        controls.SetControlItemState(menu, ReadOnlyItem, CDCS_ENABLED);
        QCOMPARE(menuTexts(shown), (QStringList{"&Open", "Open a &copy"}));
        controls.SetControlItemState(menu, CopyItem, CDCS_VISIBLE);
        QVERIFY(!arrow(shown).menu()->actions().at(1)->isEnabled());
        controls.SetControlItemText(menu, CopyItem, L"Other");
        QCOMPARE(menuTexts(shown), (QStringList{"&Open", "Other"}));
        controls.RemoveControlItem(menu, CopyItem);
        QCOMPARE(menuTexts(shown), QStringList{"&Open"});
        controls.SetControlState(menu, CDCS_VISIBLE);
        QVERIFY(arrow(shown).isVisible() && !arrow(shown).isEnabled() && acceptButton(shown).isEnabled());
        controls.SetControlState(menu, CDCS_ENABLED);
        QVERIFY(!arrow(shown).isVisible());
        QCOMPARE(acceptButton(shown).minimumWidth(), plainWidth);
        controls.SetControlState(menu, CDCS_ENABLEDVISIBLE);
        QVERIFY(arrow(shown).isVisible() && arrow(shown).isEnabled());
        controls.RemoveAllControlItems(menu);
        QVERIFY(!arrow(shown).isVisible());
        cancel(shown);
    });
    dialog->show(m_window.get());
}

void tst_FileDialogControls::labelOfTheAcceptButton()
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

void tst_FileDialogControls::closedUnderTheMenu()
{
    const auto dialog = makeDialog();
    addItems(*dialog);
    DialogDriver driver;
    driver.onDialog<QFileDialog>("open, close", [&dialog](QFileDialog& shown) {
        typeName(shown, QStringLiteral("a.dat"));
        whenMenuIsOpen([&dialog](QMenu&) { (*dialog)->Close(E_FAIL); });
        QTest::mouseClick(&arrow(shown), Qt::LeftButton);
    });
    QCOMPARE(dialog->show(m_window.get()), E_FAIL);
    QVERIFY(!QApplication::activePopupWidget());
}

void tst_FileDialogControls::ownerDestroyedUnderTheMenu()
{
    const auto dialog = makeDialog();
    addItems(*dialog);
    DialogDriver driver;
    driver.onDialog<QFileDialog>("open, destroy", [this](QFileDialog& shown) {
        typeName(shown, QStringLiteral("a.dat"));
        whenMenuIsOpen([this](QMenu&) { m_window.reset(); });
        QTest::mouseClick(&arrow(shown), Qt::LeftButton);
    });
    QCOMPARE(dialog->show(m_window.get()), cancelledResult);
    QVERIFY(!QApplication::activePopupWidget());
}

UI_TEST_MAIN(tst_FileDialogControls)
#include "tst_FileDialogControls.moc"
