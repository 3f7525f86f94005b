#include "ui/qt/dialogs/rules/defaultExtension_p.h"

#include "TestHome.h"

#include <QTest>

using namespace zelmar::internal;

class tst_defaultExtension : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void extensionOfAFilter_data();
    void extensionOfAFilter();
    void nameWithExtension_data();
    void nameWithExtension();
    void bytesOfTheNameStay();
};

void tst_defaultExtension::extensionOfAFilter_data()
{
    QTest::addColumn<QString>("filter");
    QTest::addColumn<QString>("expected");

    // clang-format off
    QTest::newRow("one pattern") << "Data files (*.dat)" << ".dat";
    QTest::newRow("the last of two patterns") << "Images (*.png *.jpg)" << ".jpg";
    QTest::newRow("the last of three patterns") << "Images (*.png *.jpg *.tif)" << ".tif";
    QTest::newRow("two suffixes: the last") << "Archives (*.tar.gz)" << ".gz";
    QTest::newRow("no dot: all of the text") << "All files (*)" << "Allfiles";
    QTest::newRow("dot and asterisk") << "All files (*.*)" << ".";
    QTest::newRow("bare pattern") << "*.txt" << ".txt";
    QTest::newRow("bare name") << "Everything" << "Everything";
    QTest::newRow("nothing but brackets") << "(*)" << "";
    QTest::newRow("empty") << "" << "";
    QTest::newRow("only blanks") << "   " << "";
    QTest::newRow("dot in the description only") << "Version 2.1 data (*)" << ".1data";
    QTest::newRow("text behind the bracket") << "Data (*.dat) old" << ".datold";
    QTest::newRow("dot behind the bracket") << "Data (*.dat) v.2" << ".2";
    QTest::newRow("upper case stays") << "Data (*.DAT)" << ".DAT";
    QTest::newRow("tabs and line ends go") << "Data (*.d\ta\nt)" << ".dat";
    QTest::newRow("non-breaking space goes") << QStringLiteral(u"Data (*.dat\u00a0)") << ".dat";
    QTest::newRow("other brackets stay") << "Data (*.[ch])" << ".[ch]";
    QTest::newRow("question mark stays") << "Data (*.da?)" << ".da?";
    QTest::newRow("comma between patterns stays") << "Data (*.a, b)" << ".a,b";
    QTest::newRow("pattern with a prefix") << "Runs (run*.dat)" << ".dat";
    QTest::newRow("pattern without extension") << "Makefiles (Makefile*)" << "MakefilesMakefile";
    QTest::newRow("non-ASCII") << QStringLiteral(u"Me\u00dfdaten (*.\u00e4\u00f6)") << QStringLiteral(u".\u00e4\u00f6");
    QTest::newRow("beyond the basic plane") << QStringLiteral(u"x (*.\U0001F4C1)") << QStringLiteral(u".\U0001F4C1");
    // clang-format on
}

void tst_defaultExtension::extensionOfAFilter()
{
    QFETCH(QString, filter);
    QTEST(extensionOfFilter(filter), "expected");
}

