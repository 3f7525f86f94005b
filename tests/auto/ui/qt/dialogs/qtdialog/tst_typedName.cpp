#include "ui/qt/dialogs/qtdialog/typedName_p.h"

#include "ui/qt/dialogs/LaunchFileDialog.h"
#include "ui/qt/dialogs/SaveFileDialog.h"
#include "ui/qt/dialogs/qtdialog/FileDialogWidgets_p.h"

#include "DialogDriver.h"
#include "DrawnDialogs.h"
#include "FileDialogActions.h"
#include "TestHome.h"

#include <QDir>
#include <QItemSelectionModel>
#include <QLineEdit>
#include <QListView>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QSignalSpy>
#include <QTreeView>
#include <QtTest>

#include <memory>

using namespace zelmar::internal;

namespace {

const QString pipe = QStringLiteral("run 12\" pipe");

QStringList sorted(QStringList names)
{
    names.sort();
    return names;
}

using Names = QVector<std::pair<const char*, QString>>;

const Names& plainNames()
{
    static const Names names{
        {"one quote", pipe},
        {"two quotes around a file's name", QStringLiteral("run \"old.dat\"")},
        {"all in quotes", QStringLiteral("\"run\"")},
        {"two names in quotes", QStringLiteral("\"run\" \"old.dat\"")},
        {"a blank at the end", QStringLiteral("12\" ")},
        {"a tilde at the start", QStringLiteral("~12\"")},
    };
    return names;
}

const Names& oddNames()
{
    static const Names names{
        {"two quotes", QStringLiteral("run \"best\" pipe")},
        {"two quotes around a folder's name", QStringLiteral("run \"folder\" pipe")},
        {"two quotes around an absolute name", QStringLiteral("run \"/tmp/pipe\"")},
        {"nothing between the quotes", QStringLiteral("run\"\"")},
        {"at the start", QStringLiteral("\"run")},
        {"at the start, before a file's name", QStringLiteral("\"old.dat")},
        {"at the end", QStringLiteral("run\"")},
        {"only a quote", QStringLiteral("\"")},
        {"a blank at the end, without quotes", QStringLiteral("run ")},
        {"a dash at the start", QStringLiteral("-12\"")},
        {"a dot at the start", QStringLiteral(".12\"")},
        {"not ASCII", QStringLiteral(u"12\" \u6e2c\u5b9a")},
        {"percent", QStringLiteral("12\" 100%20")},
    };
    return names;
}

/// Adds a row for each of `names` and each kind of dialog.
void addNameRows(const Names& names)
{
    QTest::addColumn<bool>("native");
    QTest::addColumn<QString>("name");
    for (const bool native : {false, true}) {
        for (const auto& name : names)
            QTest::addRow("%s: %s", native ? "native" : "drawn by Qt", name.first) << native << name.second;
    }
}

QModelIndex rowNamed(const QAbstractItemView& view, const QString& name)
{
    return view.model()
        ->match(view.model()->index(0, 0, view.rootIndex()), Qt::DisplayRole, name, 1, Qt::MatchExactly)
        .value(0);
}

/// Returns whether the list shows the folder and the file of every test in their final order. Before that, rows may
/// move.
bool listsTheFolder(QFileDialog& dialog)
{
    const auto* tree = dialog.findChild<QTreeView*>(QStringLiteral("treeView"));
    return tree->model()->rowCount(tree->rootIndex()) == 2 && rowNamed(*tree, QStringLiteral("folder")).row() == 0;
}

} // namespace

