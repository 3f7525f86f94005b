#include "TableTestSupport.h"

#include <QDir>
#include <QRandomGenerator>
#include <QSet>
#include <QTest>

#ifdef Q_OS_UNIX
#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>
#endif

using namespace gallery;

namespace {

/// An edit of a cell, as a test names it.
struct Edit
{
    int row;
    int column;
    QString text;
};
using Edits = QVector<Edit>;

const TableFormat& formatNamed(const QString& name)
{
    for (const TableFormat& format : tableFormats()) {
        if (format.name == name)
            return format;
    }
    qFatal("There is no format %s.", qPrintable(name));
}

QByteArray quoted(QString text)
{
    return '"' + text.replace('"', "\"\"").toUtf8() + '"';
}

/// CSV that needs no rules: everything is in quotes.
QByteArray quotedCsv(const Texts& lines)
{
    QByteArray csv;
    for (const QStringList& line : lines) {
        for (int i = 0; i < line.size(); ++i)
            csv += (i > 0 ? "," : "") + quoted(line[i]);
        csv += '\n';
    }
    return csv;
}

/// With all lines as long as the longest, as a table shows them.
Texts padded(Texts lines)
{
    int widest = 0;
    for (const QStringList& line : qAsConst(lines))
        widest = qMax(widest, line.size());
    for (QStringList& line : lines) {
        while (line.size() < widest)
            line += QString();
    }
    return lines;
}

QString randomText(QRandomGenerator& random)
{
    static const QStringList pieces = {
        "a",
        "Text",
        "1",
        "-2.5e-3",
        "007",
        "null",
        "true",
        "\"",
        "\"\"",
        ",",
        ";",
        "\t",
        "\n",
        "\r",
        "\r\n",
        " ",
        "\\",
        "/",
        "'",
        "{",
        "]",
        QString(1, QChar()),
        QString(QChar(0x01)),
        QString(QChar(0x7F)),
        QString(QChar(0xFEFF)),
        QString(QChar(0x85)),
        QString(QChar(0xA0)),
        QString(QChar(0x2028)),
        QString(QChar(0xFFFF)),
        QString::fromUtf8("é"),
        QString::fromUtf8("ÿ"),
        QString::fromUtf8("€"),
        QString::fromUtf8("🌍"),
        QString::fromUtf8("ï»¿"),
    };
    QString text;
    for (int count = random.bounded(5); count > 0; --count)
        text += pieces[random.bounded(pieces.size())];
    return text;
}

Texts randomTable(QRandomGenerator& random)
{
    Texts lines(1 + random.bounded(6));
    for (QStringList& line : lines) {
        for (int count = 1 + random.bounded(4); count > 0; --count)
            line += randomText(random);
    }
    return lines;
}

} // namespace

Q_DECLARE_METATYPE(Edits)

class tst_TableWriters : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void offersEachFormatOnce();
    void findsFormatByPath_data();
    void findsFormatByPath();
    void keepsUntouchedBytes_data();
    void keepsUntouchedBytes();
    void patchesEditedCells_data();
    void patchesEditedCells();
    void convertsBetweenFormats_data();
    void convertsBetweenFormats();
    void keepsTextsInEveryFormat_data();
    void keepsTextsInEveryFormat();
    void keepsRandomTables_data();
    void keepsRandomTables();
    void keepsLatin1OnlyWhereItIsReadAgain_data();
    void keepsLatin1OnlyWhereItIsReadAgain();
    void keepsOldFileWhenTheDiskIsFull_data();
    void keepsOldFileWhenTheDiskIsFull();
    void refusesImpossiblePlaces_data();
    void refusesImpossiblePlaces();
    void refusesReadOnlyFolder();
    void doesNotMarkAsSaved();
};

void tst_TableWriters::offersEachFormatOnce()
{
    QSet<QString> extensions;
    for (const TableFormat& format : tableFormats()) {
        extensions += format.extension;
        QCOMPARE(format.nameFilter, format.name + " table (*." + format.extension + ')');
        QVERIFY(format.read && format.write);
    }
    QCOMPARE(extensions, (QSet<QString>{"csv", "tsv", "json"}));
    QCOMPARE(tableFormats().size(), 3);
}

