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
    void joinsPairsAcrossBlocks();
    void explainsMalformedJson_data();
    void explainsMalformedJson();
    void refusesWhatIsNoFile_data();
    void refusesWhatIsNoFile();
    void refusesEmptyName();
    void refusesUnreadableFile();
    void refusesFileBeyondMemory();
    void refusesIndexBeyondItsLimit();
    void survivesLongLines_data();
    void survivesLongLines();
    void stopsWhenAskedTo_data();
    void stopsWhenAskedTo();
    void reportsRisingProgress();
    void keepsEditsOverTheFile();
    void replacesHalfPairs();
    void copiesAreSnapshots();
    void findsColumnKinds_data();
    void findsColumnKinds();
    void samplesTheWholeFile();
    void readsTheExample();
};

void tst_TableDocument::readsFiles_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<Texts>("expected");

    const auto csv = [](const char* meaning, const QByteArray& bytes, const Texts& expected) {
        QTest::newRow(meaning) << "table.csv" << bytes << expected;
    };
    csv("empty file", "", {{}});
    csv("only a mark", "\xEF\xBB\xBF", {{}});
    csv("only a header", "a,b\n", {{"a", "b"}});
    csv("only a header, line not ended", "a,b", {{"a", "b"}});
    csv("LF", "a,b\n1,2\n3,4\n", {{"a", "b"}, {"1", "2"}, {"3", "4"}});
    csv("CR LF", "a,b\r\n1,2\r\n3,4\r\n", {{"a", "b"}, {"1", "2"}, {"3", "4"}});
    csv("CR", "a,b\r1,2\r3,4\r", {{"a", "b"}, {"1", "2"}, {"3", "4"}});
    csv("mixed line ends", "a,b\r1,2\n3,4\r\n5,6", {{"a", "b"}, {"1", "2"}, {"3", "4"}, {"5", "6"}});
    csv("last line not ended", "a,b\n1,2", {{"a", "b"}, {"1", "2"}});
    csv("last cell empty and not ended", "a,b\n1,", {{"a", "b"}, {"1", ""}});
    csv("UTF-8 mark",
        "\xEF\xBB\xBF"
        "a,b\n1,2\n",
        {{"a", "b"}, {"1", "2"}});
    csv("UTF-8 mark and quotes", "\xEF\xBB\xBF\"a,x\",b\n1,2\n", {{"a,x", "b"}, {"1", "2"}});
    csv("separator in quotes", "a,b\n\"1,5\",2\n", {{"a", "b"}, {"1,5", "2"}});
    csv("line ends in quotes", "a\n\"x\r\ny\rz\nw\"\n", {{"a"}, {"x\r\ny\rz\nw"}});
    csv("doubled quotes", "a,b\n\"say \"\"hi\"\"\",\"\"\"\"\n", {{"a", "b"}, {"say \"hi\"", "\""}});
    csv("empty quotes", "a,b\n\"\",\"\"\n", {{"a", "b"}, {"", ""}});
    csv("quote inside a plain cell", "a,b\n5\" pipe,\"x\"\n", {{"a", "b"}, {"5\" pipe", "x"}});
    csv("text behind the closing quote", "a,b\n\"x\" y,2\n", {{"a", "b"}, {"x y", "2"}});
    csv("quote never closed", "a,b\n1,\"x,\n2,3\n", {{"a", "b"}, {"1", "x,\n2,3\n"}});
    csv("doubled quote at the end, never closed", "a\n\"x\"\"", {{"a"}, {"x\""}});
    csv("lonely quote", "a\n\"", {{"a"}, {""}});
    csv("short rows", "a,b,c\n1\n2,3\n", {{"a", "b", "c"}, {"1", "", ""}, {"2", "3", ""}});
    csv("long row widens", "a\n1,2,3\n4\n", {{"a", "", ""}, {"1", "2", "3"}, {"4", "", ""}});
    csv("empty line is a row", "a,b\n\n1,2\n", {{"a", "b"}, {"", ""}, {"1", "2"}});
    csv("blanks are kept", "a, b \n 1 ,\t2\n", {{"a", " b "}, {" 1 ", "\t2"}});
    csv("semicolons", "a;b\n1,5;2\n", {{"a", "b"}, {"1,5", "2"}});
    csv("tie of separators", "a;b,c\n1;2,3\n", {{"a;b", "c"}, {"1;2", "3"}});
    csv("quoted semicolons do not count", "\"a;;;\",b\n1,2\n", {{"a;;;", "b"}, {"1", "2"}});
    csv("quoted commas do not count", "x;\"a,b,c,d\"\n1;2\n", {{"x", "a,b,c,d"}, {"1", "2"}});
    csv("inch in the header hides nothing", "5\" pipe;b;c\n1;2;3\n", {{"5\" pipe", "b", "c"}, {"1", "2", "3"}});
    csv("tab is no separator here", "a\tb\n1\t2\n", {{"a\tb"}, {"1\t2"}});
    csv("non-ASCII",
        "gr\xC3\xB6\xC3\x9F"
        "e,\xF0\x9F\x8C\x8D\n\xE2\x82\xAC,2\n",
        {{QString::fromUtf8("größe"), QString::fromUtf8("🌍")}, {QString::fromUtf8("€"), "2"}});
    csv("mark inside", "a\n\xEF\xBB\xBFx\n", {{"a"}, {QString(QChar(0xFEFF)) + "x"}});
    csv("NUL", QByteArray("a,b\nx\0y,\0\n", 10), {{"a", "b"}, {QString::fromLatin1("x\0y", 3), QString(1, QChar())}});

    QTest::newRow("tabs") << "t.tsv" << QByteArray("a\tb,c\n\"x\ty\"\t\"\"\"\"\n")
                          << Texts{{"a", "b,c"}, {"x\ty", "\""}};
    QTest::newRow("extension in capitals") << "T.TSV" << QByteArray("a\tb\n") << Texts{{"a", "b"}};
    QTest::newRow("unknown extension is CSV") << "t.dat" << QByteArray("a,b\n") << Texts{{"a", "b"}};

    const auto json = [](const char* meaning, const QByteArray& bytes, const Texts& expected) {
        QTest::newRow(meaning) << "table.json" << bytes << expected;
    };
    json("JSON, columns and rows", R"({"columns": ["a","b"], "rows": [["1", 2], ["x", ""]]})",
         {{"a", "b"}, {"1", "2"}, {"x", ""}});
    json("JSON, rows first", R"( { "rows" : [ [ 1 , 2 ] ] , "columns" : [ "a" , "b" ] } )", {{"a", "b"}, {"1", "2"}});
    json("JSON, numbers as written", R"({"columns":["a"],"rows":[[1.50],[-0],[1e-05],[12345678901234567890]]})",
         {{"a"}, {"1.50"}, {"-0"}, {"1e-05"}, {"12345678901234567890"}});
    json("JSON, other values", R"({"columns":["a"],"rows":[[true],[false],[null],["null"]]})",
         {{"a"}, {"true"}, {"false"}, {""}, {"null"}});
    json("JSON, escapes", R"({"columns":["a\"b"],"rows":[["\\\/\b\f\n\r\t\u20ac\ud83c\udf0d"]]})",
         {{"a\"b"}, {QString::fromUtf8("\\/\b\f\n\r\t€🌍")}});
    json("JSON, half a pair", R"({"columns":["a"],"rows":[["x\ud83cy"],["\udf0d"]]})",
         {{"a"}, {"x" + QString(QChar(0xFFFD)) + "y"}, {QString(QChar(0xFFFD))}});
    json("JSON, brackets in texts", R"({"columns":["a,]"],"rows":[["}],["]]})", {{"a,]"}, {"}],["}});
    json("JSON, ragged rows", R"({"columns":["a"],"rows":[[],[1,2,3]]})",
         {{"a", "", ""}, {"", "", ""}, {"1", "2", "3"}});
    json("JSON, no rows", R"({"columns":["a"],"rows":[]})", {{"a"}});
    json("JSON, no columns", R"({"columns":[],"rows":[[],[]]})", {{}});
    json("JSON, UTF-8 mark", "\xEF\xBB\xBF{\"columns\":[\"a\"],\"rows\":[[1]]}", {{"a"}, {"1"}});
    json("JSON objects", R"([{"a":1,"b":"x"},{"a":2,"b":"y"}])", {{"a", "b"}, {"1", "x"}, {"2", "y"}});
    json("JSON objects, other order", R"([{"a":1,"b":2,"c":3},{"c":6,"a":4,"b":5}])",
         {{"a", "b", "c"}, {"1", "2", "3"}, {"4", "5", "6"}});
    json("JSON objects, missing and new keys", R"([{"a":1,"b":2},{"b":3,"c":4},{}])",
         {{"a", "b", "c"}, {"1", "2", ""}, {"", "3", "4"}, {"", "", ""}});
    json("JSON objects, key escaped differently", R"([{"a":1},{"\u0061":2}])", {{"a"}, {"1"}, {"2"}});
    json("JSON objects, key starts like another", R"([{"ab":1},{"a":2}])", {{"ab", "a"}, {"1", ""}, {"", "2"}});
    json("JSON, no objects", "[]", {{}});
}

