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

CORE_TEST_MAIN(tst_quotedNames)
#include "tst_quotedNames.moc"