/// Tests names with double quotes in every kind and mode of file dialog.
class tst_typedName : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_place = std::make_unique<DrawnDialogs>(); }
    void cleanup() { QVERIFY(!QGuiApplication::overrideCursor()); }

    void savedAsTyped_data() { addNameRows(plainNames() + oddNames()); }
    void savedAsTyped();
    void savedByFlow_data() { addNameRows(plainNames()); }
    void savedByFlow();
    void preselectedInFlow_data()
    {
        // A line break cannot be typed with a key.
        addNameRows(plainNames() + Names{{"a line break", QStringLiteral("12\" a\nb")}});
    }
    void preselectedInFlow();
    void keepsTheNameWhenAFilterIsPicked_data() { DrawnDialogs::addKindRows(); }
    void keepsTheNameWhenAFilterIsPicked();
    void otherFolders_data();
    void otherFolders();
    void entersAFolder_data() { DrawnDialogs::addKindRows(); }
    void entersAFolder();
    void homeFolder();
    void defaultSuffix();
    void typedOverASelectedFile();
    void selectedFolderWins();

    void opensAnExistingFile_data();
    void opensAnExistingFile();
    void opensAFileFromTheList_data() { DrawnDialogs::addKindRows(); }
    void opensAFileFromTheList();
    void quotedNameOfOneFile();
    void severalAreStillSeparated_data() { DrawnDialogs::addKindRows(); }
    void severalAreStillSeparated();
    void preselectsSeveralWithQuotes_data() { DrawnDialogs::addKindRows(); }
    void preselectsSeveralWithQuotes();
    void refusesAMissingFile_data();
    void refusesAMissingFile();
    void choosesAFolder_data() { DrawnDialogs::addKindRows(); }
    void choosesAFolder();

    void asksBeforeOverwriting_data() { DrawnDialogs::addKindRows(); }
    void asksBeforeOverwriting();
    void asksAboutAHiddenFile();
    void dialogDestroyedDuringTheQuestion();
    void withoutValidation();
    void patternWithQuotes();
    void signalsAndUrls();
    void destroyedByASignal();

private:
    std::unique_ptr<DrawnDialogs> m_place;
};

// Saving

void tst_typedName::savedAsTyped()
{
    QFETCH(QString, name);
    const auto dialog = m_place->make(QFileDialog::AcceptSave);
    DialogDriver driver;
    driver.onDialog<QFileDialog>("accept", [&name](QFileDialog& shown) {
        typeName(shown, name);
        const QPushButton& save = acceptButton(shown);
        QVERIFY(save.isEnabled());
        QCOMPARE(save.text(), QStringLiteral("&Save"));
        pressReturn(shown);
    });
    QCOMPARE(dialog->exec(), int(QDialog::Accepted));
    QCOMPARE(dialog->selectedFiles(), QStringList{m_place->path(name)});
}

void tst_typedName::savedByFlow()
{
    QFETCH(QString, name);
    DrawnDialogs::useKindOfRow();
    SaveFileDialog flow(&m_place->window, "Save", m_place->path().toStdString(), "", "Data (*.dat)", "");
    DialogDriver driver;
    driver.onDialog<QFileDialog>("accept", [&name](QFileDialog& shown) { acceptName(shown, name); });
    QVERIFY(flow.launch());
    const QString expected = name.contains(QLatin1Char('.')) ? name : name + QStringLiteral(".dat");
    QCOMPARE(QString::fromStdString(flow.selectedFilename()), m_place->path(expected));
}

void tst_typedName::preselectedInFlow()
{
    QFETCH(QString, name);
    DrawnDialogs::useKindOfRow();
    SaveFileDialog flow(&m_place->window, "Save", m_place->path().toStdString(), name.toStdString(),
                        {"Data (*.dat)", "Tables (*.csv)"}, 1, "");
    DialogDriver driver;
    driver.onDialog<QFileDialog>("accept", [&name](QFileDialog& shown) {
        QCOMPARE(fileNameEdit(shown).text(), name);
        pressReturn(shown);
    });
    QVERIFY(flow.launch());
    const QString expected = name.contains(QLatin1Char('.')) ? name : name + QStringLiteral(".csv");
    QCOMPARE(QString::fromStdString(flow.selectedFilename()), m_place->path(expected));
}