void tst_TableDocument::readsFiles()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, bytes);
    QFETCH(Texts, expected);
    const TestFolder folder;
    const TableResult result = folder.load(name, bytes);
    QCOMPARE(result.error, QString());
    QCOMPARE(textsOf(*result.document), expected);
    QCOMPARE(result.document->rowCount(), expected.size() - 1);
    QCOMPARE(result.document->columnCount(), expected[0].size());
    QVERIFY(!result.document->isModified());
}

void tst_TableDocument::readsEncodings_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("encoding");
    QTest::addColumn<Texts>("expected");

    const auto latin1 = [](const char* meaning, const QByteArray& cell) {
        QTest::newRow(meaning) << "a\n" + cell + "\n"
                               << "Latin-1" << Texts{{"a"}, {QString::fromLatin1(cell)}};
    };
    const auto utf8 = [](const char* meaning, const QByteArray& cell) {
        QTest::newRow(meaning) << "a\n" + cell + "\n"
                               << "UTF-8" << Texts{{"a"}, {QString::fromUtf8(cell)}};
    };
    utf8("ASCII", "plain text that is longer than eight bytes");
    utf8("two bytes", "12345678\xC3\xA9");
    utf8("first and last of two bytes", "\xC2\x80\xDF\xBF");
    utf8("first and last of three bytes", "\xE0\xA0\x80\xEF\xBF\xBD");
    utf8("around the surrogates", "\xED\x9F\xBF\xEE\x80\x80");
    utf8("first and last of four bytes", "\xF0\x90\x80\x80\xF4\x8F\xBF\xBF");
    latin1("Latin-1 letter", "caf\xE9");
    latin1("Latin-1 letter behind UTF-8", "\xC3\xA9 12345678 caf\xE9");
    latin1("continuation alone", "\x80");
    latin1("overlong slash", "\xC0\xAF");
    latin1("overlong of three bytes", "\xE0\x9F\xBF");
    latin1("overlong of four bytes", "\xF0\x8F\xBF\xBF");
    latin1("surrogate", "\xED\xA0\x80");
    latin1("beyond Unicode", "\xF4\x90\x80\x80");
    latin1("no such lead", "\xF8\x88\x80\x80\x80");
    latin1("cut sequence", "\xE2\x82");
    QTest::newRow("sequence cut by the end")
        << QByteArray("a\n\xE2\x82") << "Latin-1" << Texts{{"a"}, {QString::fromLatin1("\xE2\x82")}};

    const QString text = QString::fromUtf8("ä,\"b\nc\"\r\n€,🌍\r\n");
    const Texts expected = {{QString::fromUtf8("ä"), "b\nc"}, {QString::fromUtf8("€"), QString::fromUtf8("🌍")}};
    QByteArray little = "\xFF\xFE";
    QByteArray big = "\xFE\xFF";
    for (QChar c : text) {
        little.append(char(c.cell())).append(char(c.row()));
        big.append(char(c.row())).append(char(c.cell()));
    }
    QTest::newRow("UTF-16, little end first") << little << "UTF-16" << expected;
    QTest::newRow("UTF-16, big end first") << big << "UTF-16" << expected;
}

