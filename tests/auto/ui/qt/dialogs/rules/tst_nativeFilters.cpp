#include "TestHome.h"
#include "ui/qt/dialogs/rules/nativeFilters_p.h"

#include <QRandomGenerator>
#include <QtTest>

#include <algorithm>
#include <regex>

using namespace zelmar::internal;

class tst_nativeFilters : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void takesFiltersApart_data();
    void takesFiltersApart();
    void findsExtensions_data();
    void findsExtensions();
    void replacesExtensions_data();
    void replacesExtensions();
    void agreesWithTheExpressions();
    void takesFiltersOfAnyLength();
};

void tst_nativeFilters::takesFiltersApart_data()
{
    QTest::addColumn<QString>("filter");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("pattern");
    QTest::newRow("one pattern") << "Data (*.dat)"
                                 << "Data"
                                 << "*.dat";
    QTest::newRow("two patterns") << "Images (*.png *.jpg)"
                                  << "Images"
                                  << "*.png;*.jpg";
    QTest::newRow("every blank counts") << "Images (*.png  *.jpg )"
                                        << "Images"
                                        << "*.png;;*.jpg;";
    QTest::newRow("no bracket") << "*.txt"
                                << "File of Type"
                                << "*.txt";
    QTest::newRow("no bracket, two patterns") << "*.txt *.md"
                                              << "File of Type"
                                              << "*.txt;*.md";
    QTest::newRow("no blank before the bracket") << "Data(*.dat)"
                                                 << "File of Type"
                                                 << "Data(*.dat)";
    QTest::newRow("text behind the bracket") << "Data (*.dat) and more"
                                             << "Data"
                                             << "*.dat";
    QTest::newRow("brackets in the name") << "Data (old) (*.dat)"
                                          << "Data (old)"
                                          << "*.dat";
    QTest::newRow("brackets in brackets") << "Data (*.(dat))"
                                          << "Data"
                                          << "*.(dat)";
    QTest::newRow("a second bracket that is never closed") << "Data (*.dat) (*.x"
                                                           << "Data"
                                                           << "*.dat";
    QTest::newRow("never closed") << "Data (*.dat"
                                  << "File of Type"
                                  << "Data;(*.dat";
    QTest::newRow("closed before it opens") << ") (x"
                                            << "File of Type"
                                            << ");(x";
    QTest::newRow("no name") << " (*.dat)"
                             << ""
                             << "*.dat";
    QTest::newRow("no pattern") << "Data ()"
                                << "Data"
                                << "";
    QTest::newRow("the shortest") << " ()"
                                  << ""
                                  << "";
    QTest::newRow("half of it") << " ("
                                << "File of Type"
                                << ";(";
    QTest::newRow("empty") << ""
                           << "File of Type"
                           << "";
    QTest::newRow("a carriage return") << "Data (*.dat)\r"
                                       << "File of Type"
                                       << "Data;(*.dat)\r";
    QTest::newRow("a line break") << "Data\n (*.dat)"
                                  << "File of Type"
                                  << "Data\n;(*.dat)";
    QTest::newRow("not ASCII") << QString::fromUtf8("D\xC3\xA4ten (*.\xE2\x82\xAC)")
                               << QString::fromUtf8("D\xC3\xA4ten") << QString::fromUtf8("*.\xE2\x82\xAC");
}

void tst_nativeFilters::takesFiltersApart()
{
    QFETCH(QString, filter);
    const NativeFilter parts = nativeFilter(filter);
    QTEST(parts.name, "name");
    QTEST(parts.pattern, "pattern");
}

void tst_nativeFilters::findsExtensions_data()
{
    QTest::addColumn<QString>("filter");
    QTest::addColumn<QString>("extension");
    QTest::newRow("one pattern") << "Text (*.txt)"
                                 << "txt";
    QTest::newRow("all files") << "All files (*)"
                               << "";
    QTest::newRow("all files with a dot") << "All (*.*)"
                                          << "*";
    QTest::newRow("two patterns") << "Images (*.png *.jpg)"
                                  << "png *.jpg";
    QTest::newRow("two dots") << "Archives (*.tar.gz)"
                              << "tar.gz";
    QTest::newRow("no star") << "Notes (README.txt)"
                             << "";
    QTest::newRow("no bracket") << "*.txt"
                                << "";
    QTest::newRow("two brackets") << "Text (*.old) (*.txt)"
                                  << "txt";
    QTest::newRow("nothing behind the dot") << "Text (*.)"
                                            << "";
    QTest::newRow("empty") << ""
                           << "";
}

