#include "BuiltInDialogTest.h"

#include "DialogDriver.h"
#include "FileDialogActions.h"
#include "TestHome.h"

#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTreeView>

namespace {

/// Returns whether the list is sorted. The model sorts after it has read the folder, and rows move then.
bool isListSorted(QFileDialog& dialog)
{
    return listedNamesInOrder(dialog) == QStringList{"deeper", "a.dat", "b.dat", "c.csv"};
}

} // namespace

/// Tests the content of the file-name box, and the files that are chosen through it.
class tst_FileDialogObjectNames : public BuiltInDialogTest
{
    Q_OBJECT

private Q_SLOTS:
    void nameWhileOpen();
    void nameReplacesTheSelection();
    void preselectedName_data();
    void preselectedName();
    void preselectedNames();
    void namesWithQuotes_data();
    void namesWithQuotes();
    void nameWithQuoteIsNotOverwrittenUnasked();
    void refusedNameWithAQuote_data();
    void refusedNameWithAQuote();
    void defaultExtension();
    void several();
    void severalForSaving();
    void missingFile();
    void overwriting_data();
    void overwriting();
    void overwritingRefused();
};

void tst_FileDialogObjectNames::nameWhileOpen()
{
    const auto dialog = makeDialog();
    QVERIFY(dialog->setName(QStringLiteral("b.dat")));
    DialogDriver driver;
    driver.onDialog<QFileDialog>("type, set", [&dialog](QFileDialog& shown) {
        QCOMPARE(dialog->name(), QStringLiteral("b.dat"));
        typeName(shown, QStringLiteral(u"half \u6e2c"));
        QCOMPARE(dialog->name(), QStringLiteral(u"half \u6e2c"));
        QVERIFY(fileNameEdit(shown).hasFocus());
        QVERIFY(dialog->setName(QStringLiteral("a.dat")));
        QCOMPARE(fileNameEdit(shown).text(), QStringLiteral("a.dat"));
        QCOMPARE(dialog->name(), QStringLiteral("a.dat"));
        pressReturn(shown);
    });
    QCOMPARE(dialog->show(m_window.get()), S_OK);
    QCOMPARE(dialog->result(), path(QStringLiteral("a.dat")));
    QCOMPARE(dialog->name(), QStringLiteral("a.dat"));
}

void tst_FileDialogObjectNames::nameReplacesTheSelection()
{
    const auto dialog = makeDialog();
    QVERIFY(dialog->setOptions(FOS_ALLOWMULTISELECT));
    DialogDriver driver;
    driver.onDialogWhen<QFileDialog>("select, set", isListSorted, [&dialog](QFileDialog& shown) {
        selectInList(shown, QStringLiteral("b.dat"));
        QCOMPARE(dialog->name(), QStringLiteral("b.dat"));
        QVERIFY(dialog->setName(QStringLiteral("a.dat")));
        QCOMPARE(dialog->name(), QStringLiteral("a.dat"));
        acceptButton(shown).click();
    });
    QCOMPARE(dialog->show(m_window.get()), S_OK);
    QCOMPARE(dialog->results(), QStringList{path(QStringLiteral("a.dat"))});
}