void tst_TableDocument::readsEncodings()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, encoding);
    QFETCH(Texts, expected);
    const TestFolder folder;
    const TableResult result = folder.load("t.csv", bytes);
    QCOMPARE(result.error, QString());
    QCOMPARE(result.document->encodingName(), encoding);
    QCOMPARE(textsOf(*result.document), expected);
}

void tst_TableDocument::joinsPairsAcrossBlocks()
{
    // An odd number of units first, with the mark, so that a block of any even size ends within a pair.
    QString text = "a\nxy";
    for (int i = 0; i < 600000; ++i)
        text += QString::fromUtf8("🌍");
    QByteArray bytes = "\xFF\xFE";
    for (QChar c : qAsConst(text))
        bytes.append(char(c.cell())).append(char(c.row()));
    const TestFolder folder;
    const TableResult result = folder.load("t.csv", bytes);
    QCOMPARE(result.error, QString());
    QVERIFY(result.document->text(0, 0) == text.mid(2));
}

void tst_TableDocument::explainsMalformedJson_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("place");
    QTest::addColumn<QString>("reason");

    const struct
    {
        const char* name;
        QByteArray bytes;
        const char* place;
        const char* reason;
    } rows[] = {
        {"empty", {}, "Line 1, column 1", "start with"},
        {"a number", "\n 12", "Line 2, column 2", "start with"},
        {"no rows", R"({"columns":["a"]})", "Line 1, column 18", "lacks"},
        {"no columns", R"({"rows":[]})", "Line 1, column 12", "lacks"},
        {"rows twice", R"({"rows":[],"rows":[]})", "Line 1", "once"},
        {"other member", R"({"cells":[]})", "Line 1", "\"cells\""},
        {"rows no list", R"({"rows":12})", "Line 1, column 9", "[ was expected"},
        {"row no list", "{\"rows\":\n[12]}", "Line 2, column 2", "[ was expected"},
        {"list as cell", R"({"rows":[[[1]]]})", "Line 1, column 11", "plain value"},
        {"object as cell", R"([{"a":{}}])", "Line 1, column 7", "plain value"},
        {"object missing", "[1]", "Line 1, column 2", "{ was expected"},
        {"key missing", "[{1:2}]", "Line 1, column 3", "quotes"},
        {"key twice", R"([{"a":1,"a":2}])", "Line 1", "twice"},
        {"comma missing", R"({"rows":[[1 2]]})", "Line 1, column 13", "comma"},
        {"comma too many", R"({"rows":[[1,]]})", "Line 1, column 13", "value"},
        {"colon missing", R"([{"a" 1}])", "Line 1, column 7", ": was expected"},
        {"not closed", R"({"rows":[[1])", "Line 1, column 13", "comma or ]"},
        {"ends before a value", R"({"rows":[[1,)", "Line 1, column 13", "ends"},
        {"text not closed", "[{\"a\":\"x}]", "Line 1", "byte 6"},
        {"line end in text", "[{\"a\":\"x\n\"}]", "Line 1, column 9", "control"},
        {"NUL in text", QByteArray("[{\"a\":\"\0\"}]", 11), "Line 1, column 8", "control"},
        {"no escape", R"([{"a":"\x"}])", "Line 1, column 8", "escape"},
        {"short escape", R"([{"a":"\u12G4"}])", "Line 1, column 8", "escape"},
        {"cut escape", R"([{"a":"\u12)", "Line 1, column 8", "escape"},
        {"backslash at the end", "[{\"a\":\"\\", "Line 1, column 8", "escape"},
        {"leading zero", R"([{"a":012}])", "Line 1, column 7", "number"},
        {"no digit", R"([{"a":-}])", "Line 1, column 7", "number"},
        {"no decimals", R"([{"a":1.}])", "Line 1, column 7", "number"},
        {"no exponent", R"([{"a":1e+}])", "Line 1, column 7", "number"},
        {"unknown word", R"([{"a":nil}])", "Line 1, column 7", "value"},
        {"word goes on", R"([{"a":nullx}])", "Line 1, column 11", "comma"},
        {"something behind", "[]\n\n[]", "Line 3, column 1", "follow"},
        {"deep nesting", QByteArray(1000000, '['), "Line 1, column 2", "{ was expected"},
    };
    for (const auto& row : rows)
        QTest::newRow(row.name) << row.bytes << row.place << row.reason;
}

