#include "compat/filter/TextSearch.h"

#include "RandomTexts.h"
#include "TestHome.h"

#include <QCoreApplication>
#include <QTest>

#include <vector>

using zelmar::TextSearch;

Q_DECLARE_METATYPE(Qt::CaseSensitivity)

namespace {

QVector<int> plainly(const QString& text, Qt::CaseSensitivity caseSensitivity, const QStringList& texts)
{
    QVector<int> found;
    for (int i = 0; i < texts.size(); ++i) {
        if (texts.at(i).contains(text, caseSensitivity))
            found += i;
    }
    return found;
}

QStringList randomTexts(RandomTexts& random, int count, int longest)
{
    QStringList texts;
    while (texts.size() < count)
        texts += random.text(longest);
    return texts;
}

} // namespace

class tst_TextSearch : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void finds_data();
    void finds();
    void findsWhatTheStringFinds_data();
    void findsWhatTheStringFinds();
    void everyLetterCountsAsForTheString();
    void looksAtTheCandidatesOnly();
    void narrowsLetterByLetter_data();
    void narrowsLetterByLetter();
    void notesWhatFollows();
    void readsNothingBehindATextEnd();
    void looksInARangeOnly();
};

void tst_TextSearch::finds_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<Qt::CaseSensitivity>("caseSensitivity");
    QTest::addColumn<QVector<int>>("found");

    QTest::newRow("nothing is in every text") << "" << Qt::CaseInsensitive << QVector<int>{0, 1, 2, 3, 4, 5};
    QTest::newRow("in the middle") << "lue" << Qt::CaseInsensitive << QVector<int>{0, 1, 2};
    QTest::newRow("in another case") << "BLUE" << Qt::CaseInsensitive << QVector<int>{0, 2};
    QTest::newRow("case told") << "Blue" << Qt::CaseSensitive << QVector<int>{0, 2};
    QTest::newRow("case told, in none") << "BLUE" << Qt::CaseSensitive << QVector<int>{};
    QTest::newRow("a whole long text") << "A light shade of blue, as in the sky, not in the sea" << Qt::CaseInsensitive
                                       << QVector<int>{};
    QTest::newRow("one letter") << "z" << Qt::CaseInsensitive << QVector<int>{4};
    QTest::newRow("a letter with three spellings")
        << QString(QChar(0x212a)) << Qt::CaseInsensitive << QVector<int>{2, 4, 5};
    QTest::newRow("longer than all") << QString(100, QLatin1Char('e')) << Qt::CaseInsensitive << QVector<int>{};
}

void tst_TextSearch::finds()
{
    QFETCH(QString, text);
    QFETCH(Qt::CaseSensitivity, caseSensitivity);
    QFETCH(QVector<int>, found);

    const QStringList texts = {QStringLiteral("Light Blue"),
                               QStringLiteral("Value"),
                               QStringLiteral("A light shade of Blue, as in the sky and not in the sea at night"),
                               QString(),
                               QString::fromUtf8("Zinnober, dunkel"),
                               QStringLiteral("back")};
    const TextSearch search(text, caseSensitivity);
    QCOMPARE(search.allIn(texts, 0, texts.size()).rows, found);
    QCOMPARE(search.firstIn(texts), found.isEmpty() ? -1 : found.first());
}

void tst_TextSearch::findsWhatTheStringFinds_data()
{
    QTest::addColumn<int>("longestText");
    QTest::addColumn<int>("longestSearched");

    QTest::newRow("short texts") << 7 << 3;
    QTest::newRow("names") << 40 << 4;
    QTest::newRow("long texts") << 300 << 12;
}

void tst_TextSearch::findsWhatTheStringFinds()
{
    QFETCH(int, longestText);
    QFETCH(int, longestSearched);

    RandomTexts random(20261121);
    int foundInAll = 0;
    for (int round = 0; round < 500; ++round) {
        const QStringList texts = randomTexts(random, 40, longestText);
        const QString text =
            round % 2 == 0 ? random.text(longestSearched) : random.partOf(texts.at(random.upTo(texts.size())));
        for (const auto caseSensitivity : {Qt::CaseInsensitive, Qt::CaseSensitive}) {
            const QVector<int> expected = plainly(text, caseSensitivity, texts);
            const TextSearch search(text, caseSensitivity);
            QCOMPARE(search.allIn(texts, 0, texts.size()).rows, expected);
            QCOMPARE(search.firstIn(texts), expected.isEmpty() ? -1 : expected.first());
            foundInAll += expected.size();
        }
    }
    QVERIFY2(foundInAll > 500, qPrintable(QString::number(foundInAll)));
}

