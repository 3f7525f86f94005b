#include "ui/qt/dialogs/windows/builtin/FileTypes_p.h"

#include "TestHome.h"

#include <QTest>

#include <limits>

using namespace zelmar::internal;

namespace {

/// Native types, followed by an uncounted row that must not be read.
FileTypes someTypes()
{
    const COMDLG_FILTERSPEC specs[] = {{L"Data", L"*.dat"},     {L"Tables", L"*.csv;*.tab"}, {L"Data", L"*.plt"},
                                       {L"Data", L"*.dat"},     {L"All  of\tit", L""},       {nullptr, nullptr},
                                       {L"Not a type", L"*.no"}};
    return {6, specs};
}

} // namespace

class tst_FileTypes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void none();
    void oneType_data();
    void oneType();
    void placesAreKept();
    void anyNumberHasAValidIndex();
    void indexOfAFilter_data();
    void indexOfAFilter();
};

void tst_FileTypes::none()
{
    const FileTypes types;
    QVERIFY(types.isEmpty());
    QCOMPARE(types.count(), 0);
    QCOMPARE(types.nameFilters(), QStringList());
    QCOMPARE(types.patterns(0), QStringList());
    QCOMPARE(types.validIndex(3), 0);
    QCOMPARE(types.indexOfFilter(QStringLiteral("Data (*.dat)"), 0), 0);
}

void tst_FileTypes::oneType_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("patterns");
    QTest::addColumn<QString>("filter");
    QTest::addColumn<QStringList>("list");

    // clang-format off
    QTest::newRow("one pattern") << "Data files" << "*.dat" << "Data files (*.dat)" << QStringList{"*.dat"};
    QTest::newRow("several") << "Images" << "*.png;*.jpg" << "Images (*.png *.jpg)" << QStringList{"*.png", "*.jpg"};
    QTest::newRow("blanks and needless semicolons") << "Images" << " *.png ;; *.jpg; " << "Images (*.png *.jpg)" << QStringList{"*.png", "*.jpg"};
    QTest::newRow("brackets in the name") << "Data (old) [x]" << "*.dat" << "Data (old) [x] (*.dat)" << QStringList{"*.dat"};
    QTest::newRow("blank in a pattern") << "Runs" << "run *.dat;b" << "Runs (run *.dat b)" << QStringList{"run *.dat", "b"};
    QTest::newRow("no pattern") << "All" << "" << "All ()" << QStringList();
    QTest::newRow("no name") << "" << "*.dat" << "(*.dat)" << QStringList{"*.dat"};
    QTest::newRow("white space in the name") << "  Data \t files" << "*" << "Data files (*)" << QStringList{"*"};
    QTest::newRow("place markers in the name") << "%1 %2" << "*.dat" << "%1 %2 (*.dat)" << QStringList{"*.dat"};
    QTest::newRow("non-ASCII") << QStringLiteral(u"Me\u00dfdaten") << QStringLiteral(u"*.\u00e4") << QStringLiteral(u"Me\u00dfdaten (*.\u00e4)") << QStringList{QStringLiteral(u"*.\u00e4")};
    // clang-format on
}

void tst_FileTypes::oneType()
{
    QFETCH(QString, name);
    QFETCH(QString, patterns);
    const std::wstring wideName = name.toStdWString();
    const std::wstring widePatterns = patterns.toStdWString();
    const COMDLG_FILTERSPEC spec{wideName.c_str(), widePatterns.c_str()};
    const FileTypes types(1, &spec);
    QTEST(types.nameFilters().value(0), "filter");
    QTEST(types.patterns(0), "list");
}

void tst_FileTypes::placesAreKept()
{
    const FileTypes types = someTypes();
    const QStringList filters{"Data (*.dat)", "Tables (*.csv *.tab)", "Data (*.plt)",
                              "Data (*.dat)", "All of it ()",         "()"};
    QCOMPARE(types.nameFilters(), filters);
    QCOMPARE(types.count(), 6);
    QCOMPARE(types.patterns(2), QStringList{"*.plt"});
    QCOMPARE(types.patterns(4), QStringList());
    QCOMPARE(types.patterns(6), QStringList());
    QCOMPARE(types.patterns(-1), QStringList());
}

void tst_FileTypes::anyNumberHasAValidIndex()
{
    const FileTypes types = someTypes();
    for (const int index : {0, 3, 5})
        QCOMPARE(types.validIndex(index), index);
    for (const int outside : {-1, 6, 1000, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()})
        QCOMPARE(types.validIndex(outside), 0);
}

void tst_FileTypes::indexOfAFilter_data()
{
    QTest::addColumn<QString>("filter");
    QTest::addColumn<int>("current");
    QTest::addColumn<int>("expected");

    QTest::newRow("the only one") << "Tables (*.csv *.tab)" << 0 << 1;
    QTest::newRow("first of equal ones") << "Data (*.dat)" << 1 << 0;
    QTest::newRow("current one of equal ones") << "Data (*.dat)" << 3 << 3;
    QTest::newRow("there is none") << "Others (*)" << 2 << 2;
    QTest::newRow("no text") << "" << 2 << 2;
    QTest::newRow("current one is none") << "Data (*.plt)" << -1 << 2;
}

void tst_FileTypes::indexOfAFilter()
{
    QFETCH(QString, filter);
    QFETCH(int, current);
    QTEST(someTypes().indexOfFilter(filter, current), "expected");
}

CORE_TEST_MAIN(tst_FileTypes)
#include "tst_FileTypes.moc"