void tst_TableDocument::explainsMalformedJson()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, place);
    QFETCH(QString, reason);
    const TestFolder folder;
    const TableResult result = folder.load("t.json", bytes);
    QVERIFY(!result.document);
    QVERIFY2(result.error.startsWith(place), qPrintable(result.error));
    QVERIFY2(result.error.contains(reason), qPrintable(result.error));
}

void tst_TableDocument::refusesWhatIsNoFile_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("reason");
    QTest::newRow("missing") << "missing.csv"
                             << "does not exist";
    QTest::newRow("folder") << "."
                            << "folder";
#ifdef Q_OS_UNIX
    QTest::newRow("pipe") << "pipe"
                          << "not a regular file";
    QTest::newRow("device") << "/dev/zero"
                            << "not a regular file";
#endif
}

void tst_TableDocument::refusesWhatIsNoFile()
{
    QFETCH(QString, path);
    QFETCH(QString, reason);
    const TestFolder folder;
#ifdef Q_OS_UNIX
    QCOMPARE(mkfifo(QFile::encodeName(folder.path("pipe")).constData(), 0600), 0);
#endif
    const TableResult result = readTable(QDir(folder.path(".")).filePath(path));
    QVERIFY(!result.document);
    QVERIFY2(result.error.contains(reason), qPrintable(result.error));
}

