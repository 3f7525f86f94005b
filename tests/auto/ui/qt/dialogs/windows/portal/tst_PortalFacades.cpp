#include "ui/qt/dialogs/ExtendedFileDialog.h"
#include "ui/qt/dialogs/LaunchFileDialog.h"
#include "ui/qt/dialogs/PortalUse.h"
#include "ui/qt/dialogs/SaveFileDialog.h"
#include "ui/qt/dialogs/windows/portal/portalMarshalling_p.h"

#include "DialogDriver.h"
#include "DialogFolders.h"
#include "FileDialogActions.h"
#include "RecordingPortal.h"
#include "TestHome.h"

#include <QFileDialog>
#include <QTest>
#include <QWidget>

#include <memory>
#include <string>
#include <vector>

using zelmar::ui::LaunchFileDialog;
using namespace zelmar::internal;

/// Tests the facades over a recording portal as over the other kinds of dialog: what they ask for, and what they hand
/// back.
class tst_PortalFacades : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void launchHandsBackWhatWasChosen();
    void launchHandsBackSeveral();
    void launchLeavesOutputsAloneWhenCancelled();
    void launchForSaving();
    void launchWithoutFilters_data();
    void launchWithoutFilters();
    void extendedFileDialogInEachRun();
    void extendedFileDialogForAFolder();
    void saveFileDialogTellsTheWriter();
    void saveFileDialogCancelled();
    void drawnByQtAsksNoPortal();

private:
    using Texts = std::vector<std::string>;

    QString path(const char* name) const { return m_folders->path(QString::fromUtf8(name)); }
    std::string text(const char* name) const { return path(name).toStdString(); }
    /// Chooses files in the portal's dialog, and the file type with this index (from 0) unless it is negative.
    void accept(const QStringList& files, int type = -1);
    void cancel();
    bool launch(bool save, bool severalFiles, const Texts& filters = {"Data (*.dat)", "Tables (*.csv)"});
    const RecordingPortal::Request& request() const { return m_portal->requests().back(); }

    std::unique_ptr<PrivateBus> m_bus;
    std::unique_ptr<RecordingPortal> m_portal;
    std::unique_ptr<DialogFolders> m_folders;
    std::unique_ptr<QWidget> m_window;
    Texts m_files;
    int m_type = -7;
};

void tst_PortalFacades::init()
{
    zelmar::ui::setPortalUse(zelmar::ui::PortalUse::Always);
    ExtendedFileDialog::setUseNativeFileDialog(true);
    m_bus = std::make_unique<PrivateBus>();
    m_portal = std::make_unique<RecordingPortal>(*m_bus);
    m_folders = std::make_unique<DialogFolders>();
    for (const char* name : {"a.dat", "b.dat", "c.csv", "\xC3\xA4\xE2\x82\xAC.dat", "inner/d.dat"})
        m_folders->addFile(QString::fromUtf8(name));
    m_window = std::make_unique<QWidget>();
    m_files = {"before", "and", "longer"};
    m_type = -7;
}

void tst_PortalFacades::cleanup()
{
    m_window.reset();
    m_portal.reset();
    m_bus.reset();
}

void tst_PortalFacades::accept(const QStringList& files, int type)
{
    m_portal->onRequest("accept " + files.join(' '), [this, files, type] {
        const auto types = qdbus_cast<QList<PortalFilter>>(request().options.value("filters"));
        QVariantMap results;
        if (type >= 0)
            results.insert(QStringLiteral("current_filter"), QVariant::fromValue(types.at(type)));
        m_portal->accept(files, results);
    });
}

void tst_PortalFacades::cancel()
{
    m_portal->onRequest("cancel", [this] { m_portal->respond(1); });
}

bool tst_PortalFacades::launch(bool save, bool severalFiles, const Texts& filters)
{
    return LaunchFileDialog(m_files, m_type, "T\xC3\xAFtle", filters, {text("a.dat")}, save, severalFiles, 0);
}

void tst_PortalFacades::launchHandsBackWhatWasChosen()
{
    accept({path("\xC3\xA4\xE2\x82\xAC.dat")}, 1);
    QVERIFY(launch(false, false));
    QCOMPARE(m_files, Texts{text("\xC3\xA4\xE2\x82\xAC.dat")});
    QCOMPARE(m_type, 1);
    QCOMPARE(request().method, QStringLiteral("OpenFile"));
    QCOMPARE(request().title, QString::fromUtf8("T\xC3\xAFtle"));
    QVERIFY(!request().options.contains("multiple"));
    QCOMPARE(request().options.value("current_folder").toByteArray(), m_folders->path().toUtf8().append('\0'));
}