/// The folder contains a file whose name is the part after the quote.
void tst_typedName::keepsTheNameWhenAFilterIsPicked()
{
    DrawnDialogs::useKindOfRow();
    m_place->folders.addFile(QStringLiteral("pipe.csv"));
    SaveFileDialog flow(&m_place->window, "Save", m_place->path().toStdString(), "12\"pipe.dat",
                        {"Data (*.dat)", "Tables (*.csv)"}, 0, "");
    DialogDriver driver;
    driver.onDialog<QFileDialog>("pick, accept", [](QFileDialog& shown) {
        pickFilter(shown, 1);
        QCOMPARE(fileNameEdit(shown).text(), QStringLiteral("12\"pipe.csv"));
        acceptButton(shown).click();
    });
    QVERIFY(flow.launch());
    QCOMPARE(QString::fromStdString(flow.selectedFilename()), m_place->path(QStringLiteral("12\"pipe.csv")));
}

void tst_typedName::otherFolders_data()
{
    QTest::addColumn<bool>("native");
    QTest::addColumn<bool>("absolute");
    QTest::addColumn<QString>("name");
    for (const bool native : {false, true}) {
        for (const bool absolute : {false, true}) {
            for (const char* name : {"folder/12\" pipe", "a \"b\" c/new", "a \"b\" c/12\"", "folder/../12\""})
                QTest::addRow("%s, %s: %s", native ? "native" : "drawn by Qt", absolute ? "absolute" : "relative", name)
                    << native << absolute << name;
        }
    }
}

void tst_typedName::otherFolders()
{
    QFETCH(bool, absolute);
    QFETCH(QString, name);
    m_place->folders.addFolder(QStringLiteral("a \"b\" c"));
    const auto dialog = m_place->make(QFileDialog::AcceptSave);
    DialogDriver driver;
    driver.onDialog<QFileDialog>("accept",
                                 [&](QFileDialog& shown) { acceptName(shown, absolute ? m_place->path(name) : name); });
    QCOMPARE(dialog->exec(), int(QDialog::Accepted));
    QCOMPARE(dialog->selectedFiles(), QStringList{QDir::cleanPath(m_place->path(name))});
}

void tst_typedName::entersAFolder()
{
    const QString folder = m_place->folders.addFolder(QStringLiteral("the \"folder\" 12\""));
    const auto dialog = m_place->make(QFileDialog::AcceptSave);
    DialogDriver driver;
    driver.onDialog<QFileDialog>("enter", [&](QFileDialog& shown) {
        typeName(shown, QStringLiteral("the \"folder\" 12\""));
        QCOMPARE(acceptButton(shown).text(), QStringLiteral("&Open"));
        pressReturn(shown);
        QVERIFY(shown.isVisible());
        QCOMPARE(shown.directory().absolutePath(), folder);
        acceptName(shown, QStringLiteral("new"));
    });
    QCOMPARE(dialog->exec(), int(QDialog::Accepted));
    QCOMPARE(dialog->selectedFiles(), QStringList{folder + QStringLiteral("/new")});
}

void tst_typedName::homeFolder()
{
    const auto dialog = m_place->makeQt(QFileDialog::AcceptSave);
    fileNameEdit(*dialog).setText(QStringLiteral("~/12\" pipe"));
    QCOMPARE(dialog->selectedFiles(), QStringList{QDir::homePath() + QStringLiteral("/12\" pipe")});
    m_place->folders.addFile(QStringLiteral("~/12\" pipe"));
    fileNameEdit(*dialog).setText(QStringLiteral("~/12\" pip"));
    fileNameEdit(*dialog).setText(QStringLiteral("~/12\" pipe"));
    QCOMPARE(dialog->selectedFiles(), QStringList{m_place->path(QStringLiteral("~/12\" pipe"))});
}