void tst_FileDialogObjectNames::preselectedName_data()
{
    QTest::addColumn<QFileDialog::AcceptMode>("mode");
    QTest::addColumn<QString>("name"); // %1 is the folder
    QTest::addColumn<QString>("expected");

    QTest::newRow("plain") << QFileDialog::AcceptOpen << "a.dat"
                           << "a.dat";
    QTest::newRow("relative folder") << QFileDialog::AcceptOpen << "deeper/d.dat"
                                     << "deeper/d.dat";
    QTest::newRow("up and down") << QFileDialog::AcceptOpen << "deeper/../b.dat"
                                 << "b.dat";
    QTest::newRow("absolute path") << QFileDialog::AcceptOpen << "%1/deeper/d.dat"
                                   << "deeper/d.dat";
    QTest::newRow("new") << QFileDialog::AcceptSave << "new.dat"
                         << "new.dat";
    QTest::newRow("new in a relative folder") << QFileDialog::AcceptSave << "deeper/new.dat"
                                              << "deeper/new.dat";
    QTest::newRow("new with an absolute path") << QFileDialog::AcceptSave << "%1/deeper/new.dat"
                                               << "deeper/new.dat";
    QTest::newRow("blanks") << QFileDialog::AcceptSave << " my  run "
                            << " my  run ";
    QTest::newRow("non-ASCII") << QFileDialog::AcceptSave << QStringLiteral(u"\u6e2c\u5b9a.\u00e4")
                               << QStringLiteral(u"\u6e2c\u5b9a.\u00e4");
}

void tst_FileDialogObjectNames::preselectedName()
{
    QFETCH(QFileDialog::AcceptMode, mode);
    QFETCH(QString, name);
    QFETCH(QString, expected);
    const auto dialog = makeDialog(classOf(mode));
    QVERIFY(dialog->setName(name.contains(QLatin1String("%1")) ? name.arg(path()) : name));
    DialogDriver driver;
    driver.onDialog<QFileDialog>("accept", [](QFileDialog& shown) { pressReturn(shown); });
    QCOMPARE(dialog->show(m_window.get()), S_OK);
    QCOMPARE(QDir::cleanPath(dialog->result()), path(expected));
}

void tst_FileDialogObjectNames::preselectedNames()
{
    const auto dialog = makeDialog();
    QVERIFY(dialog->setOptions(FOS_ALLOWMULTISELECT));
    QVERIFY(dialog->setName(QStringLiteral("\"a.dat\" \"c.csv\" ")));
    DialogDriver driver;
    driver.onDialogWhen<QFileDialog>("accept", isListSorted, [](QFileDialog& shown) {
        auto* tree = shown.findChild<QTreeView*>(QStringLiteral("treeView"));
        QCOMPARE(tree->selectionModel()->selectedRows().size(), 2);
        pressReturn(shown);
    });
    QCOMPARE(dialog->show(m_window.get()), S_OK);
    QCOMPARE(dialog->results(), (QStringList{path(QStringLiteral("a.dat")), path(QStringLiteral("c.csv"))}));
}

void tst_FileDialogObjectNames::namesWithQuotes_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("one") << "5\" disk.dat";
    QTest::newRow("two") << "the \"best\" run.dat";
    QTest::newRow("at the end") << "run\"";
    QTest::newRow("apostrophe") << "it's.dat";
    QTest::newRow("backslash") << "a\\b.dat";
}

void tst_FileDialogObjectNames::namesWithQuotes()
{
    QFETCH(QString, name);
    for (const auto mode : {QFileDialog::AcceptSave, QFileDialog::AcceptOpen}) {
        const auto dialog = makeDialog(classOf(mode));
        DialogDriver driver;
        driver.onDialog<QFileDialog>("accept", [&name](QFileDialog& shown) { acceptName(shown, name); });
        QCOMPARE(dialog->show(m_window.get()), S_OK);
        QCOMPARE(dialog->result(), path(name));
        QCOMPARE(dialog->name(), name);
        m_folders->addFile(name); // so that the open dialog can accept it
    }
}

void tst_FileDialogObjectNames::nameWithQuoteIsNotOverwrittenUnasked()
{
    const QString name = QStringLiteral("5\" disk.dat");
    m_folders->addFile(name);
    const auto dialog = makeDialog(CLSID_FileSaveDialog);
    QVERIFY(dialog->setName(name));
    DialogDriver driver;
    for (const auto answer : {QMessageBox::No, QMessageBox::Yes}) {
        driver.onDialog<QFileDialog>("accept", [](QFileDialog& shown) { pressReturn(shown); });
        driver.onDialog<QMessageBox>("answer", [&name, answer](QMessageBox& box) {
            QVERIFY(box.text().contains(name));
            box.button(answer)->click();
        });
    }
    QCOMPARE(dialog->show(m_window.get()), S_OK);
    QCOMPARE(dialog->result(), path(name));
    QCOMPARE(dialog->sink().events, openedAndAccepted);
}

