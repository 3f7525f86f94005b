#include "TestHome.h"
#include "ui/qt/dialogs/rules/nameFilterList_p.h"

#include <QtTest>

using namespace zelmar::internal;

class tst_nameFilterList : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void splits_data();
    void splits();
    void joins();
};

void tst_nameFilterList::splits_data()
{
    QTest::addColumn<QString>("joined");
    QTest::addColumn<QStringList>("filters");
    QTest::newRow("nothing") << "" << QStringList();
    QTest::newRow("one") << "A (*.a)" << QStringList{"A (*.a)"};
    QTest::newRow("two") << "A (*.a);;B (*.b)" << QStringList{"A (*.a)", "B (*.b)"};
    QTest::newRow("blanks around, and nothing between") << " A (*.a) ;;;;B (*.b) " << QStringList{"A (*.a)", "B (*.b)"};
    // Empty parts are skipped before blanks are removed.
    QTest::newRow("a blank between") << "A (*.a);; ;;B (*.b)" << QStringList{"A (*.a)", "", "B (*.b)"};
    QTest::newRow("only separators") << ";;;;" << QStringList();
    QTest::newRow("three semicolons") << "A (*.a);;;B (*.b)" << QStringList{"A (*.a)", ";B (*.b)"};
    QTest::newRow("one semicolon") << "A (*.a;*.b)" << QStringList{"A (*.a;*.b)"};
    QTest::newRow("several blanks around") << "   A (*.a)   " << QStringList{"A (*.a)"};
    QTest::newRow("other white space stays") << "\tA (*.a)\n" << QStringList{"\tA (*.a)\n"};
    QTest::newRow("blanks inside stay") << "A  B (*.a  *.b)" << QStringList{"A  B (*.a  *.b)"};
}

void tst_nameFilterList::splits()
{
    QFETCH(QString, joined);
    QFETCH(QStringList, filters);
    QCOMPARE(splitNameFilters(joined), filters);
}

void tst_nameFilterList::joins()
{
    QCOMPARE(joinNameFilters({}), std::string());
    QCOMPARE(joinNameFilters({"A (*.a)"}), std::string("A (*.a)"));
    QCOMPARE(joinNameFilters({"A (*.a)", "", "\xC3\xA4 (*.b)"}), std::string("A (*.a);;;;\xC3\xA4 (*.b)"));
    QCOMPARE(joinNameFilters({"", ""}), std::string(";;"));
}

CORE_TEST_MAIN(tst_nameFilterList)
#include "tst_nameFilterList.moc"
