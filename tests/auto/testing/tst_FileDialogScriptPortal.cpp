#include "testing/FileDialogScript.h"

#include "ui/qt/dialogs/ExtendedFileDialog.h"
#include "ui/qt/dialogs/PortalUse.h"

#include "RecordingPortal.h"
#include "TestHome.h"

#include <QApplication>
#include <QTest>

using zelmar::testing::FileDialogScript;

/// A script takes the place of the user even where a portal would show the dialogs.
class tst_FileDialogScriptPortal : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void scriptComesFirst();
};

void tst_FileDialogScriptPortal::scriptComesFirst()
{
    zelmar::ui::setPortalUse(zelmar::ui::PortalUse::Always);
    const PrivateBus bus;
    RecordingPortal portal(bus);
    const auto choose = [](const QString& file) {
        QWidget window;
        ExtendedFileDialog dialog(window, "Open", "/", "All (*)", "", QFileDialog::AcceptOpen);
        dialog.exec();
        return dialog.selectedFiles() == QStringList{file};
    };
    {
        FileDialogScript script;
        script.accept("/scripted");
        QVERIFY(choose(QStringLiteral("/scripted")));
        QVERIFY(portal.requests().empty());
    }
    portal.onRequest("accept", [&portal] { portal.accept({QStringLiteral("/granted")}); });
    QVERIFY(choose(QStringLiteral("/granted")));
}

UI_TEST_MAIN(tst_FileDialogScriptPortal)
#include "tst_FileDialogScriptPortal.moc"
