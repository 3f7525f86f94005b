#include "ui/qt/dialogs/windows/builtin/portalUsage_p.h"

#include "TestHome.h"

#include <QTest>

using namespace zelmar::internal;
using zelmar::ui::PortalUse;

class tst_portalUsage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void automatic_data();
    void automatic();
    void neverAndAlways();
    void surroundings();
};

void tst_portalUsage::automatic_data()
{
    QTest::addColumn<QString>("platform");
    QTest::addColumn<QString>("desktop");
    QTest::addColumn<bool>("sandboxed");
    QTest::addColumn<bool>("expected");
    QTest::newRow("desktop on X11") << "xcb"
                                    << "GNOME" << false << true;
    QTest::newRow("desktop on Wayland") << "wayland"
                                        << "KDE" << false << true;
    QTest::newRow("desktop on Wayland with EGL") << "wayland-egl"
                                                 << "KDE" << false << true;
    QTest::newRow("bare X11") << "xcb"
                              << "" << false << false;
    QTest::newRow("sandbox on bare X11") << "xcb"
                                         << "" << true << true;
    QTest::newRow("without a screen") << "offscreen"
                                      << "GNOME" << true << false;
    QTest::newRow("minimal") << "minimal"
                             << "GNOME" << false << false;
    QTest::newRow("on a bare screen") << "eglfs"
                                      << "GNOME" << true << false;
}

void tst_portalUsage::automatic()
{
    QFETCH(QString, platform);
    QFETCH(QString, desktop);
    QFETCH(bool, sandboxed);
    QTEST(callsForPortal(PortalUse::Automatic, {platform, desktop, sandboxed}), "expected");
}

void tst_portalUsage::neverAndAlways()
{
    QVERIFY(!callsForPortal(PortalUse::Never, {QStringLiteral("xcb"), QStringLiteral("GNOME"), true}));
    QVERIFY(callsForPortal(PortalUse::Always, {QStringLiteral("offscreen"), QString(), false}));
}

void tst_portalUsage::surroundings()
{
    QCOMPARE(zelmar::ui::portalUse(), PortalUse::Automatic);
    // No test runs where a portal would be asked.
    QCOMPARE(portalSurroundings().desktop, QString());
    QVERIFY(!portalSurroundings().sandboxed);
    qputenv("XDG_CURRENT_DESKTOP", "ubuntu:GNOME");
    qputenv("SNAP", "/snap/test/1");
    QCOMPARE(portalSurroundings().desktop, QStringLiteral("ubuntu:GNOME"));
    QVERIFY(portalSurroundings().sandboxed);
}

CORE_TEST_MAIN(tst_portalUsage)
#include "tst_portalUsage.moc"
