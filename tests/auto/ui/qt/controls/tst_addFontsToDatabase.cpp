#include "ui/qt/controls/addFontsToDatabase.h"

#include "AccessRights.h"
#include "BuiltFont.h"
#include "OrdinaryUser.h"
#include "TestHome.h"
#include "systemLimits.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFontDatabase>
#include <QFontMetrics>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using zelmar::ui::addFontsToDatabase;
using zelmar::ui::addFontToDatabase;

namespace {

bool isRegistered(const QString& family)
{
    return QFontDatabase().families().contains(family);
}

QByteArray warning(const QString& path)
{
    return "Warning: Failed to load TrueType font from " + path.toUtf8();
}

} // namespace

/// Each test function uses its own folder and font families, because a registered font stays registered.
class tst_addFontsToDatabase : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void builtFontsCanBeDrawn();
    void registersAFont_data();
    void registersAFont();
    void warnsOfFilesThatAreNoFonts_data();
    void warnsOfFilesThatAreNoFonts();
    void warningsContainNoSourceLocation();
    void registersEveryFileOfAFolder();
    void pathMayContainPlaceholders();
    void doesNotEnterSubfolders();
    void doublesAFinalSeparator();
    void ignoresFoldersWithoutFiles_data();
    void ignoresFoldersWithoutFiles();

private:
    QString path(const QString& name) const { return m_folder->path() + QLatin1Char('/') + name; }
    void write(const QString& name, const QByteArray& bytes) const;

    std::unique_ptr<QTemporaryDir> m_folder;
};

void tst_addFontsToDatabase::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
}

void tst_addFontsToDatabase::write(const QString& name, const QByteArray& bytes) const
{
    QFile file(path(name));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(bytes), qint64(bytes.size()));
}

/// Verifies that the generated fonts are usable, on which the other functions rely.
void tst_addFontsToDatabase::builtFontsCanBeDrawn()
{
    write(QStringLiteral("drawn.ttf"), builtFont(QStringLiteral("Drawn")));
    addFontToDatabase(path(QStringLiteral("drawn.ttf")).toStdString());
    QFont font(QStringLiteral("Drawn"));
    font.setPixelSize(100);
    font.setStyleStrategy(QFont::NoFontMerging);
    QCOMPARE(QFontInfo(font).family(), QStringLiteral("Drawn"));
    const QFontMetrics metrics(font);
    QVERIFY(metrics.inFont(QLatin1Char('A')) && metrics.inFont(QLatin1Char('Z')));
    QVERIFY(!metrics.inFont(QLatin1Char('a')) && !metrics.inFont(QLatin1Char('@')));
    QCOMPARE(metrics.horizontalAdvance(QStringLiteral("ABC")), 300);
    QCOMPARE(metrics.boundingRect(QLatin1Char('Q')).size(), QSize(80, 80));
}

void tst_addFontsToDatabase::registersAFont_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("family");

    QTest::newRow("plain") << "plain.ttf"
                           << "Plain family";
    QTest::newRow("a non-ASCII path") << QStringLiteral("Größe \u65e5\u672c \U0001F600.ttf") << "Path family";
    QTest::newRow("a non-ASCII family") << "family.ttf" << QStringLiteral("Familie \u00e4\u03b1\u65e5");
    QTest::newRow("another extension") << "font.txt"
                                       << "Text family";
    QTest::newRow("a path with placeholders") << "%s %1 %n.ttf"
                                              << "Percent family";
}

void tst_addFontsToDatabase::registersAFont()
{
    QFETCH(QString, name);
    QFETCH(QString, family);
    write(name, builtFont(family));
    QVERIFY(!isRegistered(family));
    addFontToDatabase(path(name).toUtf8().toStdString());
    QVERIFY(isRegistered(family));
}

void tst_addFontsToDatabase::warnsOfFilesThatAreNoFonts_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("bytes");

    const QByteArray font = builtFont(QStringLiteral("Broken"));
    QTest::newRow("missing") << "missing.ttf" << QByteArray();
    QTest::newRow("empty") << "empty.ttf" << QByteArray("");
    QTest::newRow("text") << "notes.txt" << QByteArray("not a font");
    QTest::newRow("truncated in the table directory") << "head.ttf" << font.left(100);
    QTest::newRow("truncated after the table directory") << "directory.ttf" << font.left(12 + 16 * 10);
    QTest::newRow("zeros") << "zeros.ttf" << QByteArray(font.size(), '\0');
    QTest::newRow("a non-ASCII path") << QStringLiteral("Größe \u65e5.ttf") << QByteArray("not a font");
    QTest::newRow("a path with placeholders") << "%s %1 %n.ttf" << QByteArray("not a font");
}

void tst_addFontsToDatabase::warnsOfFilesThatAreNoFonts()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, bytes);
    if (!bytes.isNull())
        write(name, bytes);
    const QStringList before = QFontDatabase().families();
    QTest::ignoreMessage(QtWarningMsg, warning(path(name)).constData());
    addFontToDatabase(path(name).toUtf8().toStdString());
    QCOMPARE(QFontDatabase().families(), before);
}