void tst_TableDocument::refusesEmptyName()
{
    QVERIFY(readTable(QString()).error.contains("does not exist"));
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

void tst_TableDocument::refusesFileBeyondMemory()
{
    const TestFolder folder;
    const QString path = folder.write("t.csv", "a,b\n");
    QVERIFY(QFile::resize(path, Q_INT64_C(1) << 42));
    const TableResult result = readTable(path);
    QVERIFY(!result.document);
    QVERIFY2(result.error.contains("too big"), qPrintable(result.error));
}

void tst_TableDocument::refusesIndexBeyondItsLimit()
{
    TableIndex index(1000);
    bool ok = index.beginRow(0);
    quint64 column = 0;
    for (; ok && column < 1000; ++column)
        ok = index.setCell(column, column, 0);
    QVERIFY(!ok);
    QVERIFY2(column > 50 && column < 250, qPrintable(QString::number(column)));
    QVERIFY2(index.error().contains("too big"), qPrintable(index.error()));

    TableIndex longRow(1000);
    QVERIFY(longRow.beginRow(5));
    QVERIFY(longRow.setCell(0, 5, 1));
    QVERIFY(!longRow.setCell(1, Q_UINT64_C(0x100000005), 1));
    QVERIFY2(longRow.error().contains("too long"), qPrintable(longRow.error()));
}

void tst_TableDocument::survivesLongLines_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<int>("rows");
    QTest::addColumn<int>("columns");
    QTest::addColumn<QString>("lastCell");
    const int size = 10 << 20;
    QTest::newRow("one cell") << "a\n" + QByteArray(size, 'x') << 1 << 1 << QString(size, 'x');
    QTest::newRow("one quoted cell") << "a\n\"" + QByteArray(size, '\n') << 1 << 1 << QString(size, '\n');
    QTest::newRow("many cells") << "a\n" + QByteArray(size, ',') + "z" << 1 << size + 1 << "z";
    QTest::newRow("wide header") << QByteArray(size, ',') + "\nz" << 1 << size + 1 << "";
    QTest::newRow("nothing but NUL") << QByteArray(size, '\0') << 0 << 1 << "";
    QTest::newRow("nothing but quotes") << QByteArray(size, '"') << 0 << 1 << "";
    QTest::newRow("nothing but line ends") << QByteArray(size, '\n') << size - 1 << 1 << "";
}

