#include "ui/qt/dialogs/QExtendedFileDialog.h"

#include "platform/ApplicationSettings.h"

#include "DialogDriver.h"
#include "DialogFolders.h"
#include "FileDialogActions.h"
#include "TestHome.h"

#include <QApplication>
#include <QComboBox>
#include <QFileSystemModel>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>

using zelmar::ApplicationSettings;

namespace {

const QString data = QStringLiteral("Data files (*.dat *.plt)");
const QString text = QStringLiteral("Texts (*.txt)");
const QString all = QStringLiteral("All files (*)");

QStringList activePatterns(const QFileDialog& dialog)
{
    return dialog.findChild<QFileSystemModel*>()->nameFilters();
}

/// Emits the signals that the file-type box emits when the user picks its current entry.
void pickAgain(QFileDialog& dialog)
{
    QComboBox& combo = fileTypeCombo(dialog);
    QVERIFY(QMetaObject::invokeMethod(&combo, "activated", Q_ARG(int, combo.currentIndex())));
    QVERIFY(QMetaObject::invokeMethod(&combo, "textActivated", Q_ARG(QString, combo.currentText())));
}

} // namespace

class tst_QExtendedFileDialogFilters : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void patternReplacesTheSelectedFilter_data();
    void patternReplacesTheSelectedFilter();
    void fileTypeBoxStaysSilent();
    void listShowsWhatMatches();
    void secondPatternReplacesTheFirst();
    void pickingAnotherFilterRestores_data();
    void pickingAnotherFilterRestores();
    void pickingTheTemporaryFilterKeepsIt();
    void questionMarkIsNoPattern();
    void nextRunStartsWithTheCallersFilters();
    void showStartsWithTheCallersFilters();
    void nextRunKeepsTheCallersChoice();
    void filtersSetMeanwhileWin();
    void patternThenAName();
    void equalFilters();
    void patternEqualToTheFilter();
    void withoutFilters();
    void hiddenPatterns();
    void hiddenPatternsPickedAgain();
    void typedTextStays_data();
    void typedTextStays();
    void preselectedNameStays();
    void restoringKeepsTheTypedName();

private:
    std::unique_ptr<QExtendedFileDialog> makeDialog(const QStringList& filters,
                                                    QFileDialog::AcceptMode mode = QFileDialog::AcceptOpen);

    DialogFolders m_folders;
    std::unique_ptr<QWidget> m_window;
};

void tst_QExtendedFileDialogFilters::initTestCase()
{
    for (const char* name : {"run1.dat", "run2.plt", "other.dat", "run.txt"})
        m_folders.addFile(QLatin1String(name));
}

void tst_QExtendedFileDialogFilters::init()
{
    ApplicationSettings::getInstance().setStore(std::make_unique<ApplicationSettings::MemoryStore>());
    m_window = std::make_unique<QWidget>();
}

void tst_QExtendedFileDialogFilters::cleanup()
{
    m_window.reset();
}

std::unique_ptr<QExtendedFileDialog> tst_QExtendedFileDialogFilters::makeDialog(const QStringList& filters,
                                                                                QFileDialog::AcceptMode mode)
{
    auto dialog = std::make_unique<QExtendedFileDialog>(*m_window, "Runs", m_folders.path().toStdString(),
                                                        filters.join(QStringLiteral(";;")).toStdString(), "", mode);
    dialog->show();
    return dialog;
}

void tst_QExtendedFileDialogFilters::patternReplacesTheSelectedFilter_data()
{
    QTest::addColumn<QStringList>("filters");
    QTest::addColumn<int>("selected");
    QTest::addColumn<QString>("pattern");
    QTest::addColumn<QString>("expected");

    // clang-format off
    QTest::newRow("first of three") << QStringList{data, text, all} << 0 << "run*" << "Data files (run*)";
    QTest::newRow("last of three") << QStringList{data, text, all} << 2 << "*.txt" << "All files (*.txt)";
    QTest::newRow("the only one") << QStringList{text} << 0 << "*" << "Texts (*)";
    QTest::newRow("no bracket") << QStringList{QStringLiteral("Everything"), all} << 0 << "a*" << "Everything(a*)";
    QTest::newRow("several patterns") << QStringList{data, all} << 0 << "run* *.txt" << "Data files (run* *.txt)";
    QTest::newRow("double blanks") << QStringList{data, all} << 0 << "run*  *.txt" << "Data files (run* *.txt)";
    QTest::newRow("question mark and asterisk") << QStringList{data} << 0 << "run?.*" << "Data files (run?.*)";
    // clang-format on
}