void tst_nativeFilters::findsExtensions()
{
    QFETCH(QString, filter);
    QTEST(extensionOfNativeFilter(filter), "extension");
}

void tst_nativeFilters::replacesExtensions_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("filter");
    QTest::addColumn<QString>("renamed");
    QTest::newRow("another extension") << "data.csv"
                                       << "Text (*.txt)"
                                       << "data.txt";
    QTest::newRow("no extension") << "data"
                                  << "Text (*.txt)"
                                  << "data.txt";
    QTest::newRow("all files") << "data.csv"
                               << "All files (*)"
                               << "data";
    QTest::newRow("all files with a dot") << "data.csv"
                                          << "All (*.*)"
                                          << "data.*";
    QTest::newRow("two patterns") << "data.csv"
                                  << "Images (*.png *.jpg)"
                                  << "data.png *.jpg";
    QTest::newRow("two dots in the name") << "data.tar.gz"
                                          << "Text (*.txt)"
                                          << "data.tar.txt";
    QTest::newRow("a dot in the folder") << "run.1/data"
                                         << "Text (*.txt)"
                                         << "run.1/data.txt";
    QTest::newRow("not ASCII") << QString::fromUtf8("D\xC3\xA4ten\xF0\x9F\x93\x81.csv") << "Text (*.txt)"
                               << QString::fromUtf8("D\xC3\xA4ten\xF0\x9F\x93\x81.txt");
#ifdef Q_OS_WIN
    QTest::newRow("backslashes") << "run\\data.csv"
                                 << "Text (*.txt)"
                                 << "run/data.txt";
#endif
}

void tst_nativeFilters::replacesExtensions()
{
    QFETCH(QString, name);
    QFETCH(QString, filter);
    const std::string renamed = withExtensionOfFilter(name.toStdString(), filter);
    QTEST(QString::fromStdString(renamed), "renamed");
}

/// Compares the searches with the regular expressions that they implement, on random texts of the relevant characters.
void tst_nativeFilters::agreesWithTheExpressions()
{
    const std::regex parts("(.*) \\((.*)\\).*");
    const std::regex extension(".* \\(\\*\\.(.*)\\).*");
    const QByteArray letters = "  (()**..a;\n";
    QRandomGenerator random(20240229);
    int matched = 0;
    int extensions = 0;
    for (int round = 0; round < 100000; ++round) {
        std::string filter;
        for (int length = random.bounded(16); length > 0; --length) {
            const int letter = random.bounded(letters.size() * 4); // makes a line break rare
            filter += letter < letters.size() ? letters.at(letter) : letters.at(letter % (letters.size() - 1));
        }
        const QString text = QString::fromStdString(filter);
        std::smatch match;
        const bool takenApart = std::regex_match(filter, match, parts);
        matched += takenApart;
        std::string pattern = takenApart ? match.str(2) : filter;
        std::replace(pattern.begin(), pattern.end(), ' ', ';');
        const NativeFilter native = nativeFilter(text);
        QCOMPARE(native.name.toStdString(), takenApart ? match.str(1) : std::string("File of Type"));
        QCOMPARE(native.pattern.toStdString(), pattern);

        std::smatch found;
        const bool hasExtension = std::regex_match(filter, found, extension);
        extensions += hasExtension;
        QCOMPARE(extensionOfNativeFilter(text).toStdString(), hasExtension ? found.str(1) : std::string());
    }
    QVERIFY(matched > 1000);
    QVERIFY(extensions > 100);
}

void tst_nativeFilters::takesFiltersOfAnyLength()
{
    const QString patterns = QString("*.png ").repeated(1000000);
    QCOMPARE(nativeFilter("Images (" + patterns + ")").pattern.size(), patterns.size());
    QCOMPARE(extensionOfNativeFilter("Images (" + patterns + ")").size(), patterns.size() - 2);
}

CORE_TEST_MAIN(tst_nativeFilters)
#include "tst_nativeFilters.moc"