void tst_TableDocument::survivesLongLines()
{
    QFETCH(QByteArray, bytes);
    QFETCH(int, rows);
    QFETCH(int, columns);
    QFETCH(QString, lastCell);
    const TestFolder folder;
    const TableResult result = folder.load("t.csv", bytes);
    QCOMPARE(result.error, QString());
    QCOMPARE(result.document->rowCount(), rows);
    QCOMPARE(result.document->columnCount(), columns);
    if (rows > 0)
        QVERIFY(result.document->text(rows - 1, columns - 1) == lastCell);
}

void tst_TableDocument::stopsWhenAskedTo_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("mark");
    QTest::addColumn<int>("stopAt");
    QTest::newRow("while reading") << "t.csv" << QByteArray() << 10;
    QTest::newRow("while finding the encoding") << "t.csv" << QByteArray() << 42;
    QTest::newRow("while converting") << "t.csv" << QByteArray("\xFF\xFE") << 42;
    QTest::newRow("while finding cells") << "t.csv" << QByteArray() << 70;
    QTest::newRow("while finding cells of JSON") << "t.json" << QByteArray() << 70;
}

void tst_TableDocument::stopsWhenAskedTo()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, mark);
    QFETCH(int, stopAt);
    QByteArray bytes = mark + "{\"columns\":[],\"rows\":[\n";
    for (int i = 0; i < 1000000; ++i)
        bytes += "[1,2,3],\n";
    const TestFolder folder;
    const QString path = folder.write(name, bytes);
    int stoppedAt = -1;
    int callsAfterStop = 0;
    const TableResult result = readTable(path, [&](int percent) {
        if (stoppedAt >= 0)
            ++callsAfterStop;
        else if (percent >= stopAt)
            stoppedAt = percent;
        return stoppedAt < 0;
    });
    QVERIFY(!result.document);
    QVERIFY2(result.error.contains("cancelled"), qPrintable(result.error));
    QVERIFY2(stoppedAt >= stopAt && stoppedAt < stopAt + 25, qPrintable(QString::number(stoppedAt)));
    QCOMPARE(callsAfterStop, 0);
}

void tst_TableDocument::reportsRisingProgress()
{
    const TestFolder folder;
    QVector<int> percents;
    const QString path = folder.write("t.csv", QByteArray(5000000, ','));
    const TableResult result = readTable(path, [&](int percent) {
        percents += percent;
        return true;
    });
    QVERIFY(result.document);
    QVERIFY(percents.size() > 10);
    QVERIFY(std::is_sorted(percents.begin(), percents.end()));
    QCOMPARE(percents.first(), 0);
    QCOMPARE(percents.last(), 100);
}

void tst_TableDocument::keepsEditsOverTheFile()
{
    const TestFolder folder;
    TableDocument document = *folder.load("t.csv", "a,b,c\n1,2,3\n4\n").document;
    QVERIFY(!document.setText(0, 1, "2"));
    QVERIFY(!document.isModified());

    QVERIFY(document.setText(0, 1, "two"));
    QVERIFY(document.setText(1, 2, "six"));
    QVERIFY(document.isModified());
    QCOMPARE(textsOf(document), (Texts{{"a", "b", "c"}, {"1", "two", "3"}, {"4", "", "six"}}));
    QCOMPARE(document.editedRows(), (QVector<int>{0, 1}));
    QCOMPARE(document.cellCount(0), 3);
    QCOMPARE(document.cellCount(1), 3);

    document.markSaved();
    QVERIFY(!document.isModified());
    QVERIFY(document.setText(0, 1, "2"));
    QVERIFY(document.isModified());
    QVERIFY(!document.isEdited(0, 1));
    QVERIFY(!document.hasEdits(0));
    QVERIFY(document.hasEdits(1));
    QVERIFY(document.setText(1, 2, ""));
    QCOMPARE(document.cellCount(1), 1);
}