void tst_TableWriters::findsFormatByPath_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("format");
    QTest::newRow("CSV") << "/a/b.csv"
                         << "CSV";
    QTest::newRow("TSV") << "b.tsv"
                         << "TSV";
    QTest::newRow("JSON") << "b.json"
                          << "JSON";
    QTest::newRow("capitals") << "B.JSON"
                              << "JSON";
    QTest::newRow("two dots") << "b.csv.tsv"
                              << "TSV";
    QTest::newRow("other extension") << "b.txt"
                                     << "CSV";
    QTest::newRow("no extension") << "json"
                                  << "CSV";
    QTest::newRow("extension of the folder") << "a.json/b"
                                             << "CSV";
}

void tst_TableWriters::findsFormatByPath()
{
    QFETCH(QString, path);
    QFETCH(QString, format);
    QCOMPARE(tableFormatForPath(path).name, format);
}

void tst_TableWriters::keepsUntouchedBytes_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("empty") << "t.csv" << QByteArray();
    QTest::newRow("only a mark") << "t.csv" << QByteArray("\xEF\xBB\xBF");
    QTest::newRow("mark and CR LF") << "t.csv"
                                    << QByteArray("\xEF\xBB\xBF"
                                                  "a,b\r\n1,2\r\n");
    QTest::newRow("mixed line ends, last one missing") << "t.csv" << QByteArray("a,b\r1,2\n3,4\r\n5,6");
    QTest::newRow("needless quotes") << "t.csv" << QByteArray("\"a\",b\n\"1\",\"2\"\n");
    QTest::newRow("semicolons") << "t.csv" << QByteArray("a;b\n1,5;2\n");
    QTest::newRow("ragged rows") << "t.csv" << QByteArray("a,b\n1\n\n2,3,4\n,,\n");
    QTest::newRow("text behind quotes") << "t.csv" << QByteArray("a\n\"x\" y\n");
    QTest::newRow("quote never closed") << "t.csv" << QByteArray("a\n\"x\n");
    QTest::newRow("Latin-1") << "t.csv" << QByteArray("a,b\ncaf\xE9,2\n");
    QTest::newRow("NUL") << "t.csv" << QByteArray("a\n\0\n", 4);
    QTest::newRow("tabs") << "t.tsv" << QByteArray("a\tb\r\n\"1\"\t2");
    QTest::newRow("beyond one block") << "t.csv"
                                      << "a\n" + QByteArray(3000000, 'x') + "\ny\n";
}

void tst_TableWriters::keepsUntouchedBytes()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, bytes);
    const TestFolder folder;
    const TableResult result = folder.load(name, bytes);
    QCOMPARE(result.error, QString());
    QCOMPARE(writeTable(*result.document, folder.path("saved"), tableFormatForPath(name)), QString());
    QVERIFY2(folder.read("saved") == bytes, folder.read("saved").left(100).toPercentEncoding());
}

