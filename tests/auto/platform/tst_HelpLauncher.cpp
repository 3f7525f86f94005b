#include "platform/HelpLauncher.h"

#include "TestHome.h"

#include <QApplication>
#include <QDesktopServices>
#include <QRegularExpression>
#include <QTest>

using zelmar::HelpLauncher;

namespace {

HelpLauncher& help()
{
    return HelpLauncher::getInstance();
}

const QString scheme = QStringLiteral("help");

} // namespace

class tst_HelpLauncher : public QObject
{
    Q_OBJECT

public Q_SLOTS:
    /// Replaces the desktop's browser and records the URLs.
    void open(const QUrl& url) { m_opened += url; }

private Q_SLOTS:
    void init();
    void cleanup();
    void topicBelowTheBaseUrl_data();
    void topicBelowTheBaseUrl();
    void topicBelowAFolder();
    void topicThatLeadsOutOfTheBaseUrlIsRejected_data();
    void topicThatLeadsOutOfTheBaseUrlIsRejected();
    void withoutABaseUrl();
    void noProgramOpensTheUrl();
    void ownHandler();
    void handlerThatReplacesItself();
    void emptyHandlerRestoresTheDefault();

private:
    QList<QUrl> m_opened;
};

void tst_HelpLauncher::init()
{
    m_opened.clear();
    QDesktopServices::setUrlHandler(scheme, this, "open");
}

void tst_HelpLauncher::cleanup()
{
    QDesktopServices::unsetUrlHandler(scheme);
    help().setBaseUrl(QUrl());
    help().setHandler(nullptr);
}

void tst_HelpLauncher::topicBelowTheBaseUrl_data()
{
    QTest::addColumn<QString>("base");
    QTest::addColumn<QString>("topic");
    QTest::addColumn<QString>("expected");

    // clang-format off
    QTest::newRow("a page") << "help://host/manual/" << "open.html" << "help://host/manual/open.html";
    QTest::newRow("base without its slash") << "help://host/manual" << "open.html" << "help://host/manual/open.html";
    QTest::newRow("base without a path") << "help://host" << "open.html" << "help://host/open.html";
    QTest::newRow("a page in a folder") << "help://host/m/" << "files/open.html" << "help://host/m/files/open.html";
    QTest::newRow("an anchor") << "help://host/m/" << "open.html#filters" << "help://host/m/open.html#filters";
    QTest::newRow("the base's query stays") << "help://host/m/?v=2" << "a.html" << "help://host/m/a.html?v=2";
    QTest::newRow("a colon makes no scheme") << "help://host/m/" << "mail:x" << "help://host/m/mail:x";
    QTest::newRow("a question mark is part of the path") << "help://host/m/" << "why?.html" << "help://host/m/why%3F.html";
    QTest::newRow("a percent sign is part of the path") << "help://host/m/" << "100%.html" << "help://host/m/100%25.html";
    QTest::newRow("no topic shows the start page") << "help://host/m/" << "" << "help://host/m/";
    QTest::newRow("parent segment within the base URL") << "help://host/m/" << "a/../b.html" << "help://host/m/b.html";
    QTest::newRow("non-ASCII") << "help://host/m/" << QStringLiteral(u"\u00f6ffnen.html") << "help://host/m/%C3%B6ffnen.html";
    // clang-format on
}

void tst_HelpLauncher::topicBelowTheBaseUrl()
{
    QFETCH(QString, base);
    QFETCH(QString, topic);
    QFETCH(QString, expected);

    help().setBaseUrl(QUrl(base));
    QCOMPARE(help().baseUrl(), QUrl(base));
    help().showHelp(topic.toStdString());
    QCOMPARE(m_opened.size(), 1);
    QCOMPARE(QString::fromUtf8(m_opened.first().toEncoded()), expected);
}

void tst_HelpLauncher::topicBelowAFolder()
{
    QDesktopServices::setUrlHandler(QStringLiteral("file"), this, "open");
    help().setBaseUrl(QUrl::fromLocalFile(QStringLiteral("/opt/our tool/help")));
    help().showHelp("files/open.html");
    QDesktopServices::unsetUrlHandler(QStringLiteral("file"));
    QCOMPARE(m_opened, QList<QUrl>{QUrl::fromLocalFile(QStringLiteral("/opt/our tool/help/files/open.html"))});
}

void tst_HelpLauncher::topicThatLeadsOutOfTheBaseUrlIsRejected_data()
{
    QTest::addColumn<QByteArray>("topic");

    QTest::newRow("to the parent") << QByteArray("../secret.html");
    QTest::newRow("with backslashes") << QByteArray("..\\secret.html");
    QTest::newRow("through a folder") << QByteArray("a/../../secret.html");
    QTest::newRow("to a folder with a longer name") << QByteArray("../manual2/x.html");
}

void tst_HelpLauncher::topicThatLeadsOutOfTheBaseUrlIsRejected()
{
    QFETCH(QByteArray, topic);

    help().setBaseUrl(QUrl(QStringLiteral("help://host/manual")));
    const QByteArray warning = "Cannot show the help topic " + topic + " below help://host/manual";
    QTest::ignoreMessage(QtWarningMsg, warning.constData());
    help().showHelp(topic.toStdString());
    QVERIFY(m_opened.isEmpty());
}

void tst_HelpLauncher::withoutABaseUrl()
{
    QTest::ignoreMessage(QtWarningMsg, "No base URL is set: cannot show the help topic open.html");
    help().showHelp("open.html");
    QVERIFY(m_opened.isEmpty());
}

void tst_HelpLauncher::noProgramOpensTheUrl()
{
    help().setBaseUrl(QUrl(QStringLiteral("nobody-opens-this://host/")));
    const QByteArray path = qgetenv("PATH");
    qputenv("PATH", "/nonexistent"); // no browser is found
    const QString systemWarning =
        QStringLiteral("(Unable to detect a web browser to launch|ShellExecute) 'nobody-opens-this://host/open.html'");
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(systemWarning));
    QTest::ignoreMessage(QtWarningMsg, "Cannot show the help topic open.html below nobody-opens-this://host/");
    help().showHelp("open.html");
    qputenv("PATH", path);
}

void tst_HelpLauncher::ownHandler()
{
    std::vector<std::string> topics;
    help().setHandler([&topics](const std::string& topic) { topics.push_back(topic); });
    const std::string raw("caf\xC3\xA9\0/../x", 11);
    help().showHelp(raw);
    help().showHelp("");
    QCOMPARE(topics, (std::vector<std::string>{raw, ""}));
}

void tst_HelpLauncher::handlerThatReplacesItself()
{
    int first = 0;
    int second = 0;
    help().setHandler([&first, &second](const std::string&) {
        help().setHandler([&second](const std::string&) { ++second; });
        ++first;
    });
    help().showHelp("a");
    help().showHelp("b");
    QCOMPARE(first, 1);
    QCOMPARE(second, 1);
}

void tst_HelpLauncher::emptyHandlerRestoresTheDefault()
{
    help().setBaseUrl(QUrl(QStringLiteral("help://host/")));
    help().setHandler([](const std::string&) {});
    help().setHandler(nullptr);
    help().showHelp("a.html");
    QCOMPARE(m_opened.size(), 1);
}

UI_TEST_MAIN(tst_HelpLauncher)
#include "tst_HelpLauncher.moc"
