#include "TableTestSupport.h"

#include <QDir>
#include <QTest>

#include <algorithm>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

using namespace gallery;

class tst_TableDocument : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readsFiles_data();
    void readsFiles();
    void readsEncodings_data();
    void readsEncodings();
    void findsSequencesAcrossBlocks();
    void refusesFiles_data();
    void refusesFiles();
    void refusesPlaces_data();
    void refusesPlaces();
    void refusesUnreadableFile();
    void refusesTableBeyondItsLimit();
    void survivesLongLines_data();
    void survivesLongLines();
    void stopsWhenAskedTo_data();
    void stopsWhenAskedTo();
    void keepsEditsOverTheFile();
    void findsColumnKinds_data();
    void findsColumnKinds();
};

void tst_TableDocument::readsFiles_data()
{
    const struct
    {
        const char* meaning;
        QByteArray bytes;
        Texts expected;
        const char* name = "t.csv";
    } rows[] = {
        {"empty file", "", {{}}},
        {"only a mark", "\xEF\xBB\xBF", {{}}},
        {"only a header", "a,b\n", {{"a", "b"}}},
        {"LF", "a,b\n1,2\n3,4\n", {{"a", "b"}, {"1", "2"}, {"3", "4"}}},
        {"CR LF", "a,b\r\n1,2\r\n3,4\r\n", {{"a", "b"}, {"1", "2"}, {"3", "4"}}},
        {"mixed line ends, the last missing", "a,b\r1,2\n3,4\r\n5,6", {{"a", "b"}, {"1", "2"}, {"3", "4"}, {"5", "6"}}},
        {"last cell empty, no line end", "a,b\n1,", {{"a", "b"}, {"1", ""}}},
        {"mark and quotes", "\xEF\xBB\xBF\"a,x\",b\n1,2\n", {{"a,x", "b"}, {"1", "2"}}},
        {"quote inside a plain cell", "a,b\n5\" pipe,\"x\"\n", {{"a", "b"}, {"5\" pipe", "x"}}},
        {"text behind the closing quote", "a,b\n\"x\" y,2\n", {{"a", "b"}, {"x y", "2"}}},
        {"quote never closed", "a,b\n1,\"x,\n2,3\n", {{"a", "b"}, {"1", "x,\n2,3\n"}}},
        {"doubled quote, never closed", "a\n\"x\"\"", {{"a"}, {"x\""}}},
        {"quote at the end", "a\n\"", {{"a"}, {""}}},
        {"short rows", "a,b,c\n1\n2,3\n", {{"a", "b", "c"}, {"1", "", ""}, {"2", "3", ""}}},
        {"long row widens", "a\n1,2,3\n4\n", {{"a", "", ""}, {"1", "2", "3"}, {"4", "", ""}}},
        {"empty lines are rows", "a,b\n\n1,2\n\n", {{"a", "b"}, {"", ""}, {"1", "2"}, {"", ""}}},
        {"blanks are kept", "a, b \n 1 ,\t2\n", {{"a", " b "}, {" 1 ", "\t2"}}},
        {"semicolons", "a;b\n1,5;2\n", {{"a", "b"}, {"1,5", "2"}}},
        {"tie of separators", "a;b,c\n1;2,3\n", {{"a;b", "c"}, {"1;2", "3"}}},
        {"quoted semicolons do not count", "\"a;;;\",b\n1,2\n", {{"a;;;", "b"}, {"1", "2"}}},
        {"quoted commas do not count", "x;\"a,b,c,d\"\n1;2\n", {{"x", "a,b,c,d"}, {"1", "2"}}},
        {"inch in the header hides nothing", "5\" pipe;b\n1;2\n", {{"5\" pipe", "b"}, {"1", "2"}}},
        {"tabs", "a\tb,c\n\"x\ty\"\t\"\"\"\"\n", {{"a", "b,c"}, {"x\ty", "\""}}, "t.TSV"},
        {"unknown extension is CSV", "a,b\n", {{"a", "b"}}, "t.dat"},
        {"lists", R"({"rows":[["1",2],["x",""]],"columns":["a","b"]})", {{"a", "b"}, {"1", "2"}, {"x", ""}}, "t.json"},
        {"numbers",
         R"({"columns":["a"],"rows":[[1.5],[1e-05],[1000000]]})",
         {{"a"}, {"1.5"}, {"1e-05"}, {"1000000"}},
         "t.json"},
        {"words", R"({"columns":["a"],"rows":[[true],[null],["null"]]})", {{"a"}, {"true"}, {""}, {"null"}}, "t.json"},
        {"uneven lists", R"({"columns":["a"],"rows":[[],[1,2]]})", {{"a", ""}, {"", ""}, {"1", "2"}}, "t.json"},
        {"no columns", R"({"columns":[],"rows":[[],[]]})", {{}}, "t.json"},
        {"mark before JSON", "\xEF\xBB\xBF{\"columns\":[\"a\"],\"rows\":[[1]]}", {{"a"}, {"1"}}, "t.json"},
        {"objects",
         R"([{"b":1,"a":"x"},{"c":2},{}])",
         {{"a", "b", "c"}, {"x", "1", ""}, {"", "", "2"}, {"", "", ""}},
         "t.json"},
        {"no objects", "[]", {{}}, "t.json"},
    };
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<Texts>("expected");
    for (const auto& row : rows)
        QTest::newRow(row.meaning) << QString(row.name) << row.bytes << row.expected;
}

