#include "BuiltInDialogTest.h"

#include "ControlIds.h"
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
#include <QPushButton>
#include <QStyle>
#include <QTest>
#include <QToolButton>

#include <stdexcept>
#include <string>

namespace {

QWidget& bar(QFileDialog& dialog)
{
    return *dialog.findChild<QWidget*>(QStringLiteral("controlBar"));
}

} // namespace

/// Tests the push buttons and check boxes that were added to a dialog.
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

// In the open dialog

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
        auto* control = buttonNamed(shown, QStringLiteral("Action"));
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
        takeKeyboardFocus(*buttonNamed(shown, QStringLiteral("Action")));
        QTest::keyClick(&shown, Qt::Key_Return);
    });
    QCOMPARE(dialog->show(m_window.get()), S_OK);
    QCOMPARE(dialog->sink().events, (QStringList{"folder", "ok"}));
    QCOMPARE(dialog->result(), path(QStringLiteral("a.dat")));
}

void tst_FileDialogControls::checkButton()
{
    const auto dialog = makeDialog();
    dialog->controls().AddCheckButton(box, L"Option", TRUE);
    DialogDriver driver;
    driver.onDialog<QFileDialog>("toggle", [&dialog](QFileDialog& shown) {
        auto* control = qobject_cast<QCheckBox*>(buttonNamed(shown, QStringLiteral("Option")));
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
        buttonNamed(shown, QStringLiteral("Option"))->click();
        cancel(shown);
    });
    dialog->show(m_window.get());
    QVERIFY(dialog->isChecked(box));
    driver.onDialog<QFileDialog>("look", [](QFileDialog& shown) {
        QVERIFY(buttonNamed(shown, QStringLiteral("Option"))->isChecked());
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
        auto* control = buttonNamed(shown, QStringLiteral("Action"));
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
        auto* late = buttonNamed(shown, QStringLiteral("Late"));
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
    const auto roomBelow = [](QFileDialog& shown) {
        shown.layout()->activate();
        return shown.height() - fileTypeCombo(shown).geometry().bottom();
    };
    int roomWithoutControls = 0;
    DialogDriver driver;
    driver.onDialog<QFileDialog>("measure", [&](QFileDialog& shown) {
        roomWithoutControls = roomBelow(shown);
        cancel(shown);
    });
    makeDialog()->show(m_window.get());

    const auto dialog = makeDialog();
    IFileDialogCustomize& controls = dialog->controls();
    for (const DWORD id : {1U, 2U, 3U})
        controls.AddPushButton(id, std::to_wstring(id).c_str());
    driver.onDialog<QFileDialog>("hide", [&](QFileDialog& shown) {
        const auto lastX = [&shown] { return buttonNamed(shown, QStringLiteral("3"))->x(); };
        const int x = lastX();
        QVERIFY(roomBelow(shown) > roomWithoutControls);
        controls.SetControlState(2, CDCS_ENABLED);
        QTRY_VERIFY(lastX() < x);
        for (const DWORD id : {1U, 3U})
            controls.SetControlState(id, CDCS_ENABLED);
        QVERIFY(!bar(shown).isVisible());
        QTRY_COMPARE(roomBelow(shown), roomWithoutControls);
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
            const QRect place = buttonNamed(shown, QStringLiteral("A rather long label %1").arg(id))->geometry();
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
        auto* help = qobject_cast<QPushButton*>(buttonNamed(shown, QStringLiteral("&Help")));
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
        const QRect first = mirrored(*buttonNamed(shown, QStringLiteral("First")));
        const QRect second = mirrored(*buttonNamed(shown, QStringLiteral("Second")));
        QCOMPARE(first.left(), 0);
        QVERIFY(second.left() > first.right());
        QCOMPARE(mirrored(bar(shown)).left(), mirrored(fileNameEdit(shown)).left());

        const QPushButton& accept = acceptButton(shown);
        const QRect arrowPlace = mirrored(acceptMenuArrow(shown));
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
            buttonNamed(shown, QStringLiteral("Action"))->click();
        else if (event.startsWith(QLatin1String("check")))
            buttonNamed(shown, QStringLiteral("Option"))->click();
        else {
            pickFromMenu(1);
            QTest::mouseClick(&acceptMenuArrow(shown), Qt::LeftButton);
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

UI_TEST_MAIN(tst_FileDialogControls)
#include "tst_FileDialogControls.moc"