void tst_FileDialogObjectNames::refusedNameWithAQuote_data()
{
    QTest::addColumn<QStringList>("names"); // the last name is accepted
    QTest::newRow("then a plain name") << QStringList{"5\" disk.dat", "new.dat"};
    QTest::newRow("then another one") << QStringList{"5\" disk.dat", "3\" disk.dat"};
    QTest::newRow("then the same") << QStringList{"5\" disk.dat", "5\" disk.dat"};
    QTest::newRow("twice, then a plain name") << QStringList{"5\" disk.dat", "3\" disk.dat", "new.dat"};
    QTest::newRow("after a plain name") << QStringList{"new.dat", "5\" disk.dat"};
}

void tst_FileDialogObjectNames::refusedNameWithAQuote()
{
    QFETCH(QStringList, names);
    const auto dialog = makeDialog(CLSID_FileSaveDialog);
    QStringList chosen;
    dialog->sink().whenTold = [&](const QString& event) {
        if (event != QLatin1String("ok"))
            return S_OK;
        chosen += dialog->result();
        return chosen.size() < names.size() ? HRESULT(S_FALSE) : S_OK;
    };
    DialogDriver driver;
    QStringList paths;
    for (const QString& name : names) {
        driver.onDialog<QFileDialog>(name, [name](QFileDialog& shown) { acceptName(shown, name); });
        paths += path(name);
    }
    QCOMPARE(dialog->show(m_window.get()), S_OK);
    QCOMPARE(chosen, paths);
    QCOMPARE(dialog->result(), paths.last());
}

void tst_FileDialogObjectNames::defaultExtension()
{
    const auto dialog = makeDialog(CLSID_FileSaveDialog);
    QCOMPARE((*dialog)->SetDefaultExtension(L"dat"), S_OK);
    DialogDriver driver;
    driver.onDialog<QFileDialog>("accept", [](QFileDialog& shown) { acceptName(shown, QStringLiteral("new")); });
    QCOMPARE(dialog->show(m_window.get()), S_OK);
    QCOMPARE(dialog->result(), path(QStringLiteral("new.dat")));
}

void tst_FileDialogObjectNames::several()
{
    const auto dialog = makeDialog();
    QVERIFY(dialog->setOptions(FOS_ALLOWMULTISELECT));
    DialogDriver driver;
    driver.onDialogWhen<QFileDialog>("select, accept", isListSorted, [&dialog](QFileDialog& shown) {
        selectInList(shown, QStringLiteral("a.dat"));
        auto* tree = shown.findChild<QTreeView*>(QStringLiteral("treeView"));
        const QModelIndex next = tree->indexBelow(tree->currentIndex());
        QTest::mouseClick(tree->viewport(), Qt::LeftButton, Qt::ControlModifier, tree->visualRect(next).center());
        QCOMPARE(dialog->name(), QStringLiteral("\"a.dat\" \"b.dat\""));
        acceptButton(shown).click();
    });
    QCOMPARE(dialog->show(m_window.get()), S_OK);
    QVERIFY(driver.finished());
    QCOMPARE(dialog->results(), (QStringList{path(QStringLiteral("a.dat")), path(QStringLiteral("b.dat"))}));
    IShellItem* item = nullptr;
    QVERIFY(FAILED((*dialog)->GetResult(&item)));

    driver.onDialogWhen<QFileDialog>("one", isListSorted,
                                     [](QFileDialog& shown) { acceptName(shown, QStringLiteral("c.csv")); });
    QCOMPARE(dialog->show(m_window.get()), S_OK);
    QCOMPARE(dialog->result(), path(QStringLiteral("c.csv")));
    QCOMPARE(dialog->results(), QStringList{path(QStringLiteral("c.csv"))});
}

