#include "ui/qt/dialogs/qtdialog/AcceptButtonGuide_p.h"

#include "ui/qt/dialogs/SaveFileDialog.h"

#include "DialogDriver.h"
#include "DrawnDialogs.h"
#include "FileDialogActions.h"
#include "TestHome.h"
#include "systemLimits.h"

#include <QDir>
#include <QFileSystemModel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QtTest>

#include <memory>

using namespace zelmar::internal;

namespace {

/// Returns the explanation that the accept button and the file-name box show, or "different texts" if they differ.
QString reason(QFileDialog& dialog)
{
    QString said = acceptButton(dialog).accessibleDescription();
    if (said != fileNameEdit(dialog).accessibleDescription() || said != acceptButton(dialog).toolTip()
        || said != fileNameEdit(dialog).toolTip())
        return QStringLiteral("different texts");
    return said;
}

const QString tooLong = systemLimits::nativeDialogIsTheSystems
                            ? QStringLiteral("The name is longer than the file system allows (255 characters).")
                            : QStringLiteral("The name is longer than the file system allows (255 bytes).");

} // namespace

class tst_AcceptButtonGuide : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_place = std::make_unique<DrawnDialogs>(); }

    void tellsWhyWhileSaving_data() { DrawnDialogs::addKindRows(); }
    void tellsWhyWhileSaving();
    void refusesTooManyBytes_data() { DrawnDialogs::addKindRows(); }
    void refusesTooManyBytes();
    void missingFolderIsAskedAbout_data() { DrawnDialogs::addKindRows(); }
    void missingFolderIsAskedAbout();
    void tellsWhyWhileOpening_data() { DrawnDialogs::addKindRows(); }
    void tellsWhyWhileOpening();
    void followsTheShownFolder();
    void leavesTheApplicationsTexts();
    void showsNamesAsTheyAre();
    void withoutValidation();
    void enablesForAFileThatComesLater_data();
    void enablesForAFileThatComesLater();
    void leavesTheButtonsTextAlone();
    void leavesTheLastWordToTheApplication();

private:
    std::unique_ptr<DrawnDialogs> m_place;
};

/// Changes the name by single key presses around the limit.
void tst_AcceptButtonGuide::tellsWhyWhileSaving()
{
    const auto dialog = m_place->make(QFileDialog::AcceptSave);
    DialogDriver driver;
    driver.onDialog<QFileDialog>("type", [this](QFileDialog& shown) {
        QCOMPARE(reason(shown), QString());
        typeName(shown, QString(255, QLatin1Char('x')));
        QCOMPARE(reason(shown), QString());
        QVERIFY(acceptButton(shown).isEnabled());
        QTest::keyClick(&fileNameEdit(shown), Qt::Key_X);
        QCOMPARE(reason(shown), tooLong);
        QVERIFY(!acceptButton(shown).isEnabled());
        pressReturn(shown);
        QVERIFY(shown.isVisible());
        QTest::keyClick(&fileNameEdit(shown), Qt::Key_Backspace);
        QCOMPARE(reason(shown), QString());
        QVERIFY(acceptButton(shown).isEnabled());

        typeName(shown, QStringLiteral("missing/deeper/new"));
        const QString missing = QDir::toNativeSeparators(m_place->path(QStringLiteral("missing")));
        QCOMPARE(reason(shown), QStringLiteral("The folder %1 does not exist.").arg(missing));
        QVERIFY(acceptButton(shown).isEnabled());
        typeName(shown, QStringLiteral("old.dat/new"));
        const QString file = QDir::toNativeSeparators(m_place->path(QStringLiteral("old.dat")));
        QCOMPARE(reason(shown), QStringLiteral("%1 is not a folder.").arg(file));
        typeName(shown, QStringLiteral("folder/new"));
        QCOMPARE(reason(shown), QString());
        typeName(shown, QStringLiteral("folder"));
        QCOMPARE(reason(shown), QString());
        typeName(shown, QStringLiteral("missing/new*"));
        QCOMPARE(reason(shown), QString());
        cancel(shown);
    });
    QCOMPARE(dialog->exec(), int(QDialog::Rejected));
}

