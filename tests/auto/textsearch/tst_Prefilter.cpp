#include "textsearch/Prefilter_p.h"

#include "TestHome.h"

#include <QCoreApplication>
#include <QTest>

#include <random>

using zelmar::internal::FollowingUnits;
using zelmar::internal::Prefilter;
using zelmar::internal::UnitPattern;

class tst_Prefilter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void coversCodeUnits_data();
    void coversCodeUnits();
    void marksCandidates_data();
    void marksCandidates();
    void knowsWhatFollows();
};

void tst_Prefilter::coversCodeUnits_data()
{
    QTest::addColumn<QString>("units");
    QTest::addColumn<bool>("isExact");

    QTest::newRow("one") << "a" << true;
    QTest::newRow("null character") << QString(QChar(0)) << true;
    QTest::newRow("two that differ in one bit") << "Aa" << true;
    QTest::newRow("two that differ in more bits") << QString::fromUtf8("ÿŸ") << false;
    QTest::newRow("three") << QString::fromUtf8("KkK") << false;
    QTest::newRow("all four of two bits") << "0123" << true;
}

void tst_Prefilter::coversCodeUnits()
{
    QFETCH(QString, units);
    QFETCH(bool, isExact);

    const UnitPattern pattern(std::vector<char16_t>(units.utf16(), units.utf16() + units.size()));
    QCOMPARE(pattern.isExact, isExact);
    int matches = 0;
    for (uint unit = 0; unit < 0x10000; ++unit) {
        matches += pattern.matches(char16_t(unit));
        if (units.contains(QChar(unit)))
            QVERIFY(pattern.matches(char16_t(unit)));
    }
    QCOMPARE(matches == units.size(), isExact);
}

void tst_Prefilter::marksCandidates_data()
{
    QTest::addColumn<int>("secondOffset");

    QTest::newRow("needle of one code unit") << 0;
    QTest::newRow("of two") << 1;
    QTest::newRow("of twelve") << 11;
}

void tst_Prefilter::marksCandidates()
{
    QFETCH(int, secondOffset);

    const Prefilter prefilter(0, UnitPattern({u'a', u'A'}), secondOffset, UnitPattern({u'b', u'a', u'A'}));
    std::mt19937 random(1);
    for (int count = 0; count <= Prefilter::maxPositions; ++count) {
        std::vector<char16_t> haystack(std::size_t(count + secondOffset)); // sanitizers detect reads beyond its end
        for (char16_t& unit : haystack)
            unit = u"aAbB_\0\xff61"[random() % 7];
        quint64 expected = 0;
        for (int i = 0; i < count; ++i) {
            const char16_t first = haystack[std::size_t(i)];
            const char16_t second = haystack[std::size_t(i) + std::size_t(secondOffset)];
            const bool isCandidate =
                (first | 0x20) == u'a' && (second == u'b' || second == u'B' || (second | 0x20) == u'a');
            expected |= quint64(isCandidate) << i;
        }
        QCOMPARE(prefilter.candidates(haystack.data(), count), expected);
        FollowingUnits following;
        if (count > 0)
            QCOMPARE(prefilter.candidates(haystack.data(), count, following), expected);
        for (int i = 0; i < count - 1; ++i) {
            const char16_t unit = haystack[std::size_t(i) + std::size_t(secondOffset) + 1];
            QVERIFY((expected >> i & 1) == 0 || following.mayMatch(UnitPattern({unit})));
        }
    }
}

void tst_Prefilter::knowsWhatFollows()
{
    const UnitPattern a({u'a'});
    const QString haystack = QStringLiteral("ab__________ac_a");
    FollowingUnits following;
    Prefilter(0, a, 0, a).candidates(reinterpret_cast<const char16_t*>(haystack.utf16()), haystack.size(), following);
    QVERIFY(following.mayMatch(UnitPattern({u'b'})));
    QVERIFY(following.mayMatch(UnitPattern({u'c'})));
    QVERIFY(following.mayMatch(UnitPattern({u'C', u'c'})));
    QVERIFY(!following.mayMatch(UnitPattern({u'd'})));
    QVERIFY(!following.mayMatch(UnitPattern({u'_'})));
    QCOMPARE(int(following.inAny), 'b' | 'c');
    QCOMPARE(int(following.inAll), 'b' & 'c');
    for (const QString& nothingFollows : {QStringLiteral("_________a"), QStringLiteral("_a")}) {
        following = {};
        Prefilter(0, a, 0, a)
            .candidates(reinterpret_cast<const char16_t*>(nothingFollows.utf16()), nothingFollows.size(), following);
        QVERIFY(!following.mayMatch(UnitPattern({u'b'})));
    }
}

CORE_TEST_MAIN(tst_Prefilter)

#include "tst_Prefilter.moc"
