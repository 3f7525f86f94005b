#include "BuiltInDialogTest.h"

#include "DialogDriver.h"
#include "FileDialogActions.h"
#include "Keyboard.h"
#include "TestHome.h"

#include <QComboBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QTest>

/// Tests the file types and typed patterns.
class tst_FileDialogObjectTypes : public BuiltInDialogTest
{
    Q_OBJECT

private Q_SLOTS:
    void typeEvents();
    void typeDoesNotChangeTheName();
    void typeIndex_data();
    void typeIndex();
    void equalTypes();
    void typesFilterTheList_data();
    void typesFilterTheList();
    void typedPattern();
    void typedPatternInEachRun();
    void extensionOnTypeChange();
};

void tst_FileDialogObjectTypes::typeEvents()
{
    const auto dialog = makeDialogWithTypes();
    QCOMPARE((*dialog)->SetFileTypeIndex(2), S_OK);
    QList<int> indexes;
    dialog->sink().whenTold = [&dialog, &indexes](const QString& event) {
        if (event == QLatin1String("type"))
            indexes += dialog->typeIndex();
        return S_OK;
    };
    DialogDriver driver;
    driver.onDialog<QFileDialog>("pick", [&](QFileDialog& shown) {
        QCOMPARE(indexes, QList<int>()); // no event for the initial type
        QCOMPARE(shown.nameFilters(), (QStringList{"Data (*.dat)", "Tables (*.csv *.tab)", "All (*)"}));
        QCOMPARE(fileTypeCombo(shown).currentIndex(), 1);
        QCOMPARE(dialog->typeIndex(), 2);
        pickFilter(shown, 0);
        pickFilter(shown, 0); // no change
        QTest::keyClick(&fileTypeCombo(shown), Qt::Key_Down);
        QCOMPARE((*dialog)->SetFileTypeIndex(3), S_OK); // the program's own change
        QCOMPARE(fileTypeCombo(shown).currentIndex(), 2);
        QCOMPARE((*dialog)->SetFileTypeIndex(4), E_INVALIDARG);
        QCOMPARE((*dialog)->SetFileTypeIndex(0), E_INVALIDARG);
        QCOMPARE(dialog->typeIndex(), 3);
        cancel(shown);
    });
    dialog->show(m_window.get());
    QCOMPARE(indexes, (QList<int>{1, 2}));
    QCOMPARE(dialog->typeIndex(), 3); // the choice persists after the dialog has closed
}

/// Changing the extension is left to the application, which is notified of the type.
void tst_FileDialogObjectTypes::typeDoesNotChangeTheName()
{
    const auto dialog = makeDialogWithTypes(CLSID_FileSaveDialog);
    QVERIFY(dialog->setName(QStringLiteral("my.name.xyz")));
    DialogDriver driver;
    driver.onDialog<QFileDialog>("pick", [](QFileDialog& shown) {
        QCOMPARE(fileNameEdit(shown).text(), QStringLiteral("my.name.xyz"));
        pickFilter(shown, 1);
        QCOMPARE(fileNameEdit(shown).text(), QStringLiteral("my.name.xyz"));
        pressReturn(shown);
    });
    QCOMPARE(dialog->show(m_window.get()), S_OK);
    QCOMPARE(dialog->result(), path(QStringLiteral("my.name.xyz")));
}

void tst_FileDialogObjectTypes::typeIndex_data()
{
    QTest::addColumn<uint>("set");
    QTest::addColumn<int>("shown");
    QTest::newRow("first") << 1U << 1;
    QTest::newRow("last") << 3U << 3;
    QTest::newRow("none") << 0U << 1;
    QTest::newRow("one too many") << 4U << 1;
    QTest::newRow("huge") << 0xffffffffU << 1;
    QTest::newRow("changes its sign") << 0x80000000U << 1;
}