void tst_TableWriters::patchesEditedCells_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<Edits>("edits");
    QTest::addColumn<QByteArray>("expected");

    const auto csv = [](const char* meaning, const QByteArray& bytes, const Edits& edits, const QByteArray& saved) {
        QTest::newRow(meaning) << "t.csv" << bytes << edits << saved;
    };
    csv("one cell", "a,b\r\n\"1\",\"2\"\r\n\"3\",4\r\n", {{0, 1, "new"}}, "a,b\r\n\"1\",new\r\n\"3\",4\r\n");
    csv("last row without line end", "a,b\n1,2\n3,4", {{1, 1, "new"}}, "a,b\n1,2\n3,new");
    csv("several rows", "a,b\n1,2\r3,4\n5,6\n", {{2, 0, "z"}, {0, 1, "y"}, {0, 0, "x"}}, "a,b\nx,y\r3,4\nz,6\n");
    csv("edit that needs quotes", "a\n1\n", {{0, 0, "x,\"y\"\n"}}, "a\n\"x,\"\"y\"\"\n\"\n");
    csv("row made longer", "a,b,c\n1\n", {{0, 2, "3"}}, "a,b,c\n1,,3\n");
    csv("only cell emptied", "a\n1\n2\n", {{0, 0, ""}}, "a\n\"\"\n2\n");
    csv("only cell emptied, no line end", "a\n1", {{0, 0, ""}}, "a\n\"\"");
    csv("all cells emptied", "a,b\n1,2\n", {{0, 0, ""}, {0, 1, ""}}, "a,b\n,\n");
    csv("empty line filled", "a,b\n\n", {{0, 1, "2"}}, "a,b\n,2\n");
    csv("behind an open quote", "a,b\n\"x\n", {{0, 1, "y"}}, "a,b\n\"x\n\",y");
    csv("instead of an open quote", "a,b\n1,\"x\n", {{0, 1, "y"}}, "a,b\n1,y");
    csv("mark is kept",
        "\xEF\xBB\xBF"
        "a\n1\n",
        {{0, 0, "2"}},
        "\xEF\xBB\xBF"
        "a\n2\n");
    csv("semicolons", "a;b\n1,5;2\n", {{0, 1, "3;4"}}, "a;b\n1,5;\"3;4\"\n");
    csv("Latin-1", "a,b\ncaf\xE9,2\nx,y\n", {{1, 0, QString::fromUtf8("ü")}}, "a,b\ncaf\xE9,2\n\xFC,y\n");
    QTest::newRow("tabs") << "t.tsv" << QByteArray("a\tb\n1\t2\n") << Edits{{0, 0, "x\ty"}}
                          << QByteArray("a\tb\n\"x\ty\"\t2\n");
    QTest::newRow("JSON") << "t.json" << QByteArray(R"({"rows":[[1.50,"\u0041"],[null,true]],"columns":["n","t"]})")
                          << Edits{{1, 0, "2e3"}}
                          << QByteArray("{\n\"columns\": [\"n\", \"t\"],\n\"rows\": [\n"
                                        "[1.50, \"\\u0041\"],\n[2e3, true]\n]\n}\n");
}

void tst_TableWriters::patchesEditedCells()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, bytes);
    QFETCH(Edits, edits);
    QFETCH(QByteArray, expected);
    const TestFolder folder;
    const TableResult result = folder.load(name, bytes);
    QCOMPARE(result.error, QString());
    for (const Edit& edit : qAsConst(edits))
        result.document->setText(edit.row, edit.column, edit.text);
    QCOMPARE(writeTable(*result.document, folder.path(name), tableFormatForPath(name)), QString());
    QCOMPARE(folder.read(name), expected);
    QCOMPARE(textsOf(*readTable(folder.path(name)).document), textsOf(*result.document));
}

void tst_TableWriters::convertsBetweenFormats_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("format");
    QTest::addColumn<QByteArray>("expected");

    QTest::newRow("CSV to TSV") << "t.csv" << QByteArray("a,b\r\n\"1,5\",\"x\ty\"\r\n\n") << "TSV"
                                << QByteArray("a\tb\n\"1,5\"\t\"x\ty\"\n\"\"\n");
    QTest::newRow("TSV to CSV") << "t.tsv" << QByteArray("a;\tb\n 1\t2;\n") << "CSV"
                                << QByteArray("\"a;\",b\n\" 1\",\"2;\"\n");
    QTest::newRow("CSV to JSON") << "t.csv" << QByteArray("n,t,m\n1e-5,7,007\n,x,2\n.5,\"\"\"\t\",3\n") << "JSON"
                                 << QByteArray("{\n\"columns\": [\"n\", \"t\", \"m\"],\n\"rows\": [\n"
                                               "[1e-5, \"7\", \"007\"],\n[null, \"x\", 2],\n"
                                               "[\".5\", \"\\\"\\u0009\", 3]\n]\n}\n");
    QTest::newRow("objects to CSV") << "t.json" << QByteArray(R"([{"a":1},{"b":"x"},{}])") << "CSV"
                                    << QByteArray("a,b\n1\n,x\n\"\"\n");
    QTest::newRow("objects to JSON") << "t.json" << QByteArray(R"([{"a":1},{"b":"x"},{}])") << "JSON"
                                     << QByteArray("{\n\"columns\": [\"a\", \"b\"],\n\"rows\": [\n"
                                                   "[1],\n[null, \"x\"],\n[]\n]\n}\n");
    QTest::newRow("empty to JSON") << "t.csv" << QByteArray() << "JSON"
                                   << QByteArray("{\n\"columns\": [],\n\"rows\": [\n]\n}\n");
    QTest::newRow("empty to TSV") << "t.csv" << QByteArray() << "TSV" << QByteArray();
    QTest::newRow("Latin-1 to TSV") << "t.csv" << QByteArray("caf\xE9,b\n") << "TSV" << QByteArray("caf\xC3\xA9\tb\n");
    QTest::newRow("Latin-1 JSON") << "t.json" << QByteArray("[{\"caf\xE9\":\"\xFC\"}]") << "JSON"
                                  << QByteArray(
                                         "{\n\"columns\": [\"caf\xC3\xA9\"],\n\"rows\": [\n[\"\xC3\xBC\"]\n]\n}\n");
}