void tst_QExtendedFileDialogFilters::patternReplacesTheSelectedFilter()
{
    QFETCH(QStringList, filters);
    QFETCH(int, selected);
    QFETCH(QString, pattern);
    QFETCH(QString, expected);

    for (const auto mode : {QFileDialog::AcceptOpen, QFileDialog::AcceptSave}) {
        const auto dialog = makeDialog(filters, mode);
        QSignalSpy finished(dialog.get(), &QDialog::finished);
        dialog->selectNameFilter(filters[selected]);
        acceptName(*dialog, pattern);

        QStringList replaced = filters;
        replaced[selected] = expected;
        QCOMPARE(dialog->nameFilters(), replaced);
        QCOMPARE(dialog->selectedNameFilter(), expected);
        QCOMPARE(fileNameEdit(*dialog).text(), pattern);
        QVERIFY(dialog->isVisible());
        QCOMPARE(finished.count(), 0);
    }
}

/// The box must not emit signals for a typed pattern, because the user has not picked an entry.
void tst_QExtendedFileDialogFilters::fileTypeBoxStaysSilent()
{
    const auto dialog = makeDialog({data, all});
    dialog->selectNameFilter(all);
    QSignalSpy changed(&fileTypeCombo(*dialog), SIGNAL(currentIndexChanged(int)));
    QSignalSpy activated(&fileTypeCombo(*dialog), SIGNAL(activated(int)));
    acceptName(*dialog, QStringLiteral("run*"));
    QCOMPARE(dialog->selectedNameFilter(), QStringLiteral("All files (run*)"));
    QCOMPARE(changed.count(), 0);
    QCOMPARE(activated.count(), 0);
    pickFilter(*dialog, 0);
    QVERIFY(changed.count() > 0);
    QCOMPARE(activated.count(), 1);
}

void tst_QExtendedFileDialogFilters::listShowsWhatMatches()
{
    const auto dialog = makeDialog({data, all});
    QTRY_COMPARE(listedNames(*dialog),
                 (QStringList{QStringLiteral("other.dat"), QStringLiteral("run1.dat"), QStringLiteral("run2.plt")}));
    acceptName(*dialog, QStringLiteral("run*"));
    QTRY_COMPARE(listedNames(*dialog),
                 (QStringList{QStringLiteral("run.txt"), QStringLiteral("run1.dat"), QStringLiteral("run2.plt")}));
    acceptName(*dialog, QStringLiteral("nothing*"));
    QTRY_COMPARE(listedNames(*dialog), QStringList());
}

void tst_QExtendedFileDialogFilters::secondPatternReplacesTheFirst()
{
    const auto dialog = makeDialog({data, all});
    acceptName(*dialog, QStringLiteral("run*"));
    acceptName(*dialog, QStringLiteral("*.plt"));
    QCOMPARE(dialog->nameFilters(), (QStringList{QStringLiteral("Data files (*.plt)"), all}));
    QCOMPARE(dialog->selectedNameFilter(), QStringLiteral("Data files (*.plt)"));
    pickFilter(*dialog, 1);
    QCOMPARE(dialog->nameFilters(), (QStringList{data, all}));
    QCOMPARE(dialog->selectedNameFilter(), all);

    // The connections of both patterns are removed, and a third pattern works like the first.
    acceptName(*dialog, QStringLiteral("a*"));
    QCOMPARE(dialog->nameFilters(), (QStringList{data, QStringLiteral("All files (a*)")}));
    pickFilter(*dialog, 0);
    QCOMPARE(dialog->nameFilters(), (QStringList{data, all}));
    QCOMPARE(dialog->selectedNameFilter(), data);
}

void tst_QExtendedFileDialogFilters::pickingAnotherFilterRestores_data()
{
    QTest::addColumn<int>("typedOn");
    QTest::addColumn<int>("picked");

    QTest::newRow("one below") << 0 << 1;
    QTest::newRow("two below") << 0 << 2;
    QTest::newRow("one above") << 2 << 1;
    QTest::newRow("the first") << 1 << 0;
}

void tst_QExtendedFileDialogFilters::pickingAnotherFilterRestores()
{
    QFETCH(int, typedOn);
    QFETCH(int, picked);

    const QStringList filters{data, text, all};
    const auto dialog = makeDialog(filters);
    dialog->selectNameFilter(filters[typedOn]);
    acceptName(*dialog, QStringLiteral("run*"));
    pickFilter(*dialog, picked);
    QCOMPARE(dialog->nameFilters(), filters);
    QCOMPARE(dialog->selectedNameFilter(), filters[picked]);
}