void tst_typedName::defaultSuffix()
{
    m_place->folders.addFolder(QStringLiteral("12\" folder"));
    const auto dialog = m_place->makeQt(QFileDialog::AcceptSave);
    dialog->setDefaultSuffix(QStringLiteral("dat"));
    fileNameEdit(*dialog).setText(pipe);
    QCOMPARE(dialog->selectedFiles(), QStringList{m_place->path(pipe + QStringLiteral(".dat"))});
    fileNameEdit(*dialog).setText(QStringLiteral("12\" a.csv"));
    QCOMPARE(dialog->selectedFiles(), QStringList{m_place->path(QStringLiteral("12\" a.csv"))});
}

/// A file that was selected before must not be saved to.
void tst_typedName::typedOverASelectedFile()
{
    const auto dialog = m_place->makeQt(QFileDialog::AcceptSave);
    DialogDriver driver;
    driver.onDialogWhen<QFileDialog>("select, type", listsTheFolder, [](QFileDialog& shown) {
        typeName(shown, QStringLiteral("old.dat"));
        QCOMPARE(FileDialogWidgets(shown).selection().selectedRows().size(), 1);
        typeName(shown, QStringLiteral("12\" pipe"));
        QCOMPARE(FileDialogWidgets(shown).selection().selectedRows().size(), 0);
        pressReturn(shown);
    });
    QCOMPARE(dialog->exec(), int(QDialog::Accepted));
    QCOMPARE(dialog->selectedFiles(), QStringList{m_place->path(QStringLiteral("12\" pipe"))});
}

/// A folder that is clicked in the list is entered, and the typed name stays, as for names without quotes.
void tst_typedName::selectedFolderWins()
{
    const auto dialog = m_place->makeQt(QFileDialog::AcceptSave);
    DialogDriver driver;
    driver.onDialogWhen<QFileDialog>("type, select", listsTheFolder, [this](QFileDialog& shown) {
        typeName(shown, pipe);
        auto* tree = shown.findChild<QTreeView*>(QStringLiteral("treeView"));
        const QModelIndex folder = rowNamed(*tree, QStringLiteral("folder"));
        QTest::mouseClick(tree->viewport(), Qt::LeftButton, {}, tree->visualRect(folder).center());
        QCOMPARE(FileDialogWidgets(shown).selection().selectedRows(), QModelIndexList{folder});
        QTest::mouseClick(&acceptButton(shown), Qt::LeftButton);
        QVERIFY(shown.isVisible());
        QCOMPARE(shown.directory().absolutePath(), m_place->path(QStringLiteral("folder")));
        QCOMPARE(fileNameEdit(shown).text(), pipe);
        pressReturn(shown);
    });
    QCOMPARE(dialog->exec(), int(QDialog::Accepted));
    QCOMPARE(dialog->selectedFiles(), QStringList{m_place->path(QStringLiteral("folder/") + pipe)});
}

// Opening

void tst_typedName::opensAnExistingFile_data()
{
    QTest::addColumn<bool>("native");
    QTest::addColumn<QFileDialog::FileMode>("mode");
    QTest::addColumn<QString>("name");
    for (const bool native : {false, true}) {
        for (const auto mode : {QFileDialog::ExistingFile, QFileDialog::ExistingFiles, QFileDialog::AnyFile}) {
            for (const char* name : {"run 12\" pipe.dat", "run \"old.dat\"", "\"old.dat", "run\"", ".12\""})
                QTest::addRow("%s, mode %d: %s", native ? "native" : "drawn by Qt", int(mode), name)
                    << native << mode << name;
        }
    }
}

void tst_typedName::opensAnExistingFile()
{
    QFETCH(QFileDialog::FileMode, mode);
    QFETCH(QString, name);
    m_place->folders.addFile(name);
    const auto dialog = m_place->make(QFileDialog::AcceptOpen);
    dialog->setFileMode(mode);
    DialogDriver driver;
    driver.onDialog<QFileDialog>("accept", [&name](QFileDialog& shown) {
        typeName(shown, name);
        QVERIFY(acceptButton(shown).isEnabled());
        pressReturn(shown);
    });
    QCOMPARE(dialog->exec(), int(QDialog::Accepted));
    QCOMPARE(dialog->selectedFiles(), QStringList{m_place->path(name)});
}

