#include "platform/ApplicationSettings.h"

#include "AccessRights.h"
#include "OrdinaryUser.h"
#include "TestHome.h"
#include "systemLimits.h"

#include <QDir>
#include <QProcess>
#include <QRegularExpression>
#include <QSettings>
#include <QTest>

#include <string>
#include <vector>

using zelmar::ApplicationSettings;

namespace {

ApplicationSettings& settings()
{
    return ApplicationSettings::getInstance();
}

const std::vector<std::string>& trickyKeys()
{
    static const std::vector<std::string> keys{
        "",
        "QExtendedFileDialog/Geometry",
        "qextendedfiledialog/geometry",
        "QExtendedFileDialog\\Geometry",
        "/",
        "//",
        "a/b",
        "a_2fb", // the previous key, escaped without escaping '_' itself
        "_",
        " ",
        "%2f",
        "General/x",
        "\xC3\xA4",
        "\xC3\x84",
        "\xFF\xFE",
        std::string("nul\0inside", 10),
        std::string("nul"),
        std::string(3000, 'k'),
    };
    return keys;
}

QByteArray valueOf(std::size_t index)
{
    return "value " + QByteArray::number(static_cast<int>(index)) + QByteArray("\0\xFF\n", 3);
}

QString settingsFile()
{
    return QSettings(QCoreApplication::organizationName(), QCoreApplication::applicationName()).fileName();
}

/// Runs in a second process. Returns 0 if every stored value is found, otherwise the 1-based index of the first key
/// that is not.
int checkAfterRestart()
{
    for (std::size_t i = 0; i < trickyKeys().size(); ++i) {
        if (settings().getByteArrayValue(trickyKeys()[i]) != valueOf(i))
            return 1 + static_cast<int>(i);
    }
    return 0;
}

} // namespace

class tst_ApplicationSettings : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void unknownKeyIsEmpty();
    void everyByteStringIsADistinctKey();
    void laterValueReplacesEarlierOne();
    void emptyValueIsKept();
    void survivesARestart();
    void keepsTheApplicationsOwnSettings();
    void warnsOfADamagedFile();
    void warnsOfAnUnwritableFolder();
    void withoutAnOrganization();
    void ownStoreReplacesTheDefault();
    void nullRestoresTheDefaultStore();
};

void tst_ApplicationSettings::init()
{
    settings().setStore(nullptr);
    for (const QString& organization : {QCoreApplication::organizationName(), QCoreApplication::applicationName()})
        QSettings(organization, QCoreApplication::applicationName()).clear();
    if (!systemLimits::noSettingsFile)
        QFile::remove(settingsFile());
}

void tst_ApplicationSettings::unknownKeyIsEmpty()
{
    for (const std::string& key : trickyKeys())
        QVERIFY(settings().getByteArrayValue(key).isEmpty());
}

void tst_ApplicationSettings::everyByteStringIsADistinctKey()
{
    for (std::size_t i = 0; i < trickyKeys().size(); ++i)
        settings().depositValue(trickyKeys()[i], valueOf(i));
    for (std::size_t i = 0; i < trickyKeys().size(); ++i)
        QCOMPARE(settings().getByteArrayValue(trickyKeys()[i]), valueOf(i));
}

void tst_ApplicationSettings::laterValueReplacesEarlierOne()
{
    settings().depositValue("key", "first");
    settings().depositValue("key", "second");
    QCOMPARE(settings().getByteArrayValue("key"), QByteArray("second"));
}

void tst_ApplicationSettings::emptyValueIsKept()
{
    settings().depositValue("key", "first");
    settings().depositValue("key", QByteArray());
    QCOMPARE(settings().getByteArrayValue("key"), QByteArray());
}