void tst_PortalFacades::launchHandsBackSeveral()
{
    accept({path("a.dat"), path("b.dat")});
    QVERIFY(launch(false, true));
    QCOMPARE(m_files, (Texts{text("a.dat"), text("b.dat")}));
    QCOMPARE(m_type, 0);
    QCOMPARE(request().options.value("multiple"), QVariant(true));
}

void tst_PortalFacades::launchLeavesOutputsAloneWhenCancelled()
{
    cancel();
    QVERIFY(!launch(false, false));
    QCOMPARE(m_files, (Texts{"before", "and", "longer"}));
    QCOMPARE(m_type, -7);
}

void tst_PortalFacades::launchForSaving()
{
    accept({path("new.csv")}, 1);
    QVERIFY(launch(true, false));
    QCOMPARE(m_files, Texts{text("new.csv")});
    QCOMPARE(m_type, 1);
    QCOMPARE(request().method, QStringLiteral("SaveFile"));
    QCOMPARE(request().options.value("current_name"), QVariant("a.dat"));
}

void tst_PortalFacades::launchWithoutFilters_data()
{
    QTest::addColumn<bool>("save");
    QTest::newRow("open") << false;
    QTest::newRow("save") << true;
}

void tst_PortalFacades::launchWithoutFilters()
{
    QFETCH(bool, save);
    accept({path("a.dat")});
    QVERIFY(launch(save, false, {}));
    QCOMPARE(m_files, Texts{text("a.dat")});
}

void tst_PortalFacades::extendedFileDialogInEachRun()
{
    ExtendedFileDialog dialog(*m_window, "Open", m_folders->path().toStdString(), "Data (*.dat);;Tables (*.csv)", "",
                              QFileDialog::AcceptOpen);
    dialog.setFileMode(QFileDialog::ExistingFile);
    accept({path("c.csv")}, 1);
    QCOMPARE(dialog.exec(), int(QDialog::Accepted));
    QCOMPARE(dialog.selectedFiles(), QStringList(path("c.csv")));
    QCOMPARE(dialog.selectedNameFilter(), QStringLiteral("Tables (*.csv)"));

    cancel();
    QCOMPARE(dialog.exec(), int(QDialog::Rejected));
    accept({path("inner/d.dat")}, 0);
    QCOMPARE(dialog.exec(), int(QDialog::Accepted));
    QCOMPARE(dialog.selectedFiles(), QStringList(path("inner/d.dat")));
    QCOMPARE(dialog.directory().path(), path("inner"));
    QCOMPARE(dialog.selectedNameFilter(), QStringLiteral("Data (*.dat)"));
}

void tst_PortalFacades::extendedFileDialogForAFolder()
{
    ExtendedFileDialog dialog(*m_window, "Choose", m_folders->path().toStdString(), "", "", QFileDialog::AcceptOpen);
    dialog.setFileMode(QFileDialog::Directory);
    accept({path("inner")});
    QCOMPARE(dialog.exec(), int(QDialog::Accepted));
    QCOMPARE(dialog.selectedFiles(), QStringList(path("inner")));
    QCOMPARE(request().options.value("directory"), QVariant(true));
}

void tst_PortalFacades::saveFileDialogTellsTheWriter()
{
    SaveFileDialog flow(m_window.get(), "Save", m_folders->path().toStdString(), "run",
                        Texts{"Data (*.dat)", "Tables (*.csv)"}, 1, "");
    accept({path("c.csv")}); // exists, about which the portal has asked
    QVERIFY(flow.launch());
    QCOMPARE(flow.selectedFilename(), text("c.csv"));
    QCOMPARE(flow.selectedWriter(), 1);
    QCOMPARE(request().options.value("current_name"), QVariant("run.csv"));
}

void tst_PortalFacades::saveFileDialogCancelled()
{
    SaveFileDialog flow(m_window.get(), "Save", m_folders->path().toStdString(), "run", Texts{"Data (*.dat)"}, 0, "");
    cancel();
    QVERIFY(!flow.launch());
}

void tst_PortalFacades::drawnByQtAsksNoPortal()
{
    ExtendedFileDialog::setUseNativeFileDialog(false);
    ExtendedFileDialog dialog(*m_window, "Open", m_folders->path().toStdString(), "All (*)", "",
                              QFileDialog::AcceptOpen);
    DialogDriver driver;
    driver.onDialog<QFileDialog>("cancel", [](QFileDialog& shown) { ::cancel(shown); });
    QCOMPARE(dialog.exec(), int(QDialog::Rejected));
    QVERIFY(m_portal->requests().empty());
}

UI_TEST_MAIN(tst_PortalFacades)
#include "tst_PortalFacades.moc"
