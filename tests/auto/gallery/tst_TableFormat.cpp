#include "TableTestSupport.h"

#include <QRandomGenerator>
#include <QTest>

#include <algorithm>
#include <tuple>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

using namespace gallery;

namespace {

QByteArray quotedCsv(const Texts& lines)
{
    QByteArray csv;
    for (const QStringList& line : lines) {
        for (QString text : line)
            csv += '"' + text.replace('"', "\"\"").toUtf8() + "\",";
        csv.chop(1);
        csv += '\n';
    }
    return csv;
}

/// Texts that need care in at least one of the formats: syntax, blanks and line ends, encodings, numbers.
const QStringList hardTexts =
    QStringList{"", "x,y", "x;y;;", "\"", "\"x\"", "5\" pipe", "\\n\\u0041\\", "null", "=1+2", R"({"columns":[]})"}
    + QStringList{" ", " x", "x ", "\tx", "x\ny", "\r", "x\r\ny", "\f", "\x7F", QChar(0xA0), QChar(0x2028)}
    + QStringList{QChar(0xFEFF), QString(2, QChar(0xFEFF)) + "x", QString::fromLatin1("\xEF\xBB\xBF"), QChar(0xFFFE)}
    + QStringList{QString::fromUtf8("café Ω 中 🌍"), "007", "-0", "1e5", "1e+06", "1000000", "+.5", "-1.50e-007"}
    + QStringList{"0.1", "1,2", "1e400", "nan", "9007199254740993", "1e+16"};

QString randomText(QRandomGenerator& random)
{
    QString text;
    for (int count = random.bounded(4); count > 0; --count)
        text += hardTexts[random.bounded(hardTexts.size())];
    return text;
}

} // namespace

class tst_TableFormat : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void findsFormatByPath();
    void readsFiles_data();
    void readsFiles();
    void readsEncodings();
    void refusesFiles_data();
    void refusesFiles();
    void refusesUnreadableFile();
    void refusesTableBeyondItsLimit();
    void survivesLongLines();
    void stopsWhenAskedTo();
    void writes();
    void keepsHardTexts();
    void keepsRandomTables();
    void writesNulOnlyToJson();

private:
    void verifyKept(const Texts& expected);

    TestFolder m_folder;
};

void tst_TableFormat::findsFormatByPath()
{
    QCOMPARE(tableFormatForPath("/a/b.csv").nameFilter, QString("CSV table (*.csv)"));
    QCOMPARE(tableFormatForPath("b.csv.tsv").nameFilter, QString("TSV table (*.tsv)"));
    QCOMPARE(tableFormatForPath("B.JSON").nameFilter, QString("JSON table (*.json)"));
    QCOMPARE(tableFormatForPath("a.json/b").nameFilter, QString("CSV table (*.csv)"));
}

void tst_TableFormat::readsFiles_data()
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
        {"LF", "a,b\n1,2\n3,4\n", {{"a", "b"}, {"1", "2"}, {"3", "4"}}},
        {"mixed line ends, the last missing", "a,b\r1,2\n3,4\r\n5,6", {{"a", "b"}, {"1", "2"}, {"3", "4"}, {"5", "6"}}},
        {"last cell empty, no line end", "a,b\n1,", {{"a", "b"}, {"1", ""}}},
        {"quote inside a plain cell", "a,b\n5\" pipe,\"x\"\n", {{"a", "b"}, {"5\" pipe", "x"}}},
        {"text behind the closing quote", "a,b\n\"x\" y,2\n", {{"a", "b"}, {"x y", "2"}}},
        {"quote never closed", "a,b\n1,\"x,\n2,3\n", {{"a", "b"}, {"1", "x,\n2,3\n"}}},
        {"doubled quote, never closed", "a\n\"x\"\"", {{"a"}, {"x\""}}},
        {"quote at the end", "a\n\"", {{"a"}, {""}}},
        {"long row widens", "a\n1,2,3\n4\n", {{"a", "", ""}, {"1", "2", "3"}, {"4", "", ""}}},
        {"empty lines are rows", "a,b\n\n1,2\n\n", {{"a", "b"}, {"", ""}, {"1", "2"}, {"", ""}}},
        {"blanks are kept", "a, b \n 1 ,\t2\n", {{"a", " b "}, {" 1 ", "\t2"}}},
        {"semicolons", "a;b\n1,5;2\n", {{"a", "b"}, {"1,5", "2"}}},
        {"quoted semicolons do not count", "\"a;;;\",b\n1,2\n", {{"a;;;", "b"}, {"1", "2"}}},
        {"quoted commas do not count", "x;\"a,b,c,d\"\n1;2\n", {{"x", "a,b,c,d"}, {"1", "2"}}},
        {"inch in the header hides nothing", "5\" pipe;b\n1;2\n", {{"5\" pipe", "b"}, {"1", "2"}}},
        {"tabs", "a\tb,c\n\"x\ty\"\t\"\"\"\"\n", {{"a", "b,c"}, {"x\ty", "\""}}, "t.TSV"},
        {"unknown extension is CSV", "a,b\n", {{"a", "b"}}, "t.dat"},
        {"lists", R"({"rows":[["1",2],["x",""]],"columns":["a","b"]})", {{"a", "b"}, {"1", "2"}, {"x", ""}}, "t.json"},
        {"words", R"({"columns":["a"],"rows":[[true],[null],["null"]]})", {{"a"}, {"true"}, {""}, {"null"}}, "t.json"},
        {"uneven lists", R"({"columns":["a"],"rows":[[],[1,2]]})", {{"a", ""}, {"", ""}, {"1", "2"}}, "t.json"},
        {"no columns", R"({"columns":[],"rows":[[],[]]})", {{}}, "t.json"},
        {"mark before JSON", "\xEF\xBB\xBF{\"columns\":[\"a\"],\"rows\":[[1]]}", {{"a"}, {"1"}}, "t.json"},
        {"objects",
         R"([{"b":1,"a":"x"},{"c":2},{}])",
         {{"a", "b", "c"}, {"x", "1", ""}, {"", "", "2"}, {"", "", ""}},
         "t.json"},
    };
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<Texts>("expected");
    for (const auto& row : rows)
        QTest::newRow(row.meaning) << QString(row.name) << row.bytes << row.expected;
}