void tst_FileDialogObjectNames::severalForSaving()
{
    const auto dialog = makeDialog(CLSID_FileSaveDialog);
    QVERIFY(dialog->setOptions(FOS_ALLOWMULTISELECT | FOS_FILEMUSTEXIST));
    DialogDriver driver;
    driver.onDialog<QFileDialog>("look", [](QFileDialog& shown) {
        QCOMPARE(shown.acceptMode(), QFileDialog::AcceptSave);
        QCOMPARE(shown.fileMode(), QFileDialog::ExistingFiles);
        acceptName(shown, QStringLiteral("a.dat"));
    });
    QCOMPARE(dialog->show(m_window.get()), S_OK);
    QCOMPARE(dialog->result(), path(QStringLiteral("a.dat")));
}

void tst_FileDialogObjectNames::missingFile()
{
    for (const bool mustExist : {true, false}) {
        const auto dialog = makeDialog();
        QVERIFY(dialog->setOptions(0, mustExist ? 0 : FOS_FILEMUSTEXIST));
        DialogDriver driver;
        driver.onDialog<QFileDialog>("missing",
                                     [](QFileDialog& shown) { acceptName(shown, QStringLiteral("missing")); });
        if (mustExist) {
            driver.onDialog<QMessageBox>("warned", [](QMessageBox& box) { box.accept(); });
            driver.onDialog<QFileDialog>("cancel", [](QFileDialog& shown) { cancel(shown); });
        }
        QCOMPARE(dialog->show(m_window.get()), mustExist ? cancelledResult : S_OK);
        QCOMPARE(dialog->result(), mustExist ? QString() : path(QStringLiteral("missing")));
    }
}

void tst_FileDialogObjectNames::overwriting_data()
{
    QTest::addColumn<bool>("prompt");
    QTest::newRow("with a question") << true;
    QTest::newRow("without") << false;
}

void tst_FileDialogObjectNames::overwriting()
{
    QFETCH(bool, prompt);
    const auto dialog = makeDialog(CLSID_FileSaveDialog);
    QVERIFY(dialog->setOptions(0, prompt ? 0 : FOS_OVERWRITEPROMPT));
    DialogDriver driver;
    driver.onDialog<QFileDialog>("accept", [](QFileDialog& shown) { acceptName(shown, QStringLiteral("a.dat")); });
    if (prompt) {
        driver.onDialog<QMessageBox>("yes", [&dialog](QMessageBox& box) {
            QCOMPARE(dialog->sink().events, opened); // OnFileOk() comes later
            box.button(QMessageBox::Yes)->click();
        });
    }
    QCOMPARE(dialog->show(m_window.get()), S_OK);
    QCOMPARE(dialog->result(), path(QStringLiteral("a.dat")));
}

void tst_FileDialogObjectNames::overwritingRefused()
{
    const auto dialog = makeDialog(CLSID_FileSaveDialog);
    DialogDriver driver;
    driver.onDialog<QFileDialog>("accept", [](QFileDialog& shown) { acceptName(shown, QStringLiteral("a.dat")); });
    driver.onDialog<QMessageBox>("no", [](QMessageBox& box) { box.button(QMessageBox::No)->click(); });
    driver.onDialog<QFileDialog>("another", [](QFileDialog& shown) { acceptName(shown, QStringLiteral("new.dat")); });
    QCOMPARE(dialog->show(m_window.get()), S_OK);
    QCOMPARE(dialog->result(), path(QStringLiteral("new.dat")));
    QCOMPARE(dialog->sink().events, openedAndAccepted);
}

UI_TEST_MAIN(tst_FileDialogObjectNames)
#include "tst_FileDialogObjectNames.moc"