void tst_TextSearch::everyLetterCountsAsForTheString()
{
    // Each letter at a place where eight are looked at together.
    QStringList texts;
    for (uint letter = 1; letter < 0x10000; ++letter)
        texts += QStringLiteral("name_%1_name_name").arg(QChar(letter));
    for (uint letter = 1; letter < 0x10000; letter += 7) {
        const QString text(QChar{letter});
        for (const auto caseSensitivity : {Qt::CaseInsensitive, Qt::CaseSensitive}) {
            const int folded = int(QChar(letter).toCaseFolded().unicode());
            const QStringList few = {texts.at(int(letter) - 1), texts.at(folded - 1),
                                     texts.at(int(QChar(letter).toUpper().unicode()) - 1),
                                     texts.at(int(letter) % 60000 + 1)};
            QCOMPARE(TextSearch(text, caseSensitivity).allIn(few, 0, few.size()).rows,
                     plainly(text, caseSensitivity, few));
        }
    }
}

void tst_TextSearch::looksAtTheCandidatesOnly()
{
    const QStringList texts = QVector<QString>(100, QStringLiteral("a name of some letters")).toList();
    const TextSearch search(QStringLiteral("some"), Qt::CaseInsensitive);
    TextSearch::Found candidates;
    for (int i = 3; i < texts.size(); i += 4)
        candidates.rows += i;
    QCOMPARE(search.allAmong(candidates, texts).rows, candidates.rows);
    QCOMPARE(TextSearch(QStringLiteral("same"), Qt::CaseInsensitive).allAmong(candidates, texts).rows, QVector<int>());
    QCOMPARE(search.allAmong({}, texts).rows, QVector<int>());
}

void tst_TextSearch::narrowsLetterByLetter_data()
{
    findsWhatTheStringFinds_data();
}

void tst_TextSearch::narrowsLetterByLetter()
{
    QFETCH(int, longestText);
    QFETCH(int, longestSearched);

    RandomTexts random(3);
    int foundByMore = 0;
    for (int round = 0; round < 400; ++round) {
        const QStringList texts = randomTexts(random, 60, longestText);
        const QString& goal = texts.at(random.upTo(texts.size()));
        const QString whole = round % 2 == 0 ? random.partOf(goal) + random.text(longestSearched)
                                             : goal.mid(random.upTo(goal.size() + 1), 14) + random.text(1);
        for (const auto caseSensitivity : {Qt::CaseInsensitive, Qt::CaseSensitive}) {
            int length = 1 + random.upTo(2);
            TextSearch::Found found = TextSearch(whole.left(length), caseSensitivity).allIn(texts, 0, texts.size());
            while (++length <= whole.size()) {
                found = TextSearch(whole.left(length), caseSensitivity).allAmong(found, texts);
                QCOMPARE(found.rows, plainly(whole.left(length), caseSensitivity, texts));
                foundByMore += found.rows.size();
            }
        }
    }
    QVERIFY2(foundByMore > 500, qPrintable(QString::number(foundByMore)));
}

void tst_TextSearch::notesWhatFollows()
{
#if !defined(__SSE2__) && !defined(_M_X64)
    QSKIP("Letters are looked at one by one here, and nothing is noted.");
#endif
    const QStringList texts = {QStringLiteral("a name with one more letter behind"),
                               QStringLiteral("one letter here, onset there"),
                               QStringLiteral("nothing behind this one"), QStringLiteral("on")};
    const auto followers =
        TextSearch(QStringLiteral("on"), Qt::CaseInsensitive).allIn(texts, 0, texts.size()).followers;
    QCOMPARE(followers.size(), 4);
    QCOMPARE(followers.at(0).any, char16_t('e'));
    QCOMPARE(followers.at(0).all, char16_t('e'));
    QCOMPARE(followers.at(1).any, char16_t('e' | 's'));
    QCOMPARE(followers.at(1).all, char16_t('e' & 's'));
    QCOMPARE(followers.at(2).any, char16_t('e'));

    // At the end, nothing is behind it, so that what is stored there does not matter.
    const QString all = QStringLiteral("nothing is behind this onset");
    const QStringList end = {QString::fromRawData(all.constData(), all.size() - 3)};
    const auto none = TextSearch(QStringLiteral("on"), Qt::CaseSensitive).allIn(end, 0, 1).followers;
    QCOMPARE(none.at(0).any, char16_t(0));
    QCOMPARE(none.at(0).all, char16_t(0xffff));
}

/// As the sanitizers see.
void tst_TextSearch::readsNothingBehindATextEnd()
{
    for (int size = 1; size < 60; ++size) {
        const std::vector<QChar> letters(std::size_t(size), QLatin1Char('e'));
        const QStringList texts = {QString::fromRawData(letters.data(), size)};
        for (const int length : {1, 2, 5}) {
            const TextSearch search(QString(length, QLatin1Char('e')), Qt::CaseInsensitive);
            QCOMPARE(search.firstIn(texts), length <= size ? 0 : -1);
        }
    }
}

void tst_TextSearch::looksInARangeOnly()
{
    const QStringList texts = QVector<QString>(10, QStringLiteral("a name of some letters")).toList();
    const TextSearch search(QStringLiteral("some"), Qt::CaseInsensitive);
    QCOMPARE(search.allIn(texts, 3, 6).rows, (QVector<int>{3, 4, 5}));
    QCOMPARE(search.allIn(texts, 3, 3).rows, QVector<int>());
}

CORE_TEST_MAIN(tst_TextSearch)

#include "tst_TextSearch.moc"