/// QFileDialog counts UTF-16 code units, whereas the file system counts bytes.
void tst_AcceptButtonGuide::refusesTooManyBytes()
{
    if (systemLimits::nativeDialogIsTheSystems)
        QSKIP("the file system counts as QFileDialog does");
    const auto dialog = m_place->make(QFileDialog::AcceptSave);
    DialogDriver driver;
    driver.onDialog<QFileDialog>("type", [](QFileDialog& shown) {
        acceptName(shown, QString(200, QChar(0xe4)));
        QVERIFY(shown.isVisible());
        QVERIFY(!acceptButton(shown).isEnabled());
        QCOMPARE(reason(shown), tooLong);
        acceptName(shown, QString(127, QChar(0xe4)));
        QVERIFY(!shown.isVisible());
    });
    QCOMPARE(dialog->exec(), int(QDialog::Accepted));
}

/// The button stays enabled, because the flow asks a question about such a name.
void tst_AcceptButtonGuide::missingFolderIsAskedAbout()
{
    DrawnDialogs::useKindOfRow();
    SaveFileDialog flow(&m_place->window, "Save", m_place->path().toStdString(), "", "Data (*.dat)", "");
    DialogDriver driver;
    driver.onDialog<QFileDialog>("accept",
                                 [](QFileDialog& shown) { acceptName(shown, QStringLiteral("missing/new")); });
    driver.onDialog<QMessageBox>("again", [this](QMessageBox& box) {
        QVERIFY(box.text().startsWith(QStringLiteral("Unable to save file %1, check access permissions")
                                          .arg(m_place->path(QStringLiteral("missing/new.dat")))));
        box.button(QMessageBox::Yes)->click();
    });
    driver.onDialog<QFileDialog>("reason", [this](QFileDialog& shown) {
        const QString missing = QDir::toNativeSeparators(m_place->path(QStringLiteral("missing")));
        QCOMPARE(reason(shown), QStringLiteral("The folder %1 does not exist.").arg(missing));
        cancel(shown);
    });
    QVERIFY(!flow.launch());
}

void tst_AcceptButtonGuide::tellsWhyWhileOpening()
{
    const auto dialog = m_place->make(QFileDialog::AcceptOpen);
    dialog->setFileMode(QFileDialog::ExistingFile);
    DialogDriver driver;
    driver.onDialog<QFileDialog>("type", [](QFileDialog& shown) {
        QCOMPARE(reason(shown), QString());
        typeName(shown, QStringLiteral("old.da"));
        QCOMPARE(reason(shown), QStringLiteral("old.da does not exist."));
        QVERIFY(!acceptButton(shown).isEnabled());
        QTest::keyClick(&fileNameEdit(shown), Qt::Key_T);
        QCOMPARE(reason(shown), QString());
        QVERIFY(acceptButton(shown).isEnabled());
        cancel(shown);
    });
    QCOMPARE(dialog->exec(), int(QDialog::Rejected));
}

void tst_AcceptButtonGuide::followsTheShownFolder()
{
    const auto dialog = m_place->makeQt(QFileDialog::AcceptSave);
    fileNameEdit(*dialog).setText(QStringLiteral("folder/new"));
    QCOMPARE(reason(*dialog), QString());
    dialog->setDirectory(m_place->path(QStringLiteral("folder")));
    QVERIFY(reason(*dialog).contains(QStringLiteral("does not exist")));
    QVERIFY(QDir(m_place->path(QStringLiteral("folder"))).mkdir(QStringLiteral("folder")));
    dialog->show(); // The model now reports the new folder.
    QTRY_COMPARE(reason(*dialog), QString());
}

void tst_AcceptButtonGuide::leavesTheApplicationsTexts()
{
    const auto dialog = m_place->makeQt(QFileDialog::AcceptSave);
    acceptButton(*dialog).setToolTip(QStringLiteral("Writes the run"));
    fileNameEdit(*dialog).setAccessibleDescription(QStringLiteral("Name of the run"));
    fileNameEdit(*dialog).setText(QStringLiteral("missing/new"));
    QVERIFY(acceptButton(*dialog).toolTip().contains(QStringLiteral("does not exist")));
    fileNameEdit(*dialog).setText(QStringLiteral("gone/new"));
    QVERIFY(acceptButton(*dialog).toolTip().contains(QStringLiteral("gone")));
    fileNameEdit(*dialog).setText(QStringLiteral("new"));
    QCOMPARE(acceptButton(*dialog).toolTip(), QStringLiteral("Writes the run"));
    QCOMPARE(fileNameEdit(*dialog).accessibleDescription(), QStringLiteral("Name of the run"));

    fileNameEdit(*dialog).setText(QStringLiteral("missing/new"));
    acceptButton(*dialog).setToolTip(QStringLiteral("Set meanwhile"));
    fileNameEdit(*dialog).setText(QStringLiteral("new"));
    QCOMPARE(acceptButton(*dialog).toolTip(), QStringLiteral("Set meanwhile"));
}

