#include "TableTestSupport.h"

#include <QRandomGenerator>
#include <QTest>

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

class tst_TableWriters : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void findsFormatByPath_data();
    void findsFormatByPath();
    void writes_data();
    void writes();
    void keepsHardTexts_data();
    void keepsHardTexts();
    void keepsRandomTables();
    void refusesControlCharacters();
};

void tst_TableWriters::findsFormatByPath_data()
{
    QTest::addColumn<QString>("format");
    QTest::newRow("/a/b.csv") << "CSV table (*.csv)";
    QTest::newRow("b.csv.tsv") << "TSV table (*.tsv)";
    QTest::newRow("B.JSON") << "JSON table (*.json)";
    QTest::newRow("b.txt") << "CSV table (*.csv)";
    QTest::newRow("a.json/b") << "CSV table (*.csv)";
}

void tst_TableWriters::findsFormatByPath()
{
    QFETCH(QString, format);
    QCOMPARE(tableFormatForPath(QTest::currentDataTag()).nameFilter, format);
    QCOMPARE(tableFormats().size(), 3);
}

void tst_TableWriters::writes_data()
{
    const struct
    {
        const char* meaning;
        const char* name;
        QByteArray bytes;
        const char* savedName;
        QByteArray expected;
    } rows[] = {
        {"CSV to TSV", "t.csv", "a,b\r\n\"1,5\",\"x\ty\"\r\n\n", "t.tsv", "a\tb\n\"1,5\"\t\"x\ty\"\n\"\"\n"},
        {"TSV to CSV", "t.tsv", "a;\tb\n 1\t2;\n", "t.csv", "\"a;\",b\n\" 1\",\"2;\"\n"},
        {"CSV, needless quotes", "t.csv", "\xEF\xBB\xBF\"a\",\"b\"\r\n\"1\"", "t.csv", "a,b\n1\n"},
        {"CSV with semicolons", "t.csv", "a;b\n1,5;2\n", "t.csv", "a;b\n\"1,5\";2\n"},
        {"Latin-1", "t.csv", "caf\xE9,b\n", "t.csv", "caf\xC3\xA9,b\n"},
        {"empty to TSV", "t.csv", "", "t.tsv", ""},
        {"empty to JSON", "t.csv", "", "t.json", "{\n\"columns\": [],\n\"rows\": [\n]\n}\n"},
        {"CSV to JSON", "t.csv", "n,t,5\n1e-05,7,1\n,x,2\n.5,\"\"\"\t\"\n", "t.json",
         "{\n\"columns\": [\"n\",\"t\",\"5\"],\n\"rows\": [\n"
         "[1e-05,\"7\",1],\n[null,\"x\",2],\n[\".5\",\"\\\"\\t\"]\n]\n}\n"},
        {"objects to CSV", "t.json", R"([{"b":"x"},{"a":1.50,"b":null}])", "t.csv", "a,b\n,x\n1.5,\n"},
    };
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("savedName");
    QTest::addColumn<QByteArray>("expected");
    for (const auto& row : rows)
        QTest::newRow(row.meaning) << QString(row.name) << row.bytes << QString(row.savedName) << row.expected;
}

void tst_TableWriters::writes()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, bytes);
    QFETCH(QString, savedName);
    QFETCH(QByteArray, expected);
    const TestFolder folder;
    const TableResult result = folder.load(name, bytes);
    QCOMPARE(result.error, QString());
    QCOMPARE(writeTable(*result.document, folder.path(savedName), tableFormatForPath(savedName)), QString());
    QCOMPARE(folder.read(savedName), expected);
    QCOMPARE(textsOf(*readTable(folder.path(savedName)).document), textsOf(*result.document));
}

void tst_TableWriters::keepsHardTexts_data()
{
    QTest::addColumn<QString>("text");
    for (const QString& text : hardTexts)
        QTest::newRow('"' + text.toUtf8().toPercentEncoding() + '"') << text;
}

/// The text is the only cell, one of several, and an edit of a number, in each format.
void tst_TableWriters::keepsHardTexts()
{
    QFETCH(QString, text);
    const TestFolder folder;
    const TableResult edited = folder.load("edited.csv", "a\n1\n");
    edited.document->setText(0, 0, text);
    for (const Texts& expected :
         {Texts{{text}, {text}}, Texts{{text, "b"}, {"", text}, {text, ""}}, Texts{{"a"}, {text}}}) {
        const TableResult original = expected[0][0] == "a" ? edited : folder.load("original.csv", quotedCsv(expected));
        QCOMPARE(textsOf(*original.document), expected);
        for (const TableFormat& format : tableFormats()) {
            const QString path = folder.path("t." + format.extension);
            QCOMPARE(writeTable(*original.document, path, format), QString());
            QCOMPARE(textsOf(*readTable(path).document), expected);
        }
    }
}

/// A table goes from format to format, and is edited on each stop.
void tst_TableWriters::keepsRandomTables()
{
    const quint32 seed = QRandomGenerator::system()->generate();
    QRandomGenerator random(seed);
    const TestFolder folder;
    for (int round = 0; round < 60; ++round) {
        const int width = 1 + random.bounded(4);
        Texts expected(1 + random.bounded(6));
        for (QStringList& line : expected) {
            while (line.size() < width)
                line += randomText(random);
        }
        QString path = folder.write("t.csv", quotedCsv(expected));
        for (int stop = 0; stop < 4; ++stop) {
            const TableResult result = readTable(path);
            const QString where = QString("seed %1, round %2, stop %3").arg(seed).arg(round).arg(stop);
            QVERIFY2(result.error.isEmpty(), qPrintable(where + result.error));
            QVERIFY2(textsOf(*result.document) == expected, qPrintable(where));
            for (int edit = random.bounded(3); edit > 0 && expected.size() > 1; --edit) {
                const int row = random.bounded(expected.size() - 1);
                const int column = random.bounded(width);
                expected[row + 1][column] = randomText(random);
                result.document->setText(row, column, expected[row + 1][column]);
            }
            const TableFormat& format = tableFormats()[random.bounded(3)];
            path = folder.path("t." + format.extension);
            QCOMPARE(writeTable(*result.document, path, format), QString());
        }
    }
}

void tst_TableWriters::refusesControlCharacters()
{
    const TestFolder folder;
    const TableResult result = folder.load("t.json", R"([{"a":"\u0000\u0001\u001b"}])");
    for (const TableFormat& format : tableFormats()) {
        const QString path = folder.path("saved." + format.extension);
        const QString error = writeTable(*result.document, path, format);
        QCOMPARE(error.contains("JSON"), format.name != "JSON");
        QCOMPARE(QFile::exists(path), error.isEmpty());
    }
    QCOMPARE(textsOf(*readTable(folder.path("saved.json")).document), textsOf(*result.document));
}

QTEST_GUILESS_MAIN(tst_TableWriters)
#include "tst_TableWriters.moc"
