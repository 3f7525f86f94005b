#include "ui/qt/dialogs/windows/portal/portalOptions_p.h"

#include "ui/qt/dialogs/windows/portal/PortalQuestion_p.h"

#include "DialogFolders.h"
#include "TestHome.h"

#include <QTest>

using namespace zelmar::internal;

class tst_portalOptions : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void emptyQuestion();
    void method();
    void openingSeveral();
    void folders();
    void filters();
    void filterOutOfRange();
    void nameToSave();
    void nameOfAnExistingFile();
    void nameIsForSavingOnly();
    void choices();
    void anyCase_data();
    void anyCase();
};

void tst_portalOptions::emptyQuestion()
{
    QCOMPARE(portalOptions({}, QStringLiteral("t1")),
             (QVariantMap{{"handle_token", QStringLiteral("t1")}, {"modal", true}}));
}

void tst_portalOptions::method()
{
    PortalQuestion question;
    QCOMPARE(portalMethod(question), QStringLiteral("OpenFile"));
    question.kind = PortalQuestion::Kind::SaveFile;
    QCOMPARE(portalMethod(question), QStringLiteral("SaveFile"));
}

void tst_portalOptions::openingSeveral()
{
    PortalQuestion question;
    question.several = true;
    question.acceptLabel = QStringLiteral("_Import");
    question.folder = QStringLiteral("/data/\u00e4");
    const QVariantMap options = portalOptions(question, QStringLiteral("t"));
    QCOMPARE(options.keys(), (QStringList{"accept_label", "current_folder", "handle_token", "modal", "multiple"}));
    QCOMPARE(options.value("accept_label"), QVariant(QStringLiteral("_Import")));
    QCOMPARE(options.value("multiple"), QVariant(true));
    QCOMPARE(options.value("current_folder").toByteArray(),
             QByteArray("/data/\xc3\xa4", 9)); // with the final null byte
}

void tst_portalOptions::folders()
{
    PortalQuestion question;
    question.folders = true;
    const QVariantMap options = portalOptions(question, QStringLiteral("t"));
    QCOMPARE(options.keys(), (QStringList{"directory", "handle_token", "modal"}));
    QCOMPARE(options.value("directory"), QVariant(true));
}

void tst_portalOptions::filters()
{
    PortalQuestion question;
    question.filters = {{QStringLiteral("Data"), {{0, QStringLiteral("*.dat")}, {0, QStringLiteral("*.bin")}}},
                        {QStringLiteral("All"), {{0, QStringLiteral("*")}}}};
    question.filter = 1;
    const QVariantMap options = portalOptions(question, QStringLiteral("t"));
    QCOMPARE(options.keys(), (QStringList{"current_filter", "filters", "handle_token", "modal"}));
    QVERIFY(options.value("filters").value<QList<PortalFilter>>() == question.filters);
    QVERIFY(options.value("current_filter").value<PortalFilter>() == question.filters[1]);
}

void tst_portalOptions::filterOutOfRange()
{
    PortalQuestion question;
    question.filters = {{QStringLiteral("All"), {{0, QStringLiteral("*")}}}};
    for (const int filter : {-1, 1}) {
        question.filter = filter;
        QVERIFY(!portalOptions(question, QStringLiteral("t")).contains("current_filter"));
    }
}

void tst_portalOptions::nameToSave()
{
    const DialogFolders folders;
    PortalQuestion question;
    question.kind = PortalQuestion::Kind::SaveFile;
    question.folder = folders.path();
    question.name = QStringLiteral("new.dat");
    const QVariantMap options = portalOptions(question, QStringLiteral("t"));
    QCOMPARE(options.keys(), (QStringList{"current_folder", "current_name", "handle_token", "modal"}));
    QCOMPARE(options.value("current_name"), QVariant(QStringLiteral("new.dat")));
}

void tst_portalOptions::nameOfAnExistingFile()
{
    const DialogFolders folders;
    const QString file = folders.addFile(QStringLiteral("old.dat"));
    PortalQuestion question;
    question.kind = PortalQuestion::Kind::SaveFile;
    question.folder = folders.path();
    question.name = QStringLiteral("old.dat");
    const QVariantMap options = portalOptions(question, QStringLiteral("t"));
    QCOMPARE(options.value("current_name"), QVariant(QStringLiteral("old.dat")));
    QCOMPARE(options.value("current_file").toByteArray(), file.toUtf8().append('\0'));
    // Without a folder the name would be that of a file in the current folder of the process.
    question.folder.clear();
    QVERIFY(!portalOptions(question, QStringLiteral("t")).contains("current_file"));
}

void tst_portalOptions::nameIsForSavingOnly()
{
    PortalQuestion question;
    question.name = QStringLiteral("a.dat");
    QVERIFY(!portalOptions(question, QStringLiteral("t")).contains("current_name"));
}

void tst_portalOptions::choices()
{
    PortalQuestion question;
    question.choices = {
        {QStringLiteral("1"), QStringLiteral("Preview"), {}, QStringLiteral("true")},
        {QStringLiteral("2"),
         QStringLiteral("Encoding"),
         {{QStringLiteral("u"), QStringLiteral("UTF-8")}, {QStringLiteral("l"), QStringLiteral("Latin 1")}},
         QStringLiteral("l")}};
    const QVariantMap options = portalOptions(question, QStringLiteral("t"));
    QCOMPARE(options.keys(), (QStringList{"choices", "handle_token", "modal"}));
    QVERIFY(options.value("choices").value<QList<PortalChoice>>() == question.choices);
}

void tst_portalOptions::anyCase_data()
{
    QTest::addColumn<QString>("pattern");
    QTest::addColumn<QString>("expected");
    QTest::newRow("extension") << "*.dat"
                               << "*.[dD][aA][tT]";
    QTest::newRow("capitals") << "*.DAT"
                              << "*.[dD][aA][tT]";
    QTest::newRow("everything") << "*"
                                << "*";
    QTest::newRow("digits") << "run?.h5"
                            << "[rR][uU][nN]?.[hH]5";
    QTest::newRow("brackets") << "[a-c]x[!D]"
                              << "[a-c][xX][!D]";
    QTest::newRow("other letters") << QStringLiteral("*.\u00e4") << QStringLiteral("*.[\u00e4\u00c4]");
}

void tst_portalOptions::anyCase()
{
    QFETCH(QString, pattern);
    QTEST(anyCasePattern(pattern), "expected");
}

CORE_TEST_MAIN(tst_portalOptions)
#include "tst_portalOptions.moc"