void tst_TableWriters::convertsBetweenFormats()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, bytes);
    QFETCH(QString, format);
    QFETCH(QByteArray, expected);
    const TestFolder folder;
    const TableResult result = folder.load(name, bytes);
    QCOMPARE(result.error, QString());
    const QString target = "saved." + formatNamed(format).extension;
    QCOMPARE(writeTable(*result.document, folder.path(target), formatNamed(format)), QString());
    QCOMPARE(folder.read(target), expected);
    QCOMPARE(textsOf(*readTable(folder.path(target)).document), textsOf(*result.document));
}

void tst_TableWriters::keepsTextsInEveryFormat_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("empty") << "";
    QTest::newRow("blank") << " ";
    QTest::newRow("leading blank") << " x";
    QTest::newRow("trailing blank") << "x ";
    QTest::newRow("leading tab") << "\tx";
    QTest::newRow("comma") << "x,y";
    QTest::newRow("semicolon") << "x;y;;";
    QTest::newRow("tab") << "x\ty";
    QTest::newRow("quote") << "\"";
    QTest::newRow("quotes around") << "\"x\"";
    QTest::newRow("quote inside") << "5\" pipe";
    QTest::newRow("LF") << "x\ny";
    QTest::newRow("CR") << "x\ry";
    QTest::newRow("CR LF") << "x\r\ny";
    QTest::newRow("only LF") << "\n";
    QTest::newRow("only CR") << "\r";
    QTest::newRow("byte order mark") << QString(QChar(0xFEFF));
    QTest::newRow("two byte order marks") << QString(2, QChar(0xFEFF)) + "x";
    QTest::newRow("UTF-8 mark read as Latin-1") << QString::fromLatin1("\xEF\xBB\xBF");
    QTest::newRow("swapped mark") << QString(QChar(0xFFFE));
    QTest::newRow("Latin-1") << QString::fromUtf8("café");
    QTest::newRow("other letters") << QString::fromUtf8("Ωж中");
    QTest::newRow("beyond the first plane") << QString::fromUtf8("🌍");
    QTest::newRow("NUL") << QString(2, QChar());
    QTest::newRow("controls") << QString("\x01\x1F\x7F");
    QTest::newRow("backslashes") << "\\n\\u0041\\";
    QTest::newRow("JSON word") << "null";
    QTest::newRow("JSON table") << R"({"columns":[]})";
    QTest::newRow("integer") << "007";
    QTest::newRow("number") << "-1.50e-007";
    QTest::newRow("number JSON does not know") << "+.5";
    QTest::newRow("formula") << "=1+2";
}