void tst_TableDocument::readsFiles()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, bytes);
    QFETCH(Texts, expected);
    const TableResult result = TestFolder().load(name, bytes);
    QCOMPARE(result.error, QString());
    QCOMPARE(textsOf(*result.document), expected);
}

void tst_TableDocument::readsEncodings_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("encoding");
    QTest::addColumn<QString>("text");
    const auto utf8 = [](const char* meaning, const QByteArray& bytes) {
        QTest::newRow(meaning) << bytes << "UTF-8" << QString::fromUtf8(bytes);
    };
    const auto latin1 = [](const char* meaning, const QByteArray& bytes) {
        QTest::newRow(meaning) << bytes << "Latin-1" << QString::fromLatin1(bytes);
    };
    utf8("ASCII", "plain");
    utf8("first and last of two and three bytes", "\xC2\x80\xDF\xBF\xE0\xA0\x80\xEF\xBF\xBF");
    utf8("around the surrogates, beyond the first plane", "\xED\x9F\xBF\xEE\x80\x80\xF0\x90\x80\x80\xF4\x8F\xBF\xBF");
    latin1("Latin-1 letter behind UTF-8", "\xC3\xA9 caf\xE9");
    latin1("overlong", "\xC0\xAF");
    latin1("surrogate", "\xED\xA0\x80");
    latin1("beyond Unicode", "\xF4\x90\x80\x80");
    latin1("cut sequence", "\xE2\x82");
    latin1("longer than a block", QByteArray(3000000, 'x') + "\xE9");
    const QString text = QString::fromUtf8("ä€🌍");
    QByteArray little = "\xFF\xFE";
    QByteArray big = "\xFE\xFF";
    for (QChar c : text) {
        little.append(char(c.cell())).append(char(c.row()));
        big.append(char(c.row())).append(char(c.cell()));
    }
    QTest::newRow("UTF-16, little end first") << little << "UTF-16" << text;
    QTest::newRow("UTF-16, big end first, odd byte") << big + 'x' << "UTF-16" << text;
}

void tst_TableDocument::readsEncodings()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, encoding);
    QFETCH(QString, text);
    const TableResult result = TestFolder().load("t.csv", bytes);
    QCOMPARE(result.error, QString());
    QCOMPARE(result.document->encodingName(), encoding);
    QVERIFY(result.document->headerText(0) == text);
    result.document->markSaved();
    QCOMPARE(result.document->encodingName(), QString("UTF-8"));
}

void tst_TableDocument::findsSequencesAcrossBlocks()
{
    const QByteArray globe = QString::fromUtf8("🌍").toUtf8();
    for (int shift = 0; shift < 4; ++shift) {
        const QByteArray bytes = QByteArray(shift, 'x') + globe.repeated(300000);
        const TableResult result = TestFolder().load("t.csv", bytes);
        QCOMPARE(result.document->encodingName(), QString("UTF-8"));
        QVERIFY(result.document->headerText(0).toUtf8() == bytes);
    }
}