void tst_QExtendedFileDialogFilters::pickingTheTemporaryFilterKeepsIt()
{
    const auto dialog = makeDialog({data, all});
    acceptName(*dialog, QStringLiteral("run*  *.txt"));
    const QStringList filters = dialog->nameFilters();
    const QString temporary = dialog->selectedNameFilter();
    pickAgain(*dialog);
    QCOMPARE(dialog->nameFilters(), filters);
    QCOMPARE(dialog->selectedNameFilter(), temporary);
    pickFilter(*dialog, 1);
    QCOMPARE(dialog->nameFilters(), (QStringList{data, all}));
}

void tst_QExtendedFileDialogFilters::questionMarkIsNoPattern()
{
    const auto dialog = makeDialog({data, all});
    dialog->performSelectedFileValidation(false);
    QSignalSpy accepted(dialog.get(), &QDialog::accepted);
    acceptName(*dialog, QStringLiteral("run?.dat"));
    QCOMPARE(accepted.count(), 1);
    QCOMPARE(dialog->nameFilters(), (QStringList{data, all}));
}

void tst_QExtendedFileDialogFilters::nextRunStartsWithTheCallersFilters()
{
    const auto dialog = makeDialog({data, text, all});
    dialog->hide();
    for (int run = 0; run < 2; ++run) {
        DialogDriver driver;
        driver.onDialog<QFileDialog>("pattern, then cancel", [](QFileDialog& running) {
            QCOMPARE(running.nameFilters(), (QStringList{data, text, all}));
            pickFilter(running, 1);
            acceptName(running, QStringLiteral("run*"));
            QCOMPARE(running.nameFilters(), (QStringList{data, QStringLiteral("Texts (run*)"), all}));
            cancel(running);
        });
        QCOMPARE(dialog->exec(), int(QDialog::Rejected));
    }
}

void tst_QExtendedFileDialogFilters::showStartsWithTheCallersFilters()
{
    const auto dialog = makeDialog({data, all});
    acceptName(*dialog, QStringLiteral("run*"));
    dialog->hide();
    dialog->show();
    QCOMPARE(dialog->nameFilters(), (QStringList{data, all}));
    QCOMPARE(dialog->selectedNameFilter(), data);
}

void tst_QExtendedFileDialogFilters::nextRunKeepsTheCallersChoice()
{
    const auto dialog = makeDialog({data, text, all});
    acceptName(*dialog, QStringLiteral("run*"));
    dialog->hide();
    dialog->selectNameFilter(all);
    dialog->show();
    QCOMPARE(dialog->nameFilters(), (QStringList{data, text, all}));
    QCOMPARE(dialog->selectedNameFilter(), all);
}

void tst_QExtendedFileDialogFilters::filtersSetMeanwhileWin()
{
    const auto dialog = makeDialog({data, all});
    acceptName(*dialog, QStringLiteral("run*"));
    dialog->hide();
    dialog->setNameFilters({text});
    dialog->show();
    QCOMPARE(dialog->nameFilters(), QStringList{text});
    acceptName(*dialog, QStringLiteral("a*"));
    dialog->show();
    QCOMPARE(dialog->nameFilters(), QStringList{text});
}

void tst_QExtendedFileDialogFilters::patternThenAName()
{
    const auto dialog = makeDialog({text, data, all});
    pickFilter(*dialog, 1);
    acceptName(*dialog, QStringLiteral("run*"));
    // Until the list is updated, Qt takes a name that the previous filter has hidden for the folder.
    QTRY_COMPARE(listedNames(*dialog),
                 (QStringList{QStringLiteral("run.txt"), QStringLiteral("run1.dat"), QStringLiteral("run2.plt")}));
    QSignalSpy accepted(dialog.get(), &QDialog::accepted);
    acceptName(*dialog, QStringLiteral("run1.dat"));
    QCOMPARE(accepted.count(), 1);
    QCOMPARE(dialog->selectedFiles(), QStringList{m_folders.path(QStringLiteral("run1.dat"))});
    // The temporary filter has the index of the filter that it replaces.
    QCOMPARE(dialog->nameFilters().indexOf(dialog->selectedNameFilter()), 1);
}

void tst_QExtendedFileDialogFilters::equalFilters()
{
    const QStringList filters{data, text, data, all};
    const auto dialog = makeDialog(filters);
    pickFilter(*dialog, 2);
    acceptName(*dialog, QStringLiteral("run*"));
    QCOMPARE(dialog->nameFilters(), (QStringList{QStringLiteral("Data files (run*)"), text, data, all}));
    QCOMPARE(dialog->selectedNameFilter(), QStringLiteral("Data files (run*)"));
    pickFilter(*dialog, 2);
    QCOMPARE(dialog->nameFilters(), filters);
    QCOMPARE(dialog->selectedNameFilter(), data);
}