void tst_defaultExtension::nameWithExtension_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("filter");
    QTest::addColumn<QString>("expected");

    const QString data = QStringLiteral("Data files (*.dat)");
    const QString images = QStringLiteral("Images (*.png *.jpg)");
    const QString all = QStringLiteral("All files (*)");

    // clang-format off
    QTest::newRow("no extension") << "result" << data << "result.dat";
    QTest::newRow("trailing dot") << "result." << data << "result.dat";
    QTest::newRow("another extension") << "result.txt" << data << "result.txt";
    QTest::newRow("the same extension") << "result.dat" << data << "result.dat";
    QTest::newRow("the same in upper case") << "result.DAT" << data << "result.DAT";
    QTest::newRow("two trailing dots: one goes") << "result.." << data << "result..dat";
    QTest::newRow("three trailing dots: one goes") << "a..." << data << "a...dat";
    QTest::newRow("extension and trailing dot") << "result.txt." << data << "result.txt.dat";
    QTest::newRow("several dots") << "result.v2.txt" << data << "result.v2.txt";
    QTest::newRow("version number counts as extension") << "result 2.1" << data << "result 2.1";
    QTest::newRow("blank behind the dot counts") << "result. " << data << "result. ";
    QTest::newRow("the last pattern wins") << "photo" << images << "photo.jpg";
    QTest::newRow("a pattern that is not the last") << "photo.png" << images << "photo.png";
    QTest::newRow("filter without a dot") << "result" << all << "result.Allfiles";
    QTest::newRow("filter without a dot, trailing dot") << "result." << all << "result.Allfiles";
    QTest::newRow("filter without a dot, extension") << "result.txt" << all << "result.txt";
    QTest::newRow("all with dot: a dot is added") << "result" << "All files (*.*)" << "result.";
    QTest::newRow("all with dot, extension") << "result.txt" << "All files (*.*)" << "result.txt";
    QTest::newRow("filter that names nothing") << "result" << "(*)" << "result";
    QTest::newRow("filter that names nothing, trailing dot") << "result." << "(*)" << "result.";
    QTest::newRow("no filter") << "result" << "" << "result";
    QTest::newRow("absolute") << "/data/runs/result" << data << "/data/runs/result.dat";
    QTest::newRow("absolute, trailing dot") << "/data/runs/result." << data << "/data/runs/result.dat";
    QTest::newRow("dot in a folder counts as extension") << "/data/v1.2/result" << data << "/data/v1.2/result";
    QTest::newRow("dot in a folder, trailing dot") << "/data/v1.2/result." << data << "/data/v1.2/result.dat";
    QTest::newRow("dot in a folder, extension") << "/data/v1.2/result.txt" << data << "/data/v1.2/result.txt";
    QTest::newRow("hidden folder counts as extension") << "/home/me/.runs/result" << data << "/home/me/.runs/result";
    QTest::newRow("relative folders count, too") << "../result" << data << "../result";
    QTest::newRow("current folder counts, too") << "./result" << data << "./result";
    QTest::newRow("hidden file") << ".result" << data << ".result";
    QTest::newRow("hidden file with extension") << ".result.txt" << data << ".result.txt";
    QTest::newRow("hidden file in a folder") << "/data/.result" << data << "/data/.result";
    QTest::newRow("only an extension") << ".dat" << data << ".dat";
    QTest::newRow("only a dot") << "." << data << "..dat";
    QTest::newRow("two dots") << ".." << data << "...dat";
    QTest::newRow("empty name") << "" << data << ".dat";
    QTest::newRow("trailing slash") << "/data/runs/" << data << "/data/runs/.dat";
    QTest::newRow("blanks inside") << "my result" << data << "my result.dat";
    QTest::newRow("blank at the end") << "result " << data << "result .dat";
    QTest::newRow("blank at the start") << " result" << data << " result.dat";
    QTest::newRow("only a blank") << " " << data << " .dat";
    QTest::newRow("non-ASCII name") << QStringLiteral(u"Me\u00dfwert") << data << QStringLiteral(u"Me\u00dfwert.dat");
    QTest::newRow("non-ASCII folder") << QStringLiteral(u"/\u6e2c\u5b9a/a") << data << QStringLiteral(u"/\u6e2c\u5b9a/a.dat");
    QTest::newRow("non-ASCII extension") << "a" << QStringLiteral(u"x (*.\u00e4)") << QStringLiteral(u"a.\u00e4");
    QTest::newRow("character that looks like a dot") << QStringLiteral(u"a\u3002b") << data << QStringLiteral(u"a\u3002b.dat");
    QTest::newRow("two suffixes in the filter") << "a" << "Archives (*.tar.gz)" << "a.gz";
    QTest::newRow("text behind the bracket") << "a" << "Data (*.dat) old" << "a.datold";
    QTest::newRow("line end in the name") << "a\nb" << data << "a\nb.dat";
    QTest::newRow("asterisk in the name") << "a*" << data << "a*.dat";
#ifndef Q_OS_WIN
    QTest::newRow("backslash is a letter here") << "a\\b" << data << "a\\b.dat";
    QTest::newRow("two slashes stay") << "/data//a" << data << "/data//a.dat";
#endif
    // clang-format on
}

void tst_defaultExtension::nameWithExtension()
{
    QFETCH(QString, name);
    QFETCH(QString, filter);
    QFETCH(QString, expected);
    QCOMPARE(QString::fromStdString(withDefaultExtension(name.toStdString(), filter)), expected);
}

/// A file name need not be valid UTF-8.
void tst_defaultExtension::bytesOfTheNameStay()
{
    QCOMPARE(withDefaultExtension("caf\xE9.txt", QStringLiteral("Data (*.dat)")), std::string("caf\xE9.txt"));
#ifndef Q_OS_WIN
    QCOMPARE(withDefaultExtension("caf\xE9", QStringLiteral("Data (*.dat)")), std::string("caf\xE9.dat"));
#endif
}

CORE_TEST_MAIN(tst_defaultExtension)
#include "tst_defaultExtension.moc"