void tst_FileDialogObjectTypes::typeIndex()
{
    QFETCH(uint, set);
    QFETCH(int, shown);
    const auto dialog = makeDialogWithTypes();
    QCOMPARE((*dialog)->SetFileTypeIndex(set), S_OK);
    QCOMPARE(uint(dialog->typeIndex()), set);
    DialogDriver driver;
    driver.onDialog<QFileDialog>("look", [&dialog, shown](QFileDialog& fileDialog) {
        QCOMPARE(dialog->typeIndex(), shown);
        QCOMPARE(fileTypeCombo(fileDialog).currentIndex(), shown - 1);
        cancel(fileDialog);
    });
    dialog->show(m_window.get());
    QCOMPARE(dialog->typeIndex(), shown);
}

void tst_FileDialogObjectTypes::equalTypes()
{
    const BuiltInDialog dialog;
    QVERIFY(dialog.setTypes({{QStringLiteral("Data"), QStringLiteral("*.dat")},
                             {QStringLiteral("Data"), QStringLiteral("*.csv")},
                             {QStringLiteral("Data"), QStringLiteral("*.dat")},
                             {QStringLiteral("Data  "), QStringLiteral("*.dat")}}));
    QCOMPARE(dialog->SetFileTypeIndex(3), S_OK);
    DialogDriver driver;
    driver.onDialog<QFileDialog>("pick", [&dialog](QFileDialog& shown) {
        QCOMPARE(dialog.typeIndex(), 3);
        for (const int index : {3, 0, 2, 1}) {
            pickFilter(shown, index);
            QCOMPARE(dialog.typeIndex(), index + 1);
        }
        pickFilter(shown, 2);
        cancel(shown);
    });
    dialog.show(m_window.get());
    QCOMPARE(dialog.typeIndex(), 3);
    QCOMPARE(dialog.sink().events.count(QStringLiteral("type")), 5);

    driver.onDialog<QFileDialog>("again", [&dialog](QFileDialog& shown) {
        QCOMPARE(dialog.typeIndex(), 3);
        cancel(shown);
    });
    dialog.show(m_window.get());
}

void tst_FileDialogObjectTypes::typesFilterTheList_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("patterns");
    QTest::addColumn<QStringList>("listed");

    const QString data = QStringLiteral("*.dat");
    // clang-format off
    QTest::newRow("one pattern") << "Data" << data << QStringList{"a.dat", "b.dat", "deeper"};
    QTest::newRow("two patterns") << "Both" << "a.*;*.csv" << QStringList{"a.dat", "c.csv", "deeper"};
    QTest::newRow("no pattern") << "All" << "" << QStringList{"a.dat", "b.dat", "c.csv", "deeper", QStringLiteral(u"e f.\u00e4")};
    QTest::newRow("brackets in the name") << "Odd (one) (*.csv)" << data << QStringList{"a.dat", "b.dat", "deeper"};
    QTest::newRow("a name that says nothing of it") << "File of Type" << "*.csv" << QStringList{"c.csv", "deeper"};
    QTest::newRow("letters that QFileDialog does not know") << "Rest" << QStringLiteral(u"*.\u00e4") << QStringList{"deeper", QStringLiteral(u"e f.\u00e4")};
    QTest::newRow("blank in the pattern") << "Rest" << "e *" << QStringList{"deeper", QStringLiteral(u"e f.\u00e4")};
    // clang-format on
}

void tst_FileDialogObjectTypes::typesFilterTheList()
{
    QFETCH(QString, name);
    QFETCH(QString, patterns);
    QFETCH(QStringList, listed);
    m_folders->addFile(QStringLiteral(u"e f.\u00e4"));
    const auto dialog = makeDialog();
    QVERIFY(dialog->setTypes({{QStringLiteral("None"), QStringLiteral("none")}, {name, patterns}}));
    DialogDriver driver;
    const auto isListed = [&listed](QFileDialog& shown) { return listedNames(shown) == listed; };
    driver.onDialogWhen<QFileDialog>(
        "nothing", [](QFileDialog& shown) { return listedNames(shown) == QStringList{"deeper"}; },
        [](QFileDialog& shown) { pickFilter(shown, 1); });
    driver.onDialogWhen<QFileDialog>("listed", isListed, [](QFileDialog& shown) { cancel(shown); });
    driver.onDialogWhen<QFileDialog>("listed again", isListed, [](QFileDialog& shown) { cancel(shown); });
    dialog->show(m_window.get());
    dialog->show(m_window.get()); // starts with the type that was picked before
}