void tst_QExtendedFileDialogFilters::patternEqualToTheFilter()
{
    const auto dialog = makeDialog({text, all});
    acceptName(*dialog, QStringLiteral("*.txt"));
    QCOMPARE(dialog->nameFilters(), (QStringList{text, all}));
    acceptName(*dialog, QStringLiteral("a*"));
    pickFilter(*dialog, 1);
    QCOMPARE(dialog->nameFilters(), (QStringList{text, all}));
    QCOMPARE(dialog->selectedNameFilter(), all);
}

void tst_QExtendedFileDialogFilters::withoutFilters()
{
    const auto dialog = makeDialog({all});
    dialog->setNameFilters({});
    acceptName(*dialog, QStringLiteral("run*"));
    QCOMPARE(dialog->nameFilters(), QStringList{QStringLiteral("(run*)")});
    acceptName(*dialog, QStringLiteral("*.plt"));
    QCOMPARE(dialog->nameFilters(), QStringList{QStringLiteral("(*.plt)")});
    QTRY_COMPARE(listedNames(*dialog), QStringList{QStringLiteral("run2.plt")});
    dialog->hide();
    dialog->show();
    QCOMPARE(dialog->nameFilters(), QStringList());
    QTRY_COMPARE(listedNames(*dialog).size(), 4);
}

void tst_QExtendedFileDialogFilters::hiddenPatterns()
{
    const auto dialog = makeDialog({data, text, all});
    dialog->setOption(QFileDialog::HideNameFilterDetails);
    dialog->setNameFilters({data, text, all});
    pickFilter(*dialog, 1);
    QCOMPARE(dialog->selectedNameFilter(), QStringLiteral("Texts"));
    acceptName(*dialog, QStringLiteral("run*"));
    QCOMPARE(dialog->nameFilters(), (QStringList{data, QStringLiteral("Texts (run*)"), all}));
    QCOMPARE(activePatterns(*dialog), QStringList{QStringLiteral("run*")});
    pickFilter(*dialog, 2);
    QCOMPARE(dialog->nameFilters(), (QStringList{data, text, all}));
    QCOMPARE(dialog->selectedNameFilter(), QStringLiteral("All files"));
    QCOMPARE(activePatterns(*dialog), QStringList{QStringLiteral("*")});
}

void tst_QExtendedFileDialogFilters::hiddenPatternsPickedAgain()
{
    const auto dialog = makeDialog({data, text});
    dialog->setOption(QFileDialog::HideNameFilterDetails);
    dialog->setNameFilters({data, text});
    acceptName(*dialog, QStringLiteral("run*"));
    pickAgain(*dialog);
    QCOMPARE(dialog->nameFilters(), (QStringList{QStringLiteral("Data files (run*)"), text}));
}

/// In save mode Qt changes the suffix of the typed name whenever a filter is selected.
void tst_QExtendedFileDialogFilters::typedTextStays_data()
{
    QTest::addColumn<QString>("pattern");

    QTest::newRow("one suffix") << "*.txt";
    QTest::newRow("two patterns") << "run*.txt run*.csv";
    QTest::newRow("two suffixes") << "run*.tar.gz";
    QTest::newRow("blanks around") << " run*.x ";
}

void tst_QExtendedFileDialogFilters::typedTextStays()
{
    QFETCH(QString, pattern);

    const auto dialog = makeDialog({QStringLiteral("Other (*.oth)"), data, all}, QFileDialog::AcceptSave);
    dialog->selectNameFilter(data);
    acceptName(*dialog, pattern);
    QCOMPARE(fileNameEdit(*dialog).text(), pattern);
}

void tst_QExtendedFileDialogFilters::preselectedNameStays()
{
    const auto dialog = makeDialog({QStringLiteral("Other (*.oth)"), data}, QFileDialog::AcceptSave);
    acceptName(*dialog, QStringLiteral("run*"));
    dialog->hide();
    dialog->selectFile(QStringLiteral("result.xyz"));
    dialog->show();
    QCOMPARE(fileNameEdit(*dialog).text(), QStringLiteral("result.xyz"));
}

void tst_QExtendedFileDialogFilters::restoringKeepsTheTypedName()
{
    const auto dialog = makeDialog({QStringLiteral("Other (*.oth)"), all}, QFileDialog::AcceptSave);
    acceptName(*dialog, QStringLiteral("run*"));
    typeName(*dialog, QStringLiteral("result.xyz"));
    // "All files" has no suffix, so that Qt does not change the name. Restoring the filters must not change it either.
    pickFilter(*dialog, 1);
    QCOMPARE(dialog->selectedNameFilter(), all);
    QCOMPARE(fileNameEdit(*dialog).text(), QStringLiteral("result.xyz"));
}

UI_TEST_MAIN(tst_QExtendedFileDialogFilters)
#include "tst_QExtendedFileDialogFilters.moc"