void tst_TableDocument::refusesFiles_data()
{
    const struct
    {
        const char* meaning;
        QByteArray bytes;
        const char* reason;
        const char* name = "t.json";
    } rows[] = {
        {"NUL behind a long text", QByteArray("a,b\n").repeated(1000000) + '\0', "binary", "t.csv"},
        {"control character at the beginning",
         "\x7F"
         "ELF\x02\x01\n",
         "binary", "t.csv"},
        {"picture", "\x89PNG\r\n\x1A\n", "binary", "t.csv"},
        {"NUL in UTF-16", QByteArray("\xFF\xFE\0\0x\0", 6), "binary", "t.csv"},
        {"empty", "", "Line 1, column 1"},
        {"comma missing", "[{\"a\":1,\n\"b\":2 3}]", "Line 2, column 7"},
        {"unknown word", "[{\"a\":\n\nnil}]", "Line 3, column 2"},
        {"not closed", R"({"rows":[[1])", "Line 1"},
        {"something behind", "[]\n\n[]", "Line 2"},
        {"deep nesting", QByteArray(1000000, '['), "Line 1"},
        {"no rows", R"({"columns":["a"]})", "\"rows\""},
        {"other member", R"({"columns":["a"],"rows":[],"cells":1})", "\"rows\""},
        {"row no list", R"({"columns":["a"],"rows":[[1],2]})", "Row 2 is neither"},
        {"list as cell", R"({"columns":["a"],"rows":[[[1]]]})", "Row 1: a cell has to be a plain value"},
        {"object as cell", R"([{"a":1},{"a":{}}])", "Row 2: a cell has to be a plain value"},
    };
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("reason");
    for (const auto& row : rows)
        QTest::newRow(row.meaning) << QString(row.name) << row.bytes << QString(row.reason);
}

void tst_TableDocument::refusesFiles()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, bytes);
    QFETCH(QString, reason);
    const TableResult result = TestFolder().load(name, bytes);
    QVERIFY(!result.document);
    QVERIFY2(result.error.contains(reason), qPrintable(result.error));
}

void tst_TableDocument::refusesPlaces_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("reason");
    QTest::newRow("no name") << QString() << "does not exist";
    QTest::newRow("missing") << QString("missing.csv") << "does not exist";
    QTest::newRow("folder") << QString(".") << "folder";
    QTest::newRow("beyond memory") << QString("big.csv") << "too big";
#ifdef Q_OS_UNIX
    QTest::newRow("pipe") << QString("pipe") << "not a regular file";
    QTest::newRow("device") << QString("/dev/zero") << "not a regular file";
#endif
}

void tst_TableDocument::refusesPlaces()
{
    QFETCH(QString, path);
    QFETCH(QString, reason);
    const TestFolder folder;
    QVERIFY(QFile::resize(folder.write("big.csv", "a"), Q_INT64_C(1) << 42));
#ifdef Q_OS_UNIX
    QCOMPARE(mkfifo(QFile::encodeName(folder.path("pipe")).constData(), 0600), 0);
#endif
    const TableResult result = readTable(path.isEmpty() ? path : QDir(folder.path(".")).filePath(path));
    QVERIFY(!result.document);
    QVERIFY2(result.error.contains(reason), qPrintable(result.error));
}

void tst_TableDocument::refusesUnreadableFile()
{
    if (systemLimits::noRefusedReading)
        QSKIP(systemLimits::noRefusedReading);
    const TestFolder folder;
    setAccess(folder.path("."), Access::Everything);
    const QString path = folder.write("t.csv", "a,b\n");
    setAccess(path, Access::Nothing);
    const OrdinaryUser user;
    QVERIFY(user.isOrdinary());
    const TableResult result = readTable(path);
    QVERIFY(!result.document);
    QVERIFY2(result.error.contains("cannot be read"), qPrintable(result.error));
}

void tst_TableDocument::refusesTableBeyondItsLimit()
{
    TableSource table({}, 12000);
    int cells = 0;
    try {
        for (; cells < 2000; ++cells)
            table.endCell();
    } catch (const TableError& error) {
        QCOMPARE(error.text, tooBigText());
    }
    QVERIFY2(cells > 500 && cells < 1500, qPrintable(QString::number(cells)));
}

void tst_TableDocument::survivesLongLines_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<int>("rows");
    QTest::addColumn<int>("columns");
    QTest::addColumn<QString>("lastCell");
    const int size = 10 << 20;
    QTest::newRow("one quoted cell") << "a\n\"" + QByteArray(size, '\n') << 1 << 1 << QString(size, '\n');
    QTest::newRow("many cells") << "a\n" + QByteArray(size, ',') + "z" << 1 << size + 1 << "z";
    QTest::newRow("wide header") << QByteArray(size, ',') + "\nz" << 1 << size + 1 << "";
    QTest::newRow("nothing but quotes") << "a\n" + QByteArray(size, '"') << 1 << 1 << QString(size / 2 - 1, '"');
    QTest::newRow("nothing but line ends") << QByteArray(size, '\n') << size - 1 << 1 << "";
}

