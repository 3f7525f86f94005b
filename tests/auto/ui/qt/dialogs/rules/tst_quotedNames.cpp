#include "TestHome.h"
#include "ui/qt/dialogs/rules/quotedNames_p.h"

#include <QtTest>

using namespace zelmar::internal;

class tst_quotedNames : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void quotes();
    void readsBack_data();
    void readsBack();
    void recognizesQuotedNames_data();
    void recognizesQuotedNames();
    void fileNames_data();
    void fileNames();
    void readsOtherForms_data();
    void readsOtherForms();
};

void tst_quotedNames::quotes()
{
    QCOMPARE(quotedNames({}), std::string());
    QCOMPARE(quotedNames({"a.dat"}), std::string("\"a.dat\" "));
    QCOMPARE(quotedNames({"a.dat", "b.dat"}), std::string("\"a.dat\" \"b.dat\" "));
    QCOMPARE(quotedNames({"", "a b", "", "\xC3\xA4"}), std::string("\"a b\" \"\xC3\xA4\" "));
    QCOMPARE(quotedNames({"", ""}), std::string());
}

void tst_quotedNames::readsBack_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("names");

    QTest::newRow("two names") << "\"a.dat\" \"b.dat\" " << QStringList{"a.dat", "b.dat"};
    QTest::newRow("no blank at the end") << "\"a.dat\" \"b.dat\"" << QStringList{"a.dat", "b.dat"};
    QTest::newRow("a quote inside") << "\"12\" pipe\" \"b\" " << QStringList{"12\" pipe", "b"};
    QTest::newRow("a quote at the start") << "\"\"a\" \"b\" " << QStringList{"\"a", "b"};
    QTest::newRow("a quote at the end") << "\"a\"\" \"b\" " << QStringList{"a\"", "b"};
    QTest::newRow("one name") << "\"12\" pipe\" " << QStringList{"12\" pipe"};
    QTest::newRow("no quotes") << "a.dat" << QStringList();
    QTest::newRow("a quote in a name") << "12\" pipe" << QStringList();
    QTest::newRow("the last quote is missing") << "\"a\" \"b" << QStringList();
    QTest::newRow("one quote") << "\"" << QStringList();
    QTest::newRow("empty") << "" << QStringList();
}

void tst_quotedNames::readsBack()
{
    QFETCH(QString, text);
    QTEST(namesOfQuotedText(text), "names");
}

void tst_quotedNames::recognizesQuotedNames_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("expected");

    QTest::newRow("a name in quotes") << "\"a\"" << true;
    QTest::newRow("several") << "\"a\" \"b\" " << true;
    QTest::newRow("a name that starts with a quote") << "\"a" << false;
    QTest::newRow("quotes inside") << "a \"b\" c" << false;
    QTest::newRow("no quotes") << "a" << false;
    QTest::newRow("empty") << "" << false;
}

void tst_quotedNames::recognizesQuotedNames()
{
    QFETCH(QString, text);
    QTEST(startsWithQuotedName(text), "expected");
}

void tst_quotedNames::fileNames_data()
{
    QTest::addColumn<QStringList>("names");
    QTest::addColumn<QString>("text");

    QTest::newRow("none") << QStringList() << "";
    QTest::newRow("one") << QStringList{"a b.dat"} << "a b.dat";
    QTest::newRow("two") << QStringList{"a b.dat", "c.dat"} << "\"a b.dat\" \"c.dat\"";
    QTest::newRow("three") << QStringList{"a", "b", "c"} << "\"a\" \"b\" \"c\"";
    QTest::newRow("non-ASCII") << QStringList{QStringLiteral(u"\u6e2c"), "b"} << QStringLiteral(u"\"\u6e2c\" \"b\"");
    QTest::newRow("one with a quote") << QStringList{"5\" disk"} << "5\" disk";
    QTest::newRow("one with two quotes") << QStringList{"a \"b\" c"} << "a \"b\" c";
}

void tst_quotedNames::fileNames()
{
    QFETCH(QStringList, names);
    QFETCH(QString, text);
    QCOMPARE(fileNameText(names), text);
    QCOMPARE(namesIn(text), names);
}

void tst_quotedNames::readsOtherForms_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("names");

    QTest::newRow("blank at the end") << "\"a.dat\" \"b.dat\" " << QStringList{"a.dat", "b.dat"};
    QTest::newRow("no blank between") << "\"a\"\"b\"" << QStringList{"a", "b"};
    QTest::newRow("one in quotes") << "\"a.dat\"" << QStringList{"a.dat"};
    QTest::newRow("nothing in quotes") << "\"\" \"b\"" << QStringList{"b"};
    QTest::newRow("quote at the start only") << "\"a" << QStringList{"\"a"};
    QTest::newRow("last quote is missing") << "\"a\" \"b" << QStringList{"a", "b"};
}

void tst_quotedNames::readsOtherForms()
{
    QFETCH(QString, text);
    QTEST(namesIn(text), "names");
}

CORE_TEST_MAIN(tst_quotedNames)
#include "tst_quotedNames.moc"