/// A click on the file must not select the one whose name is between the quotes.
void tst_typedName::opensAFileFromTheList()
{
    const QString name = QStringLiteral("a \"old.dat\" b");
    m_place->folders.addFile(name);
    const auto dialog = m_place->make(QFileDialog::AcceptOpen);
    dialog->setFileMode(QFileDialog::ExistingFile);
    DialogDriver driver;
    driver.onDialogWhen<QFileDialog>(
        "click",
        [name](QFileDialog& shown) {
            return rowNamed(*shown.findChild<QTreeView*>(QStringLiteral("treeView")), name).isValid();
        },
        [name](QFileDialog& shown) {
            auto* tree = shown.findChild<QTreeView*>(QStringLiteral("treeView"));
            tree->setFocus();
            tree->scrollTo(rowNamed(*tree, name));
            QTest::mouseClick(tree->viewport(), Qt::LeftButton, {}, tree->visualRect(rowNamed(*tree, name)).center());
            QCOMPARE(fileNameEdit(shown).text(), name);
            QTest::mouseClick(&acceptButton(shown), Qt::LeftButton);
        });
    QCOMPARE(dialog->exec(), int(QDialog::Accepted));
    QCOMPARE(dialog->selectedFiles(), QStringList{m_place->path(name)});
}

/// Quotes around the name of an existing file are not part of the name, as in QFileDialog.
void tst_typedName::quotedNameOfOneFile()
{
    const auto dialog = m_place->makeQt(QFileDialog::AcceptOpen);
    DialogDriver driver;
    driver.onDialog<QFileDialog>("accept",
                                 [](QFileDialog& shown) { acceptName(shown, QStringLiteral("\"old.dat\"")); });
    QCOMPARE(dialog->exec(), int(QDialog::Accepted));
    QCOMPARE(dialog->selectedFiles(), QStringList{m_place->path(QStringLiteral("old.dat"))});
}

void tst_typedName::severalAreStillSeparated()
{
    m_place->folders.addFile(QStringLiteral("b c.dat"));
    const auto dialog = m_place->make(QFileDialog::AcceptOpen);
    dialog->setFileMode(QFileDialog::ExistingFiles);
    DialogDriver driver;
    driver.onDialog<QFileDialog>(
        "accept", [](QFileDialog& shown) { acceptName(shown, QStringLiteral("\"old.dat\" \"b c.dat\"")); });
    QCOMPARE(dialog->exec(), int(QDialog::Accepted));
    QCOMPARE(sorted(dialog->selectedFiles()),
             (QStringList{m_place->path(QStringLiteral("b c.dat")), m_place->path(QStringLiteral("old.dat"))}));
}

void tst_typedName::preselectsSeveralWithQuotes()
{
    DrawnDialogs::useKindOfRow();
    m_place->folders.addFile(pipe);
    m_place->folders.addFile(QStringLiteral("a\"b\"c"));
    QVERIFY(QDir::setCurrent(m_place->path()));
    const std::vector<std::string> names{pipe.toStdString(), "a\"b\"c", "old.dat"};
    m_place->window.show();
    m_place->window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&m_place->window));
    DialogDriver driver;
    driver.onDialog<QFileDialog>("accept", [](QFileDialog& shown) { pressReturn(shown); });
    std::vector<std::string> files;
    int filter = -1;
    QVERIFY(zelmar::ui::LaunchFileDialog(files, filter, "Open", {"All (*)"}, names, false, true, 0));
    QStringList chosen;
    for (const std::string& file : files)
        chosen += QFileInfo(QString::fromStdString(file)).fileName();
    QCOMPARE(sorted(chosen), (QStringList{QStringLiteral("a\"b\"c"), QStringLiteral("old.dat"), pipe}));
    QVERIFY(QDir::setCurrent(QDir::homePath()));
}

