#include "ui/qt/dialogs/letAcceptButtonFollowFolder_p.h"

#include "DialogFolders.h"
#include "FileDialogActions.h"
#include "TestHome.h"
#include "ui/qt/dialogs/QExtendedFileDialog.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QFileSystemModel>
#include <QPushButton>
#include <QTest>

#include <functional>
#include <memory>

class tst_letAcceptButtonFollowFolder : public QObject
{
    Q_OBJECT

public:
    using MakeDialog = std::function<std::unique_ptr<QFileDialog>(QWidget& parent, const QString& folder)>;

private Q_SLOTS:
    void enablesForAFileThatComesLater_data();
    void enablesForAFileThatComesLater();
    void leavesTheButtonsTextAlone();
};

Q_DECLARE_METATYPE(tst_letAcceptButtonFollowFolder::MakeDialog)

void tst_letAcceptButtonFollowFolder::enablesForAFileThatComesLater_data()
{
    QTest::addColumn<MakeDialog>("makeDialog");

    QTest::newRow("any dialog that Qt draws") << MakeDialog([](QWidget& parent, const QString& folder) {
        auto dialog = std::make_unique<QFileDialog>(&parent, QString(), folder);
        dialog->setOption(QFileDialog::DontUseNativeDialog);
        dialog->setFileMode(QFileDialog::ExistingFile);
        letAcceptButtonFollowFolder(*dialog);
        return dialog;
    });
    QTest::newRow("QExtendedFileDialog") << MakeDialog([](QWidget& parent, const QString& folder) {
        return std::make_unique<QExtendedFileDialog>(parent, "Open", folder.toStdString(), "", "",
                                                     QFileDialog::AcceptOpen);
    });
}

void tst_letAcceptButtonFollowFolder::enablesForAFileThatComesLater()
{
    QFETCH(MakeDialog, makeDialog);

    DialogFolders folders;
    folders.addFile(QStringLiteral("first.dat"));
    QWidget window;
    window.show();
    const auto dialog = makeDialog(window, folders.path(QString()));
    dialog->show();
    const QPushButton* open =
        dialog->findChild<QDialogButtonBox*>(QStringLiteral("buttonBox"))->button(QDialogButtonBox::Open);
    typeName(*dialog, QStringLiteral("second.dat"));
    QVERIFY(!open->isEnabled());

    folders.addFile(QStringLiteral("second.dat"));
    QTRY_VERIFY(open->isEnabled());
}

void tst_letAcceptButtonFollowFolder::leavesTheButtonsTextAlone()
{
    DialogFolders folders;
    folders.addFile(QStringLiteral("first.dat"));
    QWidget window;
    window.show();
    QExtendedFileDialog dialog(window, "Open", folders.path().toStdString(), "", "", QFileDialog::AcceptOpen);
    dialog.show();
    QPushButton* open =
        dialog.findChild<QDialogButtonBox*>(QStringLiteral("buttonBox"))->button(QDialogButtonBox::Open);
    typeName(dialog, QStringLiteral("first.dat"));
    QTRY_VERIFY(open->isEnabled());
    open->setText(QStringLiteral("Take it"));
    folders.addFile(QStringLiteral("second.dat"));
    const auto* model = dialog.findChild<QFileSystemModel*>(QStringLiteral("qt_filesystem_model"));
    QTRY_COMPARE(model->rowCount(model->index(folders.path())), 2);
    QCOMPARE(open->text(), QStringLiteral("Take it"));
}

UI_TEST_MAIN(tst_letAcceptButtonFollowFolder)

#include "tst_letAcceptButtonFollowFolder.moc"