/// As header, as first and only cell, as edit, and through each pair of formats.
void tst_TableWriters::keepsTextsInEveryFormat()
{
    QFETCH(QString, text);
    const TestFolder folder;
    for (const Texts& expected : {Texts{{text}, {text}}, Texts{{text, "b"}, {"", text}, {text, ""}}}) {
        const TableResult original = folder.load("original.csv", quotedCsv(expected));
        QCOMPARE(textsOf(*original.document), expected);
        for (const TableFormat& first : tableFormats()) {
            const QString path = folder.path("first." + first.extension);
            QCOMPARE(writeTable(*original.document, path, first), QString());
            const TableResult again = readTable(path);
            QCOMPARE(again.error, QString());
            QCOMPARE(textsOf(*again.document), expected);
            for (const TableFormat& second : tableFormats()) {
                const QString nextPath = folder.path("second." + second.extension);
                QCOMPARE(writeTable(*again.document, nextPath, second), QString());
                QCOMPARE(textsOf(*readTable(nextPath).document), expected);
            }
            TableDocument edited = *readTable(path).document;
            edited.setText(0, 0, "something else" + text);
            edited.setText(0, 0, text);
            QCOMPARE(writeTable(edited, path, first), QString());
            QCOMPARE(readTable(path).document->text(0, 0), text);
        }
    }
}

void tst_TableWriters::keepsRandomTables_data()
{
    QTest::addColumn<quint32>("seed");
    for (quint32 seed = 1; seed <= 10; ++seed)
        QTest::newRow(qPrintable(QString("seed %1").arg(seed))) << seed;
}

/// A table goes from format to format, and is edited on each stop.
void tst_TableWriters::keepsRandomTables()
{
    QFETCH(quint32, seed);
    QRandomGenerator random(seed);
    const TestFolder folder;
    for (int round = 0; round < 40; ++round) {
        Texts expected = padded(randomTable(random));
        QString path = folder.write("t.csv", quotedCsv(expected));
        for (int stop = 0; stop < 6; ++stop) {
            const TableResult result = readTable(path);
            const QString where = QString("seed %1, round %2, stop %3").arg(seed).arg(round).arg(stop);
            QVERIFY2(result.error.isEmpty(), qPrintable(where + result.error));
            QVERIFY2(textsOf(*result.document) == expected, qPrintable(where));
            for (int edit = random.bounded(3); edit > 0 && expected.size() > 1; --edit) {
                const int row = random.bounded(expected.size() - 1);
                const int column = random.bounded(expected[0].size());
                expected[row + 1][column] = randomText(random);
                result.document->setText(row, column, expected[row + 1][column]);
            }
            const TableFormat& format = tableFormats()[random.bounded(tableFormats().size())];
            path = folder.path("t." + format.extension);
            QCOMPARE(writeTable(*result.document, path, format), QString());
        }
    }
}

void tst_TableWriters::keepsLatin1OnlyWhereItIsReadAgain_data()
{
    QTest::addColumn<Edits>("edits");
    QTest::addColumn<QString>("encoding");
    QTest::newRow("edit elsewhere") << Edits{{1, 0, QString::fromUtf8("ä")}} << "Latin-1";
    QTest::newRow("edit beyond Latin-1") << Edits{{1, 0, QString::fromUtf8("€")}} << "UTF-8";
    QTest::newRow("edit of what is no UTF-8") << Edits{{0, 0, "x"}} << "UTF-8";
}

void tst_TableWriters::keepsLatin1OnlyWhereItIsReadAgain()
{
    QFETCH(Edits, edits);
    QFETCH(QString, encoding);
    const TestFolder folder;
    // The second row is valid UTF-8, and means that only once the first no longer stands against it.
    const TableResult result = folder.load("t.csv", "\xEF\xBB\xBF"
                                                    "a,b\ncaf\xE9,2\n3,\xC3\xA9\n");
    QCOMPARE(result.document->encodingName(), QString("Latin-1"));
    for (const Edit& edit : qAsConst(edits))
        result.document->setText(edit.row, edit.column, edit.text);
    QCOMPARE(writeTable(*result.document, folder.path("t.csv"), formatNamed("CSV")), QString());
    const TableResult again = readTable(folder.path("t.csv"));
    QCOMPARE(again.document->encodingName(), encoding);
    QCOMPARE(textsOf(*again.document), textsOf(*result.document));
}