void tst_typedName::refusesAMissingFile_data()
{
    QTest::addColumn<QFileDialog::FileMode>("mode");
    QTest::addColumn<QString>("name");
    // A file "old.dat" exists.
    QTest::newRow("one file") << QFileDialog::ExistingFile << "run \"old.dat\"";
    QTest::newRow("several files, a quote without its pair") << QFileDialog::ExistingFiles << "run 12\"";
}

void tst_typedName::refusesAMissingFile()
{
    QFETCH(QFileDialog::FileMode, mode);
    QFETCH(QString, name);
    const auto dialog = m_place->makeQt(QFileDialog::AcceptOpen);
    dialog->setFileMode(mode);
    DialogDriver driver;
    driver.onDialog<QFileDialog>("accept", [&name](QFileDialog& shown) {
        typeName(shown, name);
        QVERIFY(!acceptButton(shown).isEnabled());
        pressReturn(shown);
        QVERIFY(shown.isVisible());
        QCOMPARE(fileNameEdit(shown).text(), name);
        cancel(shown);
    });
    driver.onDialog<QMessageBox>("told", [&name](QMessageBox& box) {
        QCOMPARE(box.text(), name + QStringLiteral(" does not exist."));
        QTest::keyClick(&box, Qt::Key_Return);
    });
    QCOMPARE(dialog->exec(), int(QDialog::Rejected));
}

void tst_typedName::choosesAFolder()
{
    const QString folder = m_place->folders.addFolder(QStringLiteral("the \"folder\" 12\""));
    const auto dialog = m_place->make(QFileDialog::AcceptOpen);
    dialog->setFileMode(QFileDialog::Directory);
    DialogDriver driver;
    driver.onDialog<QFileDialog>("accept",
                                 [](QFileDialog& shown) { acceptName(shown, QStringLiteral("the \"folder\" 12\"")); });
    QCOMPARE(dialog->exec(), int(QDialog::Accepted));
    QCOMPARE(dialog->selectedFiles(), QStringList{folder});
}

// Checks

void tst_typedName::asksBeforeOverwriting()
{
    m_place->folders.addFile(pipe);
    const auto dialog = m_place->make(QFileDialog::AcceptSave);
    DialogDriver driver;
    for (const auto answer : {QMessageBox::No, QMessageBox::Yes}) {
        driver.onDialog<QFileDialog>("accept", [](QFileDialog& shown) { acceptName(shown, pipe); });
        driver.onDialog<QMessageBox>("answer", [answer](QMessageBox& box) {
            QVERIFY(box.text().contains(pipe));
            box.button(answer)->click();
        });
    }
    QCOMPARE(dialog->exec(), int(QDialog::Accepted));
    QCOMPARE(dialog->selectedFiles(), QStringList{m_place->path(pipe)});
}

/// The list does not show a hidden file and therefore cannot select it.
void tst_typedName::asksAboutAHiddenFile()
{
    const QString name = QStringLiteral(".12\" pipe");
    m_place->folders.addFile(name);
    const auto dialog = m_place->makeQt(QFileDialog::AcceptSave);
    DialogDriver driver;
    for (const auto answer : {QMessageBox::No, QMessageBox::Yes}) {
        driver.onDialog<QFileDialog>("accept", [&name](QFileDialog& shown) { acceptName(shown, name); });
        driver.onDialog<QMessageBox>("answer", [&name, answer](QMessageBox& box) {
            QVERIFY(box.text().contains(name));
            QCOMPARE(box.defaultButton(), static_cast<QPushButton*>(box.button(QMessageBox::No)));
            box.button(answer)->click();
        });
    }
    QCOMPARE(dialog->exec(), int(QDialog::Accepted));
    QCOMPARE(dialog->selectedFiles(), QStringList{m_place->path(name)});
}

