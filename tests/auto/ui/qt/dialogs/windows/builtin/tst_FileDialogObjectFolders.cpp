#include "BuiltInDialogTest.h"

#include "DialogDriver.h"
#include "FileDialogActions.h"
#include "TestHome.h"

#include <QAbstractButton>
#include <QDir>
#include <QFileDialog>
#include <QListView>
#include <QTest>
#include <QTreeView>
#include <QUrl>

namespace {

void press(QFileDialog& dialog, const char* button)
{
    dialog.findChild<QAbstractButton*>(QLatin1String(button))->click();
}

} // namespace

/// Tests the folder that the dialog shows, and the choice of a folder.
class tst_FileDialogObjectFolders : public BuiltInDialogTest
{
    Q_OBJECT

private Q_SLOTS:
    void folderEvents();
    void folderSetWhileOpen();
    void folderOfTheNextShow();
    void defaultFolder();
    void folders();
};

void tst_FileDialogObjectFolders::folderEvents()
{
    const auto dialog = makeDialog();
    QStringList shownFolders;
    dialog->sink().whenTold = [&dialog, &shownFolders](const QString& event) {
        if (event == QLatin1String("folder"))
            shownFolders += dialog->folder();
        return S_OK;
    };
    const QString top = path();
    const QString deeper = path(QStringLiteral("deeper"));
    DialogDriver driver;
    driver.onDialog<QFileDialog>("walk about", [&](QFileDialog& shown) {
        QCOMPARE(shownFolders, QStringList{top});
        acceptName(shown, QStringLiteral("deeper")); // a typed folder
        press(shown, "toParentButton");
        press(shown, "backButton");
        press(shown, "forwardButton");
        selectInList(shown, QStringLiteral("deeper"));
        QTest::keyClick(shown.findChild<QTreeView*>(QStringLiteral("treeView")), Qt::Key_Return);
        acceptName(shown, QStringLiteral(".."));
        acceptName(shown, deeper);
        shown.setSidebarUrls({QUrl::fromLocalFile(top)});
        auto* sidebar = shown.findChild<QListView*>(QStringLiteral("sidebar"));
        QTest::mouseClick(sidebar->viewport(), Qt::LeftButton, Qt::NoModifier,
                          sidebar->visualRect(sidebar->model()->index(0, 0)).center());
        cancel(shown);
    });
    QCOMPARE(dialog->show(m_window.get()), cancelledResult);
    QCOMPARE(shownFolders, (QStringList{top, deeper, top, deeper, top, deeper, top, deeper, top}));
    QCOMPARE(dialog->sink().events.count(QStringLiteral("folder")), 9);
    QCOMPARE(dialog->sink().events.size(), 9);
    QCOMPARE(dialog->folder(), top);
}

void tst_FileDialogObjectFolders::folderSetWhileOpen()
{
    const auto dialog = makeDialog();
    const QString deeper = path(QStringLiteral("deeper"));
    DialogDriver driver;
    driver.onDialog<QFileDialog>("set", [&](QFileDialog& shown) {
        QVERIFY(dialog->setFolder(deeper));
        QCOMPARE(shown.directory().path(), deeper);
        QCOMPARE(dialog->folder(), deeper);
        QVERIFY(dialog->setFolder(deeper)); // no change
        acceptName(shown, QStringLiteral("d.dat"));
    });
    QCOMPARE(dialog->show(m_window.get()), S_OK);
    QCOMPARE(dialog->sink().events, (QStringList{"folder", "folder", "ok"}));
    QCOMPARE(dialog->result(), deeper + QStringLiteral("/d.dat"));
}

void tst_FileDialogObjectFolders::folderOfTheNextShow()
{
    const auto dialog = makeDialog();
    const QString deeper = path(QStringLiteral("deeper"));
    DialogDriver driver;
    driver.onDialog<QFileDialog>("go on", [](QFileDialog& shown) {
        acceptName(shown, QStringLiteral("deeper"));
        cancel(shown);
    });
    dialog->show(m_window.get());
    QCOMPARE(dialog->folder(), deeper);

    driver.onDialog<QFileDialog>("again", [&deeper](QFileDialog& shown) {
        QCOMPARE(shown.directory().path(), deeper);
        cancel(shown);
    });
    dialog->show(m_window.get());

    QVERIFY(dialog->setFolder(path()));
    driver.onDialog<QFileDialog>("set anew", [this](QFileDialog& shown) {
        QCOMPARE(shown.directory().path(), path());
        cancel(shown);
    });
    dialog->show(m_window.get());
    QCOMPARE(dialog->sink().events.size(), 4);
}

void tst_FileDialogObjectFolders::defaultFolder()
{
    const QString deeper = path(QStringLiteral("deeper"));
    void* item = nullptr;
    SHCreateItemFromParsingName(deeper.toStdWString().c_str(), nullptr, IID_IShellItem, &item);
    const auto folder = zelmar::internal::adopt(static_cast<IShellItem*>(item));
    for (const bool set : {false, true}) {
        const BuiltInDialog dialog;
        QCOMPARE(dialog->SetDefaultFolder(folder.get()), S_OK);
        if (set)
            dialog.setFolder(path());
        const QString expected = set ? path() : deeper;
        DialogDriver driver;
        driver.onDialog<QFileDialog>("look", [&expected](QFileDialog& shown) {
            QCOMPARE(shown.directory().path(), expected);
            cancel(shown);
        });
        dialog.show(m_window.get());
    }
}

void tst_FileDialogObjectFolders::folders()
{
    const auto dialog = makeDialog();
    QVERIFY(dialog->setOptions(FOS_PICKFOLDERS));
    DialogDriver driver;
    driver.onDialogWhen<QFileDialog>(
        "accept", [](QFileDialog& shown) { return listedNames(shown) == QStringList{"deeper"}; },
        [](QFileDialog& shown) { acceptName(shown, QStringLiteral("deeper")); });
    QCOMPARE(dialog->show(m_window.get()), S_OK);
    QCOMPARE(dialog->result(), path(QStringLiteral("deeper")));
    QCOMPARE(dialog->results(), QStringList{path(QStringLiteral("deeper"))});
}

UI_TEST_MAIN(tst_FileDialogObjectFolders)
#include "tst_FileDialogObjectFolders.moc"