void tst_FileDialogObjectTypes::typedPattern()
{
    const auto dialog = makeDialogWithTypes();
    DialogDriver driver;
    driver.onDialog<QFileDialog>("pattern", [](QFileDialog& shown) { acceptName(shown, QStringLiteral("*.csv; b*")); });
    driver.onDialogWhen<QFileDialog>(
        "listed",
        [](QFileDialog& shown) {
            return listedNames(shown) == QStringList{"b.dat", "c.csv", "deeper"};
        },
        [&dialog](QFileDialog& shown) {
            QCOMPARE(dialog->typeIndex(), 1);
            pickFilter(shown, 0); // picking the same type ends the pattern
        });
    driver.onDialogWhen<QFileDialog>(
        "type again",
        [](QFileDialog& shown) {
            return listedNames(shown) == QStringList{"a.dat", "b.dat", "deeper"};
        },
        [](QFileDialog& shown) { cancel(shown); });
    QCOMPARE(dialog->show(m_window.get()), cancelledResult);
    QCOMPARE(dialog->sink().events, opened);
}

void tst_FileDialogObjectTypes::typedPatternInEachRun()
{
    const auto dialog = makeDialogWithTypes();
    const QStringList ofTheType{"a.dat", "b.dat", "deeper"};
    DialogDriver driver;
    for (int run = 0; run < 2; ++run) {
        driver.onDialogWhen<QFileDialog>(
            "list of the type", [&](QFileDialog& shown) { return listedNames(shown) == ofTheType; },
            [](QFileDialog& shown) {
                acceptName(shown, QStringLiteral("*.csv"));
                QCOMPARE(fileNameEdit(shown).selectedText(),
                         QStringLiteral("*.csv")); // selected, so that the user can type over it
            });
        driver.onDialogWhen<QFileDialog>(
            "list of the pattern",
            [](QFileDialog& shown) {
                return listedNames(shown) == QStringList{"c.csv", "deeper"};
            },
            [](QFileDialog& shown) { cancel(shown); });
        QCOMPARE(dialog->show(m_window.get()), cancelledResult);
        QVERIFY(driver.finished());
        QVERIFY(dialog->setName({})); // otherwise the next run would start with the pattern
    }
}

/// An application may adapt the extension of the name to the type.
void tst_FileDialogObjectTypes::extensionOnTypeChange()
{
    const auto dialog = makeDialogWithTypes(CLSID_FileSaveDialog);
    dialog->sink().whenTold = [&dialog](const QString& event) {
        if (event == QLatin1String("type"))
            dialog->setName(dialog->name().section(QLatin1Char('.'), 0, 0) + QStringLiteral(".csv"));
        return S_OK;
    };
    DialogDriver driver;
    driver.onDialog<QFileDialog>("type, pick", [](QFileDialog& shown) {
        typeName(shown, QStringLiteral("new.dat"));
        pickFilter(shown, 1);
        QCOMPARE(fileNameEdit(shown).text(), QStringLiteral("new.csv"));
        takeKeyboardFocus(fileNameEdit(shown));
        pressReturn(shown);
    });
    QCOMPARE(dialog->show(m_window.get()), S_OK);
    QCOMPARE(dialog->result(), path(QStringLiteral("new.csv")));
}

UI_TEST_MAIN(tst_FileDialogObjectTypes)
#include "tst_FileDialogObjectTypes.moc"