void tst_typedName::dialogDestroyedDuringTheQuestion()
{
    const QString name = QStringLiteral(".12\" pipe");
    m_place->folders.addFile(name);
    QPointer<QExtendedFileDialog> dialog = m_place->makeQt(QFileDialog::AcceptSave).release();
    DialogDriver driver;
    driver.onDialog<QFileDialog>("accept", [&name](QFileDialog& shown) { acceptName(shown, name); });
    driver.onDialog<QMessageBox>("destroy", [&dialog](QMessageBox&) { delete dialog; });
    QCOMPARE(dialog->exec(), int(QDialog::Rejected));
    QVERIFY(!dialog);
}

void tst_typedName::withoutValidation()
{
    m_place->folders.addFile(QStringLiteral(".12\""));
    for (const char* name : {"run \"old.dat\"", ".12\""}) {
        const auto dialog = m_place->makeQt(QFileDialog::AcceptSave);
        dialog->performSelectedFileValidation(false);
        DialogDriver driver;
        driver.onDialog<QFileDialog>("accept", [name](QFileDialog& shown) { acceptName(shown, QLatin1String(name)); });
        QCOMPARE(dialog->exec(), int(QDialog::Accepted));
        QCOMPARE(dialog->selectedFiles(), QStringList{m_place->path(QLatin1String(name))});
    }
}

void tst_typedName::patternWithQuotes()
{
    m_place->folders.addFile(QStringLiteral("12\" pipe.dat"));
    m_place->folders.addFile(QStringLiteral("12 pipe.dat"));
    const auto dialog = m_place->makeQt(QFileDialog::AcceptOpen);
    DialogDriver driver;
    driver.onDialog<QFileDialog>("pattern", [](QFileDialog& shown) { acceptName(shown, QStringLiteral("12\"*")); });
    driver.onDialogWhen<QFileDialog>(
        "listed",
        [](QFileDialog& shown) {
            const auto* list = shown.findChild<QListView*>(QStringLiteral("listView"));
            return list->model()->rowCount(list->rootIndex()) == 2; // includes the folder
        },
        [](QFileDialog& shown) {
            QCOMPARE(shown.selectedNameFilter(), QStringLiteral("All Files (12\"*)"));
            pickFilter(shown, 0); // picks the same filter again
            const auto* list = shown.findChild<QListView*>(QStringLiteral("listView"));
            QTRY_COMPARE(list->model()->rowCount(list->rootIndex()), 2);
            cancel(shown);
        });
    QCOMPARE(dialog->exec(), int(QDialog::Rejected));
}

void tst_typedName::signalsAndUrls()
{
    const auto dialog = m_place->makeQt(QFileDialog::AcceptSave);
    QSignalSpy one(dialog.get(), &QFileDialog::fileSelected);
    QSignalSpy all(dialog.get(), &QFileDialog::filesSelected);
    DialogDriver driver;
    driver.onDialog<QFileDialog>("accept", [](QFileDialog& shown) { acceptName(shown, pipe); });
    QCOMPARE(dialog->exec(), int(QDialog::Accepted));
    QCOMPARE(one, QList<QVariantList>{{m_place->path(pipe)}});
    QCOMPARE(all, QList<QVariantList>{{QVariant(QStringList{m_place->path(pipe)})}});
    QCOMPARE(dialog->selectedUrls(), QList<QUrl>{QUrl::fromLocalFile(m_place->path(pipe))});
}

void tst_typedName::destroyedByASignal()
{
    QPointer<QExtendedFileDialog> dialog = m_place->makeQt(QFileDialog::AcceptSave).release();
    connect(dialog, &QFileDialog::filesSelected, this, [&dialog] { delete dialog; });
    DialogDriver driver;
    driver.onDialog<QFileDialog>("accept", [](QFileDialog& shown) { acceptName(shown, pipe); });
    QCOMPARE(dialog->exec(), int(QDialog::Rejected));
}

UI_TEST_MAIN(tst_typedName)
#include "tst_typedName.moc"
