#include "ViewMenu.h"

#include "darkPalette.h"

#include "TestHome.h"

#include <QActionGroup>
#include <QApplication>
#include <QSettings>
#include <QStyle>
#include <QtTest>

#include <algorithm>

using gallery::ViewMenu;

namespace {

/// Returns the entry with this text, from which "&" is left out, of the menu or of its submenus.
QAction* entry(const QMenu& menu, const QString& text)
{
    const auto actions = menu.findChildren<QAction*>();
    const auto found = std::find_if(actions.begin(), actions.end(),
                                    [&](QAction* action) { return action->text().remove('&') == text; });
    return found == actions.end() ? nullptr : *found;
}

/// Returns a text of the library in the current language.
QString libraryText()
{
    return QCoreApplication::translate("common_ui_qt", "File %1 already exists. Do you want to replace it?");
}

} // namespace

/// Triggers the entries of the menu, as the user does, and looks at the application object.
class tst_ViewMenu : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void darkColoursAreSwitchedBack();
    void directionIsSwitchedBack();
    void directionStaysWithAnotherLanguage();
    void libraryFollowsTheLanguage();
    void choicesAreRestored();
    void commandLineIsNotKept();
    void scaleIsUsedAtTheNextStart();
    void environmentGoesBeforeTheScale();
    void entriesHaveMnemonicsOfTheirOwn();
};

/// Uses settings of its own, because all programs share those of Windows.
void tst_ViewMenu::initTestCase()
{
    QCoreApplication::setApplicationName(QStringLiteral("tst_ViewMenu"));
    QSettings().clear();
}

void tst_ViewMenu::init()
{
    QSettings().clear();
    qunsetenv("QT_SCALE_FACTOR");
}

/// Leaves the application object as it was.
void tst_ViewMenu::cleanup()
{
    QSettings().clear();
    ViewMenu menu;
    entry(menu, "Deutsch")->trigger();
    entry(menu, "English")->trigger();
    QSettings().clear();
}

void tst_ViewMenu::darkColoursAreSwitchedBack()
{
    ViewMenu menu;
    const QPalette palette = QApplication::palette();
    const QString style = QApplication::style()->objectName();
    entry(menu, "Dark colours")->trigger();
    QCOMPARE(QApplication::palette().color(QPalette::Base), gallery::darkPalette().color(QPalette::Base));
    QVERIFY(palette != QApplication::palette());
    entry(menu, "Dark colours")->trigger();
    QCOMPARE(QApplication::palette(), palette);
    QCOMPARE(QApplication::style()->objectName(), style);
}

void tst_ViewMenu::directionIsSwitchedBack()
{
    ViewMenu menu;
    entry(menu, "Right to left")->trigger();
    QCOMPARE(QApplication::layoutDirection(), Qt::RightToLeft);
    entry(menu, "Right to left")->trigger();
    QCOMPARE(QApplication::layoutDirection(), Qt::LeftToRight);
}

void tst_ViewMenu::directionStaysWithAnotherLanguage()
{
    ViewMenu menu;
    entry(menu, "Right to left")->trigger();
    entry(menu, "Deutsch")->trigger();
    QCOMPARE(QApplication::layoutDirection(), Qt::RightToLeft);
    entry(menu, "Right to left")->trigger();
    QCOMPARE(QApplication::layoutDirection(), Qt::LeftToRight);
}

void tst_ViewMenu::libraryFollowsTheLanguage()
{
    ViewMenu menu;
    const QString english = libraryText();
    QStringList texts{english};
    for (const char* name : {"Deutsch", "Français", "Español", "Polski", "日本語 (J)", "中文 (C)"}) {
        entry(menu, QString::fromUtf8(name))->trigger();
        QVERIFY2(!texts.contains(libraryText()), name);
        texts += libraryText();
    }
    entry(menu, "English")->trigger();
    QCOMPARE(libraryText(), english);
}

void tst_ViewMenu::choicesAreRestored()
{
    const QPalette palette = QApplication::palette();
    const QString english = libraryText();
    {
        ViewMenu menu;
        for (const char* text : {"Dark colours", "Right to left", "Polski"})
            entry(menu, text)->trigger();
    }
    const QString polish = libraryText();
    {
        ViewMenu undoing;
        for (const char* text : {"Deutsch", "English"})
            entry(undoing, text)->trigger();
        QSettings().setValue("view/language", "pl");
        QApplication::setPalette(palette);
        QApplication::setLayoutDirection(Qt::LeftToRight);
    }
    QCOMPARE(libraryText(), english);

    ViewMenu menu;
    menu.restore();
    QCOMPARE(libraryText(), polish);
    QCOMPARE(QApplication::layoutDirection(), Qt::RightToLeft);
    QVERIFY(palette != QApplication::palette());
    for (const char* text : {"Dark colours", "Right to left", "Polski"}) {
        QVERIFY2(entry(menu, text)->isChecked(), text);
        entry(menu, text)->trigger();
    }
    QCOMPARE(QApplication::palette(), palette);
    QCOMPARE(QApplication::layoutDirection(), Qt::LeftToRight);
}

void tst_ViewMenu::commandLineIsNotKept()
{
    ViewMenu menu;
    menu.useDarkColours();
    QVERIFY(entry(menu, "Dark colours")->isChecked());
    QCOMPARE(QSettings().allKeys(), QStringList());
    entry(menu, "Dark colours")->trigger();
}

void tst_ViewMenu::scaleIsUsedAtTheNextStart()
{
    gallery::useChosenScale();
    QVERIFY(!qEnvironmentVariableIsSet("QT_SCALE_FACTOR"));
    ViewMenu menu;
    QVERIFY(entry(menu, "100 %")->isChecked());
    entry(menu, "150 %")->trigger();
    gallery::useChosenScale();
    QCOMPARE(qgetenv("QT_SCALE_FACTOR"), QByteArray("1.5"));
    QVERIFY(entry(ViewMenu(), "150 %")->isChecked());
}

void tst_ViewMenu::environmentGoesBeforeTheScale()
{
    ViewMenu menu;
    entry(menu, "200 %")->trigger();
    qputenv("QT_SCALE_FACTOR", "3");
    gallery::useChosenScale();
    QCOMPARE(qgetenv("QT_SCALE_FACTOR"), QByteArray("3"));
}

void tst_ViewMenu::entriesHaveMnemonicsOfTheirOwn()
{
    ViewMenu menu;
    QList<QMenu*> menus = menu.findChildren<QMenu*>();
    QCOMPARE(menus.size(), 2);
    menus.append(&menu);
    for (const QMenu* shown : qAsConst(menus)) {
        QStringList keys;
        const auto actions = shown->actions();
        for (const QAction* action : actions) {
            const QString key = QKeySequence::mnemonic(action->text()).toString();
            QVERIFY2(!key.isEmpty() && !keys.contains(key), qPrintable(action->text()));
            keys += key;
        }
    }
}

UI_TEST_MAIN(tst_ViewMenu)
#include "tst_ViewMenu.moc"