void tst_TableFormat::readsFiles()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, bytes);
    QFETCH(Texts, expected);
    const TableResult result = m_folder.load(name, bytes);
    QCOMPARE(result.error, QString());
    QCOMPARE(textsOf(*result.document), expected);
}

void tst_TableFormat::readsEncodings()
{
    const auto verify = [&](const QByteArray& bytes, const char* encoding, const QString& text) {
        const auto document = m_folder.load("t.csv", bytes).document;
        QVERIFY2(document && document->headerText(0) == text, bytes.right(20).toHex());
        QCOMPARE(document->encodingName(), QString(encoding));
        document->markSaved();
        QCOMPARE(document->encodingName(), QString("UTF-8"));
    };
    for (const QByteArray& bytes :
         {QByteArray("plain"), QByteArray("\xC2\x80\xDF\xBF\xE0\xA0\x80\xEF\xBF\xBF"),
          QByteArray("\xED\x9F\xBF\xEE\x80\x80\xF0\x90\x80\x80\xF4\x8F\xBF\xBF"), QByteArray("\xEF\xBB\xBF\xC3\xA4")})
        verify(bytes, "UTF-8", QString::fromUtf8(bytes));
    // A Latin-1 letter behind UTF-8, overlong, a surrogate, beyond Unicode, a cut sequence, longer than a block
    for (const QByteArray& bytes :
         {QByteArray("\xC3\xA9 caf\xE9"), QByteArray("\xC0\xAF"), QByteArray("\xED\xA0\x80"),
          QByteArray("\xF4\x90\x80\x80"), QByteArray("\xE2\x82"), QByteArray(3000000, 'x') + "\xE9"})
        verify(bytes, "Latin-1", QString::fromLatin1(bytes));
    // The little end first, and the big end first with an odd byte
    verify({"\xFF\xFE\xE4\0\xAC\x20\x3C\xD8\x0D\xDF", 10}, "UTF-16", QString::fromUtf8("ä€🌍"));
    verify({"\xFE\xFF\0\xE4\x20\xAC\xD8\x3C\xDF\x0Dx", 11}, "UTF-16", QString::fromUtf8("ä€🌍"));
    for (int shift = 0; shift < 4; ++shift) { // sequences across blocks
        const QString globes = QString(shift, 'x') + QString::fromUtf8("🌍").repeated(300000);
        verify(globes.toUtf8(), "UTF-8", globes);
    }
}