namespace {

QtMessageHandler previousHandler = nullptr;
int messagesWithoutSource = 0;

void countMessagesWithoutSource(QtMsgType type, const QMessageLogContext& context, const QString& text)
{
    if (type == QtWarningMsg && !context.file && !context.function && context.line == 0)
        ++messagesWithoutSource;
    previousHandler(type, context, text);
}

} // namespace

void tst_addFontsToDatabase::warningsContainNoSourceLocation()
{
    const QString missing = path(QStringLiteral("missing.ttf"));
    QTest::ignoreMessage(QtWarningMsg, warning(missing).constData());
    previousHandler = qInstallMessageHandler(countMessagesWithoutSource);
    addFontToDatabase(missing.toStdString());
    qInstallMessageHandler(previousHandler);
    QCOMPARE(messagesWithoutSource, 1);
}

void tst_addFontsToDatabase::registersEveryFileOfAFolder()
{
    const QString folder = path(QStringLiteral("Schriften \u65e5"));
    QVERIFY(QDir().mkdir(folder));
    write(QStringLiteral("Schriften \u65e5/one.ttf"), builtFont(QStringLiteral("Folder one")));
    write(QStringLiteral("Schriften \u65e5/two"), builtFont(QStringLiteral("Folder two")));
    write(QStringLiteral("Schriften \u65e5/.hidden.ttf"), builtFont(QStringLiteral("Folder hidden")));
    write(QStringLiteral("Schriften \u65e5/read me.txt"), "not a font");
    QTest::ignoreMessage(QtWarningMsg, warning(folder + QDir::separator() + QStringLiteral("read me.txt")).constData());
    addFontsToDatabase(folder.toUtf8().toStdString());
    QVERIFY(isRegistered(QStringLiteral("Folder one")));
    QVERIFY(isRegistered(QStringLiteral("Folder two")));
    QVERIFY(!isRegistered(QStringLiteral("Folder hidden")));
}

/// Placeholders of QString::arg() and printf() in the names of the folder and of the file must not be replaced.
void tst_addFontsToDatabase::pathMayContainPlaceholders()
{
    QVERIFY(QDir().mkdir(path(QStringLiteral("%2 %3 %s"))));
    write(QStringLiteral("%2 %3 %s/%1 %3 %n.ttf"), builtFont(QStringLiteral("Pattern")));
    write(QStringLiteral("%2 %3 %s/%1 %n.txt"), "not a font");
    QTest::ignoreMessage(
        QtWarningMsg,
        warning(path(QStringLiteral("%2 %3 %s")) + QDir::separator() + QStringLiteral("%1 %n.txt")).constData());
    addFontsToDatabase(path(QStringLiteral("%2 %3 %s")).toStdString());
    QVERIFY(isRegistered(QStringLiteral("Pattern")));
}

void tst_addFontsToDatabase::doesNotEnterSubfolders()
{
    QVERIFY(QDir().mkdir(path(QStringLiteral("below"))));
    write(QStringLiteral("below/below.ttf"), builtFont(QStringLiteral("Below")));
    write(QStringLiteral("above.ttf"), builtFont(QStringLiteral("Above")));
    addFontsToDatabase(m_folder->path().toStdString());
    QVERIFY(isRegistered(QStringLiteral("Above")));
    QVERIFY(!isRegistered(QStringLiteral("Below")));
}

void tst_addFontsToDatabase::doublesAFinalSeparator()
{
    write(QStringLiteral("separated.ttf"), builtFont(QStringLiteral("Separated")));
    write(QStringLiteral("notes.txt"), "not a font");
    QTest::ignoreMessage(QtWarningMsg, warning(path({}) + QDir::separator() + QStringLiteral("notes.txt")).constData());
    addFontsToDatabase(m_folder->path().toStdString() + "/");
    QVERIFY(isRegistered(QStringLiteral("Separated")));
}

void tst_addFontsToDatabase::ignoresFoldersWithoutFiles_data()
{
    QTest::addColumn<QString>("name");

    QTest::newRow("missing") << "missing";
    if (!systemLimits::noRefusedReading)
        QTest::newRow("unreadable") << "refused";
    QTest::newRow("a file") << "file";
    QTest::newRow("empty") << "empty";
}

/// Nothing is registered and nothing is logged: an unexpected warning fails the test program.
void tst_addFontsToDatabase::ignoresFoldersWithoutFiles()
{
    QFETCH(QString, name);
    QVERIFY(QDir().mkdir(path(QStringLiteral("empty"))));
    QVERIFY(QDir().mkdir(path(QStringLiteral("refused"))));
    write(QStringLiteral("refused/font.ttf"), builtFont(QStringLiteral("Refused")));
    write(QStringLiteral("file"), builtFont(QStringLiteral("File")));
    setAccess(m_folder->path(), Access::Everything);
    if (!systemLimits::noRefusedReading)
        setAccess(path(QStringLiteral("refused")), Access::Nothing);

    const QStringList before = QFontDatabase().families();
    {
        const OrdinaryUser user;
        QVERIFY(user.isOrdinary());
        addFontsToDatabase(path(name).toStdString());
    }
    setAccess(path(QStringLiteral("refused")), Access::Everything);
    QCOMPARE(QFontDatabase().families(), before);
}

UI_TEST_MAIN(tst_addFontsToDatabase)
#include "tst_addFontsToDatabase.moc"
