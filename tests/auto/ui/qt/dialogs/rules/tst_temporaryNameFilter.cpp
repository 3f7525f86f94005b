#include "ui/qt/dialogs/rules/temporaryNameFilter_p.h"

#include "TestHome.h"

#include <QTest>

using namespace zelmar::internal;

class tst_temporaryNameFilter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void makesAFilter_data();
    void makesAFilter();
};

void tst_temporaryNameFilter::makesAFilter_data()
{
    QTest::addColumn<QString>("selected");
    QTest::addColumn<QString>("pattern");
    QTest::addColumn<QString>("expected");

    // clang-format off
    QTest::newRow("patterns are replaced") << "Data files (*.dat *.plt)" << "run*" << "Data files (run*)";
    QTest::newRow("all files") << "All files (*)" << "*.txt" << "All files (*.txt)";
    QTest::newRow("no bracket, no blank") << "Everything" << "a*" << "Everything(a*)";
    QTest::newRow("nothing selected") << "" << "a*" << "(a*)";
    QTest::newRow("only patterns") << "(*.dat)" << "a*" << "(a*)";
    QTest::newRow("the first bracket counts") << "Data (old) (*.dat)" << "a*" << "Data (a*)";
    QTest::newRow("the blanks before it go with it") << "Data(*.dat)" << "a*" << "Data(a*)";
    QTest::newRow("several patterns typed") << "Data (*.dat)" << "a* b*" << "Data (a* b*)";
    QTest::newRow("double blanks as the dialog keeps them") << "Data (*.dat)" << "a*  b*" << "Data (a* b*)";
    QTest::newRow("brackets typed") << "Data (*.dat)" << "a(1)*" << "Data (a(1)*)";
    QTest::newRow("non-ASCII") << QStringLiteral(u"Me\u00dfdaten (*.dat)") << QStringLiteral(u"\u00fc*")
                               << QStringLiteral(u"Me\u00dfdaten (\u00fc*)");
    // clang-format on
}

void tst_temporaryNameFilter::makesAFilter()
{
    QFETCH(QString, selected);
    QFETCH(QString, pattern);
    const QString filter = temporaryNameFilter(selected, pattern);
    QTEST(filter, "expected");
    QCOMPARE(patternOf(filter), pattern.simplified());
}

CORE_TEST_MAIN(tst_temporaryNameFilter)
#include "tst_temporaryNameFilter.moc"