void tst_TableFormat::refusesFiles_data()
{
    const struct
    {
        const char* meaning;
        QByteArray bytes;
        const char* reason;
        const char* extension = ".json";
    } rows[] = {
        {"NUL behind a long text", QByteArray("a,b\n").repeated(1000000) + '\0', "binary", ".csv"},
        {"picture", QByteArray("\x89PNG\r\n\x1A\n\0\0\0\rIHDR", 16), "binary", ".csv"},
        {"NUL in UTF-16", QByteArray("\xFF\xFE\0\0x\0", 6), "binary", ".csv"},
        {"empty", "", "Line 1, column 1"},
        {"comma missing", "[{\"a\":1,\n\"b\":2 3}]", "Line 2, column 7"},
        {"deep nesting", QByteArray(1000000, '['), "Line 1"},
        {"other member", R"({"columns":["a"],"rows":[],"cells":1})", "\"rows\""},
        {"row no list", R"({"columns":["a"],"rows":[[1],2]})", "Row 2 is neither"},
        {"list as cell", R"({"columns":["a"],"rows":[[[1]]]})", "Row 1: a cell has to be a plain value"},
    };
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("reason");
    for (const auto& row : rows)
        QTest::newRow(row.meaning) << m_folder.write(QString(row.meaning) + row.extension, row.bytes)
                                   << QString(row.reason);
    QTest::newRow("missing") << m_folder.path("missing.csv") << "cannot be read";
    QTest::newRow("folder") << m_folder.path(".") << "not a regular file";
    const QString big = m_folder.write("big.csv", "a");
    QVERIFY(QFile::resize(big, Q_INT64_C(1) << 42));
    QTest::newRow("beyond memory") << big << "too big";
#ifdef Q_OS_UNIX
    QCOMPARE(mkfifo(QFile::encodeName(m_folder.path("pipe")).constData(), 0600), 0);
    QTest::newRow("pipe") << m_folder.path("pipe") << "not a regular file";
    QTest::newRow("device") << QString("/dev/zero") << "not a regular file";
#endif
}

void tst_TableFormat::refusesFiles()
{
    QFETCH(QString, path);
    QFETCH(QString, reason);
    const TableResult result = readTable(path);
    QVERIFY(!result.document);
    QVERIFY2(result.error.contains(reason), qPrintable(result.error));
}

void tst_TableFormat::refusesUnreadableFile()
{
    if (systemLimits::noRefusedReading)
        QSKIP(systemLimits::noRefusedReading);
    setAccess(m_folder.path("."), Access::Everything);
    const QString path = m_folder.write("t.csv", "a,b\n");
    setAccess(path, Access::Nothing);
    const OrdinaryUser user;
    QVERIFY(user.isOrdinary());
    QVERIFY(readTable(path).error.contains("cannot be read"));
}

void tst_TableFormat::refusesTableBeyondItsLimit()
{
    TableSource table({}, ',', 8000);
    int cells = 0;
    QVERIFY_EXCEPTION_THROWN(for (;; ++cells) table.endCell(), TableError);
    QCOMPARE(cells, 1000);
}

void tst_TableFormat::survivesLongLines()
{
    const int size = 10 << 20;
    const std::tuple<QByteArray, int, int, QString> files[] = {
        {"a\n\"" + QByteArray(size, '\n'), 1, 1, QString(size, '\n')},
        {"a\n" + QByteArray(size, ',') + "z", 1, size + 1, "z"},
        {QByteArray(size, ',') + "\nz", 1, size + 1, ""},
        {"a\n" + QByteArray(size, '"'), 1, 1, QString(size / 2 - 1, '"')},
        {QByteArray(size, '\n'), size - 1, 1, ""},
    };
    for (const auto& [bytes, rows, columns, lastCell] : files) {
        const TableDocument document = *m_folder.load("t.csv", bytes).document;
        QCOMPARE(document.rowCount(), rows);
        QCOMPARE(document.columnCount(), columns);
        QVERIFY(document.text(rows - 1, columns - 1) == lastCell);
    }
}

void tst_TableFormat::stopsWhenAskedTo()
{
    const QByteArray rows = QByteArray("[1,2,3],\n").repeated(1000000);
    const QString csv = m_folder.write("stops.csv", rows);
    const QString json = m_folder.write("stops.json", "{\"columns\":[],\"rows\":[\n" + rows + "[]]}");
    // While reading, while finding the encoding, while finding cells, and never
    for (const auto& [path, stopAt] : {std::pair(csv, 10), {csv, 42}, {csv, 70}, {json, 81}, {csv, 101}}) {
        QVector<int> percents;
        const TableResult result = readTable(path, [&, last = stopAt](int percent) {
            percents += percent;
            return percent < last;
        });
        QVERIFY(percents.size() > 3);
        QVERIFY(std::is_sorted(percents.begin(), percents.end()));
        const auto stop = std::lower_bound(percents.begin(), percents.end(), stopAt);
        QVERIFY(stop >= percents.end() - 1); // There are no calls after the stop.
        QCOMPARE(result.error.contains("cancelled"), stopAt <= 100);
        QVERIFY2(percents.last() < stopAt + 25, qPrintable(QString::number(percents.last())));
        QCOMPARE(percents.last() == 100, bool(result.document));
    }
}