void tst_ApplicationSettings::survivesARestart()
{
    for (std::size_t i = 0; i < trickyKeys().size(); ++i)
        settings().depositValue(trickyKeys()[i], valueOf(i));

    QProcess again;
    again.start(QCoreApplication::applicationFilePath(), {QStringLiteral("--check-after-restart")});
    QVERIFY(again.waitForFinished());
    QCOMPARE(again.exitStatus(), QProcess::NormalExit);
    QCOMPARE(again.exitCode(), 0);

    // Verifies that the check can fail: it returns the 1-based index of a changed key.
    settings().depositValue(trickyKeys()[1], "another");
    again.start(QCoreApplication::applicationFilePath(), {QStringLiteral("--check-after-restart")});
    QVERIFY(again.waitForFinished());
    QCOMPARE(again.exitCode(), 2);
}

void tst_ApplicationSettings::keepsTheApplicationsOwnSettings()
{
    {
        QSettings own(QCoreApplication::organizationName(), QCoreApplication::applicationName());
        own.setValue(QStringLiteral("key"), 7);
    }
    settings().depositValue("key", "ours");
    QSettings own(QCoreApplication::organizationName(), QCoreApplication::applicationName());
    QCOMPARE(own.value(QStringLiteral("key")).toInt(), 7);
}

void tst_ApplicationSettings::warnsOfADamagedFile()
{
    if (systemLimits::noSettingsFile)
        QSKIP(systemLimits::noSettingsFile);
    QVERIFY(QDir().mkpath(QFileInfo(settingsFile()).path()));
    QFile file(settingsFile());
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("[general\n\xFF\xFE = \\x\n]]=;\n");
    file.close();

    const QRegularExpression warning(QStringLiteral("^The settings file .* is damaged$"));
    QTest::ignoreMessage(QtWarningMsg, warning);
    QVERIFY(settings().getByteArrayValue("key").isEmpty());
}

void tst_ApplicationSettings::warnsOfAnUnwritableFolder()
{
    if (systemLimits::noSettingsFile)
        QSKIP(systemLimits::noSettingsFile);
    const QString folder = QFileInfo(settingsFile()).path();
    QVERIFY(QDir().mkpath(folder));
    settings().depositValue("key", "kept");

    setAccess(folder, Access::NoWriting);
    {
        const OrdinaryUser user;
        QVERIFY(user.isOrdinary());
        QTest::ignoreMessage(QtWarningMsg,
                             QRegularExpression(QStringLiteral("^Cannot read or write the settings file ")));
        settings().depositValue("key", "lost");
    }
    setAccess(folder, Access::Everything);
}

void tst_ApplicationSettings::withoutAnOrganization()
{
    const QString organization = QCoreApplication::organizationName();
    QCoreApplication::setOrganizationName(QString());
    settings().depositValue("key", "value"); // no warning either
    const QByteArray kept = settings().getByteArrayValue("key");
    QCoreApplication::setOrganizationName(organization);

    QCOMPARE(kept, QByteArray("value"));
    QVERIFY(settings().getByteArrayValue("key").isEmpty());
}

void tst_ApplicationSettings::ownStoreReplacesTheDefault()
{
    settings().depositValue("key", "in the file");
    QVERIFY(settings().setStore(std::make_unique<ApplicationSettings::MemoryStore>()));

    QVERIFY(settings().getByteArrayValue("key").isEmpty());
    for (std::size_t i = 0; i < trickyKeys().size(); ++i)
        settings().depositValue(trickyKeys()[i], valueOf(i));
    for (std::size_t i = 0; i < trickyKeys().size(); ++i)
        QCOMPARE(settings().getByteArrayValue(trickyKeys()[i]), valueOf(i));

    const auto memory = settings().setStore(nullptr);
    QCOMPARE(memory->value(trickyKeys()[1]), valueOf(1));
}

void tst_ApplicationSettings::nullRestoresTheDefaultStore()
{
    settings().depositValue("key", "in the file");
    settings().setStore(std::make_unique<ApplicationSettings::MemoryStore>());
    settings().setStore(nullptr);
    QCOMPARE(settings().getByteArrayValue("key"), QByteArray("in the file"));
}

int main(int argc, char* argv[])
{
    const TestHome home;
    QCoreApplication application(argc, argv);
    if (QCoreApplication::arguments().contains(QStringLiteral("--check-after-restart")))
        return checkAfterRestart();
    tst_ApplicationSettings test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_ApplicationSettings.moc"
