#include "textsearch/TextSearch_p.h"

#include "RandomTexts.h"
#include "TestHome.h"

#include <QCoreApplication>
#include <QTest>

using zelmar::internal::TextSearch;

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
    void everyCodeUnitFoldsAsForTheString();
    void looksAtTheCandidatesOnly();
    void narrowsLetterByLetter_data();
    void narrowsLetterByLetter();
    void renewsLookAheads();
    void narrowsByAnyNeedle();
    void findsAtTheVeryEnd();
    void verifiesCandidates();
    void forgetsLookAheads();
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
        const ExactTexts exact(randomTexts(random, 40, longestText));
        const QStringList& texts = exact.texts();
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

void tst_TextSearch::everyCodeUnitFoldsAsForTheString()
{
    // Each code unit is at a position that the prefilter compares in a block of eight.
    QStringList texts;
    for (uint letter = 0; letter < 0x10000; ++letter)
        texts += QStringLiteral("name_%1_name_name").arg(QChar(letter));
    for (uint letter = 0; letter < 0x10000; letter += 53) {
        const QString text(QChar{letter});
        for (const auto caseSensitivity : {Qt::CaseInsensitive, Qt::CaseSensitive}) {
            const int folded = int(QChar(letter).toCaseFolded().unicode());
            const QStringList few = {texts.at(int(letter)), texts.at(folded),
                                     texts.at(int(QChar(letter).toUpper().unicode())),
                                     texts.at((int(letter) + 5000) % 0x10000)};
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
        const ExactTexts exact(randomTexts(random, 60, longestText));
        const QStringList& texts = exact.texts();
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

/// Types a needle that occurs twice in some haystacks and is so long that look-aheads are used up and stored again.
void tst_TextSearch::renewsLookAheads()
{
    const QStringList texts = {QStringLiteral("a_temperature_of_the_inlet"),
                               QStringLiteral("te_temperature_of_the_inl"), QStringLiteral("TEMPERATURE_OF_THE_INLET"),
                               QStringLiteral("temperature_of"),
                               QString(70, QLatin1Char('x')) + QStringLiteral("temperature_of_the_inlet")};
    const QString whole = QStringLiteral("temperature_of_the_inlet");
    for (const auto caseSensitivity : {Qt::CaseInsensitive, Qt::CaseSensitive}) {
        TextSearch::Found found = TextSearch(whole.left(1), caseSensitivity).allIn(texts, 0, texts.size());
        for (int length = 2; length <= whole.size(); ++length) {
            found = TextSearch(whole.left(length), caseSensitivity).allAmong(found, texts);
            QCOMPARE(found.rows, plainly(whole.left(length), caseSensitivity, texts));
        }
    }
}

/// Narrows results by needles that do not all start with the needle of the previous search.
void tst_TextSearch::narrowsByAnyNeedle()
{
    RandomTexts random(11);
    for (int round = 0; round < 300; ++round) {
        const ExactTexts exact(randomTexts(random, 40, 40));
        TextSearch::Found found = TextSearch(random.text(2), Qt::CaseInsensitive).allIn(exact.texts(), 0, 40);
        for (int step = 0; step < 4; ++step) {
            const QString needle = step == 1 ? found.needle + random.text(2) : random.text(3);
            QVector<int> expected;
            for (const int row : qAsConst(found.rows)) {
                if (exact.texts().at(row).contains(needle, Qt::CaseInsensitive))
                    expected += row;
            }
            found = TextSearch(needle, Qt::CaseInsensitive).allAmong(found, exact.texts());
            QCOMPARE(found.rows, expected);
        }
    }
}

/// Tests lengths around the size of a vector and of a window of positions. Sanitizers detect reads beyond the end.
void tst_TextSearch::findsAtTheVeryEnd()
{
    for (int size = 1; size < 140; ++size) {
        const QString padding(size, QLatin1Char('e'));
        for (const QString& needle : {QStringLiteral("x"), QStringLiteral("Ex"), QStringLiteral("eeeex")}) {
            const ExactTexts exact({padding, padding + QLatin1Char('X')});
            const QVector<int> expected = plainly(needle, Qt::CaseInsensitive, exact.texts());
            const TextSearch search(needle, Qt::CaseInsensitive);
            QCOMPARE(search.allIn(exact.texts(), 0, 2).rows, expected);
            QCOMPARE(search.firstIn(exact.texts()), expected.isEmpty() ? -1 : 1);
        }
    }
}

/// Tests haystacks with more candidate positions than a window has, at most one of which is an occurrence.
void tst_TextSearch::verifiesCandidates()
{
    for (int size = 1; size < 140; ++size) {
        const QString many = QStringLiteral("sab").repeated(size); // each "ab" passes the prefilter for "kab"
        const QStringList texts = {many, many + QStringLiteral("kab"), QStringLiteral("kab") + many};
        QCOMPARE(TextSearch(QStringLiteral("kab"), Qt::CaseInsensitive).allIn(texts, 0, 3).rows, (QVector<int>{1, 2}));
        const auto found = TextSearch(QStringLiteral("k"), Qt::CaseInsensitive).allIn(texts, 0, 3);
        QCOMPARE(TextSearch(QStringLiteral("kab"), Qt::CaseInsensitive).allAmong(found, texts).rows,
                 (QVector<int>{1, 2}));
    }
}

void tst_TextSearch::forgetsLookAheads()
{
    QStringList texts = {QStringLiteral("pump"), QStringLiteral("pressure")};
    const auto search = [](const char* needle) { return TextSearch(QLatin1String(needle), Qt::CaseInsensitive); };
    auto found = search("pu").allAmong(search("p").allIn(texts, 0, 2), texts);
    QCOMPARE(found.byteCount(), qint64(sizeof(int) + sizeof(zelmar::internal::LookAhead)));
    texts[0] = QStringLiteral("purge");
    found.forgetLookAheads();
    QCOMPARE(found.byteCount(), qint64(sizeof(int)));
    QCOMPARE(search("pur").allAmong(found, texts).rows, QVector<int>{0});
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
