#include "textsearch/LookAhead_p.h"

#include "TestHome.h"

#include <QCoreApplication>
#include <QTest>

#include <vector>

using zelmar::internal::CaseFolding;
using zelmar::internal::LookAhead;
using zelmar::internal::LookAheadFilter;

class tst_LookAhead : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void notesWhatFollows_data();
    void notesWhatFollows();
    void decidesLongerNeedles_data();
    void decidesLongerNeedles();
    void decidesNothingWithoutLookAheads();
};

void tst_LookAhead::notesWhatFollows_data()
{
    QTest::addColumn<int>("start");
    QTest::addColumn<QString>("units");

    QTest::newRow("no more than fits") << 1 << "rreheat";
    QTest::newRow("as much as fits") << 2 << "reheats";
    QTest::newRow("up to the end") << 6 << "ats";
    QTest::newRow("nothing at the end") << 9 << "";
}

void tst_LookAhead::notesWhatFollows()
{
    QFETCH(int, start);
    QFETCH(QString, units);

    const std::vector<QChar> haystack = {'p', 'r', 'r', 'e', 'h', 'e', 'a', 't', 's'}; // has no terminator
    const LookAhead lookAhead(QStringView(haystack.data(), qsizetype(haystack.size())), start);
    QVERIFY(lookAhead.isKnown());
    QCOMPARE(QString::fromUtf16(lookAhead.units.data(), lookAhead.count), units);
    QVERIFY(!LookAhead().isKnown());
}

void tst_LookAhead::decidesLongerNeedles_data()
{
    QTest::addColumn<QString>("needle");
    QTest::addColumn<int>("caseSensitivity");
    QTest::addColumn<bool>("accepts");

    QTest::newRow("one more code unit") << "pre" << int(Qt::CaseSensitive) << true;
    QTest::newRow("another one") << "prz" << int(Qt::CaseSensitive) << false;
    QTest::newRow("as many as noted") << "press" << int(Qt::CaseSensitive) << true;
    QTest::newRow("more than the haystack has") << "presss" << int(Qt::CaseSensitive) << false;
    QTest::newRow("another case") << "preSs" << int(Qt::CaseSensitive) << false;
    QTest::newRow("another case, ignored") << "press" << int(Qt::CaseInsensitive) << true;
}

void tst_LookAhead::decidesLongerNeedles()
{
    QFETCH(QString, needle);
    QFETCH(int, caseSensitivity);
    QFETCH(bool, accepts);

    const QString haystack = caseSensitivity == Qt::CaseSensitive ? "press" : "xPRESS";
    const int behindP = haystack.size() - 4;
    LookAhead known(haystack, behindP);
    known.units[std::size_t(known.count)] = 's'; // is not part of the haystack
    const QVector<LookAhead> lookAheads = {LookAhead(), known};
    const QVector<char16_t> units(needle.utf16(), needle.utf16() + needle.size());
    // The look-aheads start after "p", and "pr" is known to occur in the haystack.
    const LookAheadFilter filter(lookAheads, 1, units, 2, CaseFolding(Qt::CaseSensitivity(caseSensitivity)));
    QVERIFY(!filter.decides(0));
    QVERIFY(filter.decides(1));
    QCOMPARE(filter.accepts(1), accepts);
    QCOMPARE(filter.start(), 1);
}

void tst_LookAhead::decidesNothingWithoutLookAheads()
{
    const LookAheadFilter filter(3, CaseFolding(Qt::CaseSensitive));
    QVERIFY(!filter.decides(0));
    QCOMPARE(filter.start(), 3);
}

CORE_TEST_MAIN(tst_LookAhead)

#include "tst_LookAhead.moc"