void tst_TableDocument::survivesLongLines()
{
    QFETCH(QByteArray, bytes);
    QFETCH(int, rows);
    QFETCH(int, columns);
    QFETCH(QString, lastCell);
    const TableResult result = TestFolder().load("t.csv", bytes);
    QCOMPARE(result.error, QString());
    QCOMPARE(result.document->rowCount(), rows);
    QCOMPARE(result.document->columnCount(), columns);
    QVERIFY(result.document->text(rows - 1, columns - 1) == lastCell);
}

void tst_TableDocument::stopsWhenAskedTo_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("stopAt");
    QTest::newRow("while reading") << "t.csv" << 10;
    QTest::newRow("while finding the encoding") << "t.csv" << 42;
    QTest::newRow("while finding cells") << "t.csv" << 70;
    QTest::newRow("while finding cells of JSON") << "t.json" << 81;
    QTest::newRow("never") << "t.csv" << 101;
}

void tst_TableDocument::stopsWhenAskedTo()
{
    QFETCH(QString, name);
    QFETCH(int, stopAt);
    const TestFolder folder;
    const QByteArray rows = QByteArray("[1,2,3],\n").repeated(1000000);
    const QString path = folder.write(name, "{\"columns\":[],\"rows\":[\n" + rows + "[]]}");
    QVector<int> percents;
    const TableResult result = readTable(path, [&](int percent) {
        percents += percent;
        return percent < stopAt;
    });
    QVERIFY(percents.size() > 3);
    QVERIFY(std::is_sorted(percents.begin(), percents.end()));
    const auto stop = std::lower_bound(percents.begin(), percents.end(), stopAt);
    QVERIFY(stop >= percents.end() - 1); // There are no calls after the stop.
    QCOMPARE(result.error.contains("cancelled"), stopAt <= 100);
    QVERIFY2(percents.last() < stopAt + 25, qPrintable(QString::number(percents.last())));
    QCOMPARE(percents.last() == 100, bool(result.document));
}

void tst_TableDocument::keepsEditsOverTheFile()
{
    TableDocument document = *TestFolder().load("t.csv", "a,b,c\n1,2,3\n4\n").document;
    QVERIFY(!document.setText(0, 1, "2"));
    QVERIFY(document.setText(0, 1, "two"));
    QVERIFY(document.setText(1, 2, "six"));
    const Texts edited = {{"a", "b", "c"}, {"1", "two", "3"}, {"4", "", "six"}};
    QCOMPARE(textsOf(document), edited);
    QCOMPARE(document.cellCount(0), 3);
    QCOMPARE(document.cellCount(1), 3);

    const TableDocument copy = document;
    document.markSaved();
    QVERIFY(document.setText(0, 1, "2"));
    QVERIFY(document.setText(1, 2, ""));
    QCOMPARE(document.cellCount(1), 1);
    QCOMPARE(textsOf(copy), edited);

    document.setText(0, 0, QString(QChar(0xFEFF)) + QChar(0xD83C) + "x");
    QVERIFY(document.text(0, 0).isValidUtf16());
    QVERIFY(document.text(0, 0).startsWith(QChar(0xFEFF)) && document.text(0, 0).endsWith('x'));
}

void tst_TableDocument::findsColumnKinds_data()
{
    QTest::addColumn<QByteArray>("cells");
    QTest::addColumn<bool>("isNumber");
    QTest::newRow("integers") << QByteArray("1\n-2\n+3\n") << true;
    QTest::newRow("scientific") << QByteArray("1e-3\n2.5E+7\n.5\n") << true;
    QTest::newRow("with empty cells") << QByteArray("\"1\"\n\n2\n") << true;
    QTest::newRow("only empty cells") << QByteArray("\n\n") << false;
    QTest::newRow("no rows") << QByteArray() << false;
    QTest::newRow("one text") << QByteArray("1\n2\nthree\n") << false;
    QTest::newRow("one text first") << QByteArray("one\n2\n3\n") << false;
    QTest::newRow("decimal comma") << QByteArray("\"1,5\"\n") << false;
    QTest::newRow("texts far behind") << QByteArray("1\n").repeated(9999) + QByteArray("x\n").repeated(9999) << false;
}

void tst_TableDocument::findsColumnKinds()
{
    QFETCH(QByteArray, cells);
    QFETCH(bool, isNumber);
    const TableResult result = TestFolder().load("t.csv", "a\n" + cells);
    QCOMPARE(result.document->columnKind(0) == ColumnKind::Number, isNumber);
}

QTEST_GUILESS_MAIN(tst_TableDocument)
#include "tst_TableDocument.moc"