void tst_TableDocument::replacesHalfPairs()
{
    const TestFolder folder;
    TableDocument document = *folder.load("t.csv", "a\n1\n").document;
    document.setText(0, 0, QString(QChar(0xFEFF)) + QChar(0xD83C) + "x");
    const QString text = document.text(0, 0);
    QVERIFY(text.isValidUtf16());
    QCOMPARE(text.at(0), QChar(0xFEFF));
    QVERIFY(text.endsWith('x'));
}

void tst_TableDocument::copiesAreSnapshots()
{
    const TestFolder folder;
    TableDocument document = *folder.load("t.csv", "a\n1\n").document;
    document.setText(0, 0, "2");
    const TableDocument copy = document;
    document.setText(0, 0, "3");
    QCOMPARE(copy.text(0, 0), QString("2"));
    QCOMPARE(document.text(0, 0), QString("3"));
}

void tst_TableDocument::findsColumnKinds_data()
{
    QTest::addColumn<QByteArray>("cells");
    QTest::addColumn<bool>("isNumber");
    QTest::newRow("integers") << QByteArray("1\n-2\n+3\n") << true;
    QTest::newRow("scientific") << QByteArray("1e-3\n2.5E+7\n.5\n") << true;
    QTest::newRow("quoted") << QByteArray("\"1\"\n") << true;
    QTest::newRow("with empty cells") << QByteArray("1\n\n2\n") << true;
    QTest::newRow("only empty cells") << QByteArray("\n\n") << false;
    QTest::newRow("no rows") << QByteArray() << false;
    QTest::newRow("one text") << QByteArray("1\n2\nthree\n") << false;
    QTest::newRow("one text first") << QByteArray("one\n2\n3\n") << false;
    QTest::newRow("decimal comma") << QByteArray("\"1,5\"\n") << false;
    QTest::newRow("date") << QByteArray("2024-02-29\n") << false;
}

void tst_TableDocument::findsColumnKinds()
{
    QFETCH(QByteArray, cells);
    QFETCH(bool, isNumber);
    const TestFolder folder;
    const TableResult result = folder.load("t.csv", "a\n" + cells);
    QCOMPARE(result.document->columnKind(0) == ColumnKind::Number, isNumber);
}

void tst_TableDocument::samplesTheWholeFile()
{
    QByteArray bytes = "a,b\n";
    for (int i = 0; i < 20000; ++i)
        bytes += i < 10000 ? "1,2\n" : "1,x\n";
    const TestFolder folder;
    const TableResult result = folder.load("t.csv", bytes);
    QCOMPARE(result.document->columnKind(0), ColumnKind::Number);
    QCOMPARE(result.document->columnKind(1), ColumnKind::Text);
}

void tst_TableDocument::readsTheExample()
{
    const QString path = QStringLiteral(EXAMPLE_DATA "/measurements.csv");
    const TableResult result = readTable(path);
    QCOMPARE(result.error, QString());
    QCOMPARE(result.document->rowCount(), 24);
    QCOMPARE(result.document->columnCount(), 6);
    QVector<bool> isNumber;
    for (int column = 0; column < 6; ++column)
        isNumber += result.document->columnKind(column) == ColumnKind::Number;
    QCOMPARE(isNumber, (QVector<bool>{false, false, true, true, true, false}));
    QCOMPARE(result.document->text(16, 5), QString("lamp on\n(after 10 min)"));
}

QTEST_GUILESS_MAIN(tst_TableDocument)
#include "tst_TableDocument.moc"