void tst_TableFormat::writes()
{
    const struct
    {
        const char* name;
        QByteArray bytes;
        const char* savedName;
        QByteArray expected;
    } rows[] = {
        {"t.csv", "a,b\r\n\"1,5\",\"x\ty\"\r\n\n", "t.tsv", "a\tb\n\"1,5\"\t\"x\ty\"\n\t\n"},
        {"t.tsv", "a;\tb\n 1\t2;\n", "t.csv", "\"a;\",b\n\" 1\",\"2;\"\n"},
        {"t.csv", "\xEF\xBB\xBF\"a\",\"b\"\r\n\"1\"", "t.csv", "a,b\n1,\n"},
        {"t.csv", "a;b\n1,5;2\n", "t.csv", "a;b\n\"1,5\";2\n"},
        {"t.csv", "caf\xE9,b\n", "t.csv", "caf\xC3\xA9,b\n"},
        {"t.csv", "a\n\n", "t.csv", "a\n\"\"\n"},
        {"t.csv", "", "t.tsv", ""},
        {"t.csv", "", "t.json", "{\n\"columns\": [],\n\"rows\": [\n]\n}\n"},
        {"t.csv", "n,t,5\n1e-05,7,1\n,x,2\n.5,\"\"\"\t\"\n", "t.json",
         "{\n\"columns\": [\"n\",\"t\",\"5\"],\n\"rows\": [\n"
         "[1e-05,\"7\",1],\n[null,\"x\",2],\n[\".5\",\"\\\"\\t\",null]\n]\n}\n"},
        {"t.json", R"([{"b":"x"},{"a":1.50,"b":null}])", "t.csv", "a,b\n,x\n1.5,\n"},
    };
    for (const auto& row : rows) {
        const TableResult result = m_folder.load(row.name, row.bytes);
        const QString path = m_folder.path(row.savedName);
        QCOMPARE(result.error, QString());
        QCOMPARE(writeTable(*result.document, path, tableFormatForPath(path)), QString());
        QCOMPARE(m_folder.read(row.savedName), row.expected);
        QCOMPARE(textsOf(*readTable(path).document), textsOf(*result.document));
    }
}

/// Writes a table, and one in which all cells were typed over numbers, in each format, and reads them.
void tst_TableFormat::verifyKept(const Texts& expected)
{
    const TableDocument table = *m_folder.load("read.csv", quotedCsv(expected)).document;
    Texts numbers = expected;
    for (int row = 1; row < numbers.size(); ++row)
        std::fill(numbers[row].begin(), numbers[row].end(), "1");
    TableDocument edited = *m_folder.load("edited.csv", quotedCsv(numbers)).document;
    for (int row = 0; row < edited.rowCount(); ++row) {
        for (int column = 0; column < edited.columnCount(); ++column)
            edited.setText(row, column, expected[row + 1][column]);
    }
    for (const TableDocument& document : {table, edited}) {
        QCOMPARE(textsOf(document), expected);
        for (const TableFormat& format : tableFormats()) {
            const QString path = m_folder.path("kept." + format.extension);
            QCOMPARE(writeTable(document, path, format), QString());
            QCOMPARE(textsOf(*readTable(path).document), expected);
        }
    }
}

void tst_TableFormat::keepsHardTexts()
{
    for (const QString& text : hardTexts) {
        for (const Texts& expected : {Texts{{text}, {text}}, Texts{{text, "b"}, {"", text}, {text, ""}}, Texts{{text}}})
            verifyKept(expected);
        QVERIFY2(!QTest::currentTestFailed(), qPrintable(text));
    }
}

void tst_TableFormat::keepsRandomTables()
{
    const quint32 seed = QRandomGenerator::system()->generate();
    QRandomGenerator random(seed);
    for (int round = 0; round < 60 && !QTest::currentTestFailed(); ++round) {
        const int width = 1 + random.bounded(4);
        Texts expected(1 + random.bounded(6));
        for (QStringList& line : expected) {
            while (line.size() < width)
                line += randomText(random);
        }
        verifyKept(expected);
        QVERIFY2(!QTest::currentTestFailed(), qPrintable(QString("seed %1, round %2").arg(seed).arg(round)));
    }
}

void tst_TableFormat::writesNulOnlyToJson()
{
    const TableResult result = m_folder.load("t.json", R"([{"a":"\u0000\u0001\u001b"}])");
    for (const TableFormat& format : {csvFormat(), tsvFormat()}) {
        const QString path = m_folder.path("with-nul." + format.extension);
        QVERIFY(writeTable(*result.document, path, format).contains("JSON"));
        QVERIFY(!QFile::exists(path));
    }
    QCOMPARE(writeTable(*result.document, m_folder.path("with-nul.json"), jsonFormat()), QString());
    QCOMPARE(textsOf(*readTable(m_folder.path("with-nul.json")).document), textsOf(*result.document));
}

QTEST_GUILESS_MAIN(tst_TableFormat)
#include "tst_TableFormat.moc"
