#include "ui/qt/dialogs/windows/builtin/texts_p.h"

#include "TestHome.h"

#include <QTest>

using namespace zelmar::internal;

class tst_texts : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void namesAndText_data();
    void namesAndText();
    void readOnly_data();
    void readOnly();
    void mnemonics_data();
    void mnemonics();
    void keptMnemonicIsTaken();
};

void tst_texts::namesAndText_data()
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

void tst_texts::namesAndText()
{
    QFETCH(QStringList, names);
    QFETCH(QString, text);
    QCOMPARE(fileNameText(names), text);
    QCOMPARE(namesIn(text), names);
}

void tst_texts::readOnly_data()
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

void tst_texts::readOnly()
{
    QFETCH(QString, text);
    QTEST(namesIn(text), "names");
}

void tst_texts::mnemonics_data()
{
    QTest::addColumn<QString>("label");
    QTest::addColumn<QString>("expected"); // result when Alt+O is taken

    QTest::newRow("no mnemonic") << "Options"
                                 << "Options";
    QTest::newRow("free") << "O&ptions"
                          << "O&ptions";
    QTest::newRow("taken") << "&Options"
                           << "Options";
    QTest::newRow("taken, the other case") << "Read &only"
                                           << "Read only";
    QTest::newRow("letter of its own beside") << "A && &O"
                                              << "A && O";
    QTest::newRow("ampersand only") << "A && O"
                                    << "A && O";
    QTest::newRow("at the end") << "O&"
                                << "O&";
    QTest::newRow("empty") << ""
                           << "";
}

void tst_texts::mnemonics()
{
    QFETCH(QString, label);
    QSet<QKeySequence> taken{QKeySequence(QStringLiteral("Alt+O"))};
    QTEST(withFreeMnemonic(label, taken), "expected");
}

void tst_texts::keptMnemonicIsTaken()
{
    QSet<QKeySequence> taken;
    QCOMPARE(withFreeMnemonic(QStringLiteral("&Preview"), taken), QStringLiteral("&Preview"));
    QCOMPARE(withFreeMnemonic(QStringLiteral("&Print"), taken), QStringLiteral("Print"));
    QCOMPARE(withFreeMnemonic(QStringLiteral("&Details"), taken), QStringLiteral("&Details"));
}

CORE_TEST_MAIN(tst_texts)
#include "tst_texts.moc"