/// A tool tip would interpret "<b>" as markup.
void tst_AcceptButtonGuide::showsNamesAsTheyAre()
{
    if (systemLimits::noOddNames)
        QSKIP(systemLimits::noOddNames);
    const auto dialog = m_place->makeQt(QFileDialog::AcceptSave);
    fileNameEdit(*dialog).setText(QStringLiteral("a<b>c</b>/new"));
    QVERIFY(acceptButton(*dialog).accessibleDescription().contains(QStringLiteral("/a<b>c<")));
    QVERIFY(acceptButton(*dialog).toolTip().contains(QStringLiteral("/a&lt;b&gt;c&lt;")));
}

void tst_AcceptButtonGuide::withoutValidation()
{
    const auto dialog = m_place->makeQt(QFileDialog::AcceptSave);
    dialog->performSelectedFileValidation(false);
    DialogDriver driver;
    driver.onDialog<QFileDialog>("accept",
                                 [](QFileDialog& shown) { acceptName(shown, QString(300, QLatin1Char('x'))); });
    QCOMPARE(dialog->exec(), int(QDialog::Accepted));
}

void tst_AcceptButtonGuide::enablesForAFileThatComesLater_data()
{
    QTest::addColumn<bool>("extended");
    QTest::newRow("any dialog that Qt draws") << false;
    QTest::newRow("QExtendedFileDialog") << true;
}

void tst_AcceptButtonGuide::enablesForAFileThatComesLater()
{
    QFETCH(bool, extended);
    m_place->window.show();
    std::unique_ptr<QFileDialog> dialog;
    if (extended) {
        dialog = m_place->makeQt(QFileDialog::AcceptOpen);
    } else {
        dialog = std::make_unique<QFileDialog>(&m_place->window, QString(), m_place->path());
        dialog->setOption(QFileDialog::DontUseNativeDialog);
        dialog->setFileMode(QFileDialog::ExistingFile);
        new AcceptButtonGuide(*dialog);
    }
    dialog->show();
    typeName(*dialog, QStringLiteral("second.dat"));
    QVERIFY(!acceptButton(*dialog).isEnabled());

    m_place->folders.addFile(QStringLiteral("second.dat"));
    QTRY_VERIFY(acceptButton(*dialog).isEnabled());
}

void tst_AcceptButtonGuide::leavesTheButtonsTextAlone()
{
    m_place->window.show();
    const auto dialog = m_place->makeQt(QFileDialog::AcceptOpen);
    dialog->show();
    typeName(*dialog, QStringLiteral("old.dat"));
    QTRY_VERIFY(acceptButton(*dialog).isEnabled());
    acceptButton(*dialog).setText(QStringLiteral("Take it"));
    m_place->folders.addFile(QStringLiteral("second.dat"));
    const auto* model = dialog->findChild<QFileSystemModel*>(QStringLiteral("qt_filesystem_model"));
    QTRY_COMPARE(model->rowCount(model->index(m_place->path())), 3);
    QCOMPARE(acceptButton(*dialog).text(), QStringLiteral("Take it"));
}

/// A slot of the application that disables the button runs after the guide, also when a file appears.
void tst_AcceptButtonGuide::leavesTheLastWordToTheApplication()
{
    if (systemLimits::noOddNames)
        QSKIP(systemLimits::noOddNames);
    const QString name = QStringLiteral("5' disk \".dat");
    m_place->window.show();
    const auto dialog = m_place->makeQt(QFileDialog::AcceptOpen);
    dialog->show();
    typeName(*dialog, name);
    QVERIFY(!acceptButton(*dialog).isEnabled());
    int enabled = 0;
    connect(&fileNameEdit(*dialog), &QLineEdit::textChanged, this, [&] {
        enabled += acceptButton(*dialog).isEnabled();
        acceptButton(*dialog).setEnabled(false);
    });
    m_place->folders.addFile(name);
    QTRY_VERIFY(enabled > 0);
    QVERIFY(!acceptButton(*dialog).isEnabled());
}

UI_TEST_MAIN(tst_AcceptButtonGuide)
#include "tst_AcceptButtonGuide.moc"