void tst_TableWriters::keepsOldFileWhenTheDiskIsFull_data()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<int>("missing");
    const QByteArray longCell = "a\n" + QByteArray(200000, 'x') + "\n";
    const QByteArray shortLines = QByteArray("a\n").repeated(50000);
    for (const TableFormat& format : tableFormats()) {
        const auto row = [&](const char* meaning, const QByteArray& bytes, int missing) {
            QTest::newRow(qPrintable(format.name + meaning)) << format.name << bytes << missing;
        };
        row(", room for half a long cell", longCell, 100000);
        row(", room for all but the end of a long cell", longCell, 10);
        row(", room for half the lines", shortLines, 50000);
        row(", room for all but the last byte", shortLines, 1);
    }
}

void tst_TableWriters::keepsOldFileWhenTheDiskIsFull()
{
#ifndef Q_OS_UNIX
    QSKIP(systemLimits::noSizeLimit);
#else
    QFETCH(QString, format);
    QFETCH(QByteArray, bytes);
    QFETCH(int, missing);
    const TestFolder folder;
    const TableResult result = folder.load("t.csv", bytes);
    QCOMPARE(writeTable(*result.document, folder.path("saved"), formatNamed(format)), QString());
    const int size = folder.read("saved").size();
    folder.write("saved", "the old file");

    rlimit limit = {};
    QCOMPARE(getrlimit(RLIMIT_FSIZE, &limit), 0);
    const rlimit small = {rlim_t(size - missing), limit.rlim_max};
    const auto oldHandler = std::signal(SIGXFSZ, SIG_IGN);
    QCOMPARE(setrlimit(RLIMIT_FSIZE, &small), 0);
    const QString error = writeTable(*result.document, folder.path("saved"), formatNamed(format));
    QCOMPARE(setrlimit(RLIMIT_FSIZE, &limit), 0);
    std::signal(SIGXFSZ, oldHandler);

    QVERIFY2(error.contains("cannot be written"), qPrintable(error));
    QCOMPARE(folder.read("saved"), QByteArray("the old file"));
    QCOMPARE(QDir(folder.path(".")).entryList(QDir::Files), (QStringList{"saved", "t.csv"}));
#endif
}

void tst_TableWriters::refusesImpossiblePlaces_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("reason");
    QTest::newRow("folder") << "."
                            << "not a regular file";
    QTest::newRow("missing folder") << "missing/t.csv"
                                    << "cannot be written";
#ifdef Q_OS_UNIX
    // Stands for devices too, which a test that root runs must not put at risk.
    QTest::newRow("pipe") << "pipe"
                          << "not a regular file";
#endif
}

void tst_TableWriters::refusesImpossiblePlaces()
{
    QFETCH(QString, path);
    QFETCH(QString, reason);
    const TestFolder folder;
#ifdef Q_OS_UNIX
    QCOMPARE(mkfifo(QFile::encodeName(folder.path("pipe")).constData(), 0600), 0);
#endif
    const TableResult result = folder.load("t.csv", "a\n1\n");
    const QString error = writeTable(*result.document, QDir(folder.path(".")).filePath(path), formatNamed("CSV"));
    QVERIFY2(error.contains(reason), qPrintable(error));
}

void tst_TableWriters::refusesReadOnlyFolder()
{
    const TestFolder folder;
    const TableResult result = folder.load("t.csv", "a\n1\n");
    setAccess(folder.path("."), Access::NoWriting);
    QString error;
    {
        const OrdinaryUser user;
        QVERIFY(user.isOrdinary());
        error = writeTable(*result.document, folder.path("t.csv"), formatNamed("CSV"));
    }
    setAccess(folder.path("."), Access::Everything);
    QVERIFY2(error.contains("cannot be written"), qPrintable(error));
    QCOMPARE(folder.read("t.csv"), QByteArray("a\n1\n"));
}

void tst_TableWriters::doesNotMarkAsSaved()
{
    const TestFolder folder;
    const TableResult result = folder.load("t.csv", "a\n1\n");
    result.document->setText(0, 0, "2");
    QCOMPARE(writeTable(*result.document, folder.path("t.csv"), formatNamed("CSV")), QString());
    QVERIFY(result.document->isModified());
    result.document->markSaved();
    QCOMPARE(result.document->text(0, 0), QString("2"));
}

QTEST_GUILESS_MAIN(tst_TableWriters)
#include "tst_TableWriters.moc"
