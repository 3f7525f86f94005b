#include "LiteralNumberRules.h"
#include "TestHome.h"
#include "sameBits.h"
#include "ui/qt/controls/numbers/readNumber_p.h"

#include <QLocale>
#include <QtTest>

#include <cfloat>
#include <cmath>
#include <limits>
#include <random>

using zelmar::internal::NumberReading;
using zelmar::internal::NumberRules;
using zelmar::internal::readNumber;

namespace {

NumberRules inRange(double minimum, double maximum)
{
    NumberRules rules;
    rules.minimum = minimum;
    rules.maximum = maximum;
    rules.decimals = 8;
    return rules;
}

const NumberRules anyDouble = inRange(-DBL_MAX, DBL_MAX);

NumberRules withAffixes(const QString& prefix, const QString& suffix, const QString& special = {})
{
    NumberRules rules = anyDouble;
    rules.prefix = prefix;
    rules.suffix = suffix;
    rules.specialValueText = special;
    return rules;
}

literal::Rules literalRules(const NumberRules& rules)
{
    return {rules.minimum, rules.maximum, rules.decimals, rules.prefix, rules.suffix, rules.specialValueText};
}

NumberReading read(const QString& text, const NumberRules& rules, int position = 0)
{
    NumberReading last;
    return readNumber(text, position, rules, last);
}

constexpr auto invalid = QValidator::Invalid;
constexpr auto intermediate = QValidator::Intermediate;
constexpr auto acceptable = QValidator::Acceptable;

} // namespace

Q_DECLARE_METATYPE(NumberRules)

class tst_readNumber : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void states_data();
    void states();
    void stripsPrefixSuffixAndWhiteSpace_data();
    void stripsPrefixSuffixAndWhiteSpace();
    void movesTheCursor_data();
    void movesTheCursor();
    void valueOfUnacceptableText_data();
    void valueOfUnacceptableText();
    void returnsTheCachedResultForTheSameText();
    void cachesTheTextWithoutItsCommas();
    void emptyTextIsNeverCached();
    void survivesAnyText_data();
    void survivesAnyText();
    void doesNotDependOnTheLocale();
    void agreesWithTheLiteralRules();
    void readsNumbersAsTheEnglishLocaleDoes();
};

void tst_readNumber::cleanup()
{
    QLocale::setDefault(QLocale::c());
}

void tst_readNumber::states_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<NumberRules>("rules");
    QTest::addColumn<QValidator::State>("state");

    const NumberRules positive = inRange(1, 2000);
    const NumberRules negative = inRange(-2000, -1);
    const NumberRules fixed = inRange(5, 5);
    const NumberRules small = inRange(-999, 999);
    // clang-format off
    QTest::newRow("empty") << "" << anyDouble << intermediate;
    QTest::newRow("empty, range of one number") << "" << fixed << invalid;
    QTest::newRow("white space only") << "  " << anyDouble << intermediate;
    QTest::newRow("point") << "." << anyDouble << intermediate;
    QTest::newRow("plus") << "+" << anyDouble << intermediate;
    QTest::newRow("minus") << "-" << anyDouble << intermediate;
    QTest::newRow("plus, negative range") << "+" << negative << invalid;
    QTest::newRow("plus, range up to 0") << "+" << inRange(-5, 0) << intermediate;
    QTest::newRow("minus, positive range") << "-" << positive << invalid;
    QTest::newRow("minus, range from 0") << "-" << inRange(0, 5) << intermediate;
    QTest::newRow("plus and point") << "+." << anyDouble << intermediate;
    QTest::newRow("minus and point") << "-." << anyDouble << intermediate;
    QTest::newRow("plus and point, negative range") << "+." << negative << invalid;
    QTest::newRow("minus and point, positive range") << "-." << positive << invalid;
    QTest::newRow("two points") << ".." << anyDouble << invalid;
    QTest::newRow("two signs") << "+-" << anyDouble << invalid;

    QTest::newRow("comma") << "," << anyDouble << invalid;
    QTest::newRow("comma first") << ",5" << anyDouble << invalid;
    QTest::newRow("comma after the point") << "1.2,3" << anyDouble << invalid;
    QTest::newRow("blank after the point") << "1. 2" << anyDouble << invalid;
    QTest::newRow("tab after the point") << "1.\t2" << anyDouble << invalid;
    QTest::newRow("comma at the end") << "1," << anyDouble << intermediate;
    QTest::newRow("two commas at the end") << "1,," << anyDouble << invalid;
    QTest::newRow("blank and comma at the end") << "1 ," << anyDouble << invalid;
    QTest::newRow("blank at the end is trimmed") << "1 " << anyDouble << acceptable;
    QTest::newRow("comma and blank at the end") << "1, " << anyDouble << intermediate;
    QTest::newRow("blank inside") << "1 2" << anyDouble << invalid;

    QTest::newRow("integer") << "12" << anyDouble << acceptable;
    QTest::newRow("exponent") << "1e3" << anyDouble << acceptable;
    QTest::newRow("negative, capital exponent") << "-2.5E-4" << anyDouble << acceptable;
    QTest::newRow("plus sign") << "+5" << anyDouble << acceptable;
    QTest::newRow("no integral part") << ".5" << anyDouble << acceptable;
    QTest::newRow("no fraction") << "5." << anyDouble << acceptable;
    QTest::newRow("well-placed groups") << "1,234.5" << anyDouble << acceptable;
    QTest::newRow("well-placed groups, small range") << "1,234" << small << invalid;
    QTest::newRow("misplaced groups") << "12,34" << anyDouble << intermediate;
    QTest::newRow("decimal comma") << "1,5" << anyDouble << intermediate;
    QTest::newRow("decimal comma, small range") << "1,5" << small << invalid;
    QTest::newRow("decimal comma, maximum of 1000") << "1,5" << inRange(-5, 1000) << intermediate;
    QTest::newRow("decimal comma, minimum of -1000") << "1,5" << inRange(-1000, 5) << invalid;
    QTest::newRow("decimal comma, minimum of -1000, in the range") << "1,5" << inRange(-1000, 20) << intermediate;
    QTest::newRow("two commas side by side") << "1,,234" << anyDouble << invalid;
    QTest::newRow("comma in the exponent") << "1e1,0" << anyDouble << intermediate;
    QTest::newRow("decimal comma beyond the range") << "9,99,9" << positive << invalid;
    QTest::newRow("decimal comma, can grow into the range") << "0,5" << inRange(10, 1500) << intermediate;
    QTest::newRow("comma in a text that is no number") << "1,x" << anyDouble << invalid;
    QTest::newRow("letters") << "abc" << anyDouble << invalid;
    QTest::newRow("exponent without digits") << "1e" << anyDouble << invalid;
    QTest::newRow("hexadecimal") << "0x10" << anyDouble << invalid;
    QTest::newRow("too large for a double") << "1e400" << anyDouble << invalid;
    QTest::newRow("too small for a double") << "1e-400" << anyDouble << invalid;
    QTest::newRow("not a number") << "nan" << anyDouble << intermediate;
    QTest::newRow("not a number, range of one number") << "nan" << fixed << invalid;
    QTest::newRow("infinity") << "inf" << anyDouble << invalid;
    QTest::newRow("infinity in an infinite range") << "inf" << inRange(-HUGE_VAL, HUGE_VAL) << acceptable;
    QTest::newRow("typographic minus is a minus") << QStringLiteral(u"\u22125") << anyDouble << acceptable;
    QTest::newRow("typographic minus, positive range") << QStringLiteral(u"\u22125") << positive << invalid;
    QTest::newRow("Arabic digit") << QStringLiteral(u"\u0663") << anyDouble << invalid;

    QTest::newRow("at the minimum") << "1" << positive << acceptable;
    QTest::newRow("at the maximum") << "2000" << positive << acceptable;
    QTest::newRow("above the maximum") << "2000.5" << positive << invalid;
    QTest::newRow("below a negative minimum") << "-2000.5" << negative << invalid;
    QTest::newRow("range of one number, that number") << "5.0" << fixed << acceptable;
    QTest::newRow("range of one number, another number") << "4" << fixed << invalid;
    QTest::newRow("below the minimum, can grow into the range") << "5" << inRange(100, 2000) << intermediate;
    QTest::newRow("below the minimum, cannot grow into the range") << "33" << inRange(100, 122) << invalid;
    QTest::newRow("above a negative maximum, can grow into the range") << "-5" << inRange(-2000, -100) << intermediate;
    QTest::newRow("negative number, positive range") << "-5" << positive << invalid;
    QTest::newRow("positive number, negative range") << "5" << negative << invalid;
    // clang-format on
}

void tst_readNumber::states()
{
    QFETCH(QString, text);
    QFETCH(NumberRules, rules);
    QFETCH(QValidator::State, state);
    QCOMPARE(read(text, rules).state, state);
    literal::Cache cache;
    int position = 0;
    literal::validateAndInterpret(text, position, literalRules(rules), cache);
    QCOMPARE(cache.state, state);
}

void tst_readNumber::stripsPrefixSuffixAndWhiteSpace_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<NumberRules>("rules");
    QTest::addColumn<QValidator::State>("state");
    QTest::addColumn<QString>("kept");

    const NumberRules dollars = withAffixes(QStringLiteral("$ "), QStringLiteral(" k"));
    const NumberRules special = withAffixes(QStringLiteral("1"), QStringLiteral("2"), QStringLiteral("152"));
    // clang-format off
    QTest::newRow("prefix and suffix") << "$ 5 k" << dollars << acceptable << "$ 5 k";
    QTest::newRow("prefix only") << "$ 5" << dollars << acceptable << "$ 5 k";
    QTest::newRow("suffix only") << "5 k" << dollars << acceptable << "$ 5 k";
    QTest::newRow("neither") << "5" << dollars << acceptable << "$ 5 k";
    QTest::newRow("blanks in front of the prefix") << " $ 5 k" << dollars << invalid << "$ $ 5 k";
    QTest::newRow("blanks around the number") << "$   5   k" << dollars << acceptable << "$ 5 k";
    QTest::newRow("empty between prefix and suffix") << "$  k" << dollars << intermediate << "$  k";
    QTest::newRow("suffix in another case") << "$ 5 K" << dollars << invalid << "$ 5 K k";
    QTest::newRow("prefix twice") << "$ $ 5 k" << dollars << invalid << "$ $ 5 k";
    QTest::newRow("prefix and suffix that overlap")
        << "abc" << withAffixes(QStringLiteral("ab"), QStringLiteral("bc")) << invalid << "abcbc";
    QTest::newRow("special-value text keeps prefix and suffix") << "152" << special << acceptable << "11522";
    QTest::newRow("another text is stripped") << "162" << special << acceptable << "162";
    QTest::newRow("special-value text that is no number")
        << "Auto" << withAffixes(QString(), QString(), QStringLiteral("Auto")) << invalid << "Auto";
    QTest::newRow("misplaced commas") << "$ 1,23 k" << dollars << intermediate << "$ 123 k";
    QTest::newRow("well-placed commas stay") << "$ 1,234 k" << dollars << acceptable << "$ 1,234 k";
    // clang-format on
}

void tst_readNumber::stripsPrefixSuffixAndWhiteSpace()
{
    QFETCH(QString, text);
    QFETCH(NumberRules, rules);
    QFETCH(QValidator::State, state);
    QFETCH(QString, kept);
    const NumberReading reading = read(text, rules);
    QCOMPARE(reading.state, state);
    QCOMPARE(reading.text, kept);
}

void tst_readNumber::movesTheCursor_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("position");
    QTest::addColumn<int>("expected");
    QTest::addColumn<QValidator::State>("state");
    QTest::addColumn<QString>("kept");

    const int most = std::numeric_limits<int>::max();
    const int least = std::numeric_limits<int>::min();
    // clang-format off
    QTest::newRow("nothing to remove") << "12.5" << 2 << 2 << acceptable << "12.5";
    QTest::newRow("blanks around the number") << "  12 " << 4 << 1 << acceptable << "12";
    QTest::newRow("white space moves it below 0") << "  12 " << 1 << -2 << acceptable << "12";
    QTest::newRow("but not below the smallest int") << "  12 " << least << least << acceptable << "12";
    QTest::newRow("removed commas") << "1,2,3" << 5 << 3 << intermediate << "123";
    QTest::newRow("removed commas do not move it below 0") << "1,2,3" << 1 << 0 << intermediate << "123";
    QTest::newRow("removed commas, from the largest int") << "1,2,3" << most << most - 2 << intermediate << "123";
    QTest::newRow("removed commas, from the smallest int") << "1,2,3" << least << 0 << intermediate << "123";
    QTest::newRow("point typed in front of a point") << "1..5" << 2 << 2 << acceptable << "1.5";
    QTest::newRow("two points, cursor elsewhere") << "1..5" << 3 << 3 << invalid << "1..5";
    QTest::newRow("three points: only the second is removed") << "1...5" << 2 << 2 << invalid << "1..5";
    QTest::newRow("two points alone") << ".." << 1 << 1 << invalid << ".";
    // clang-format on
}

void tst_readNumber::movesTheCursor()
{
    QFETCH(QString, text);
    QFETCH(int, position);
    QFETCH(int, expected);
    QFETCH(QValidator::State, state);
    QFETCH(QString, kept);
    NumberReading last;
    readNumber(text, position, anyDouble, last);
    QCOMPARE(position, expected);
    QCOMPARE(last.state, state);
    QCOMPARE(last.text, kept);
}

void tst_readNumber::valueOfUnacceptableText_data()
{
    QTest::addColumn<NumberRules>("rules");
    QTest::addColumn<double>("value");

    QTest::newRow("any double") << anyDouble << -DBL_MAX;
    QTest::newRow("positive range") << inRange(3, 7) << 3.0;
    QTest::newRow("range around 0") << inRange(-3, 7) << -3.0;
    QTest::newRow("range up to 0") << inRange(-3, 0) << 0.0;
    QTest::newRow("negative range") << inRange(-7, -3) << -3.0;
}

void tst_readNumber::valueOfUnacceptableText()
{
    QFETCH(NumberRules, rules);
    QFETCH(double, value);
    for (const char* text : {"", "x", "1,,5"})
        QCOMPARE(read(QString::fromLatin1(text), rules).value, value);
}

void tst_readNumber::returnsTheCachedResultForTheSameText()
{
    NumberReading last;
    int position = 0;
    readNumber(QStringLiteral("50"), position, inRange(0, 100), last);
    // The cached result is returned although the range has changed.
    QCOMPARE(readNumber(QStringLiteral("50"), position, inRange(0, 10), last).state, acceptable);
    QCOMPARE(last.value, 50.0);
    QCOMPARE(readNumber(QStringLiteral("51"), position, inRange(0, 10), last).state, invalid);
    QCOMPARE(readNumber(QStringLiteral("50"), position, inRange(0, 10), last).state, invalid);
    QCOMPARE(last.value, 0.0);
}

void tst_readNumber::cachesTheTextWithoutItsCommas()
{
    NumberReading last;
    int position = 0;
    QCOMPARE(readNumber(QStringLiteral("1,23"), position, anyDouble, last).state, intermediate);
    QCOMPARE(last.text, QStringLiteral("123"));
    // The cached text is found, so "123" is only Intermediate right after that ...
    QCOMPARE(readNumber(QStringLiteral("123"), position, anyDouble, last).state, intermediate);
    QCOMPARE(last.value, -DBL_MAX);
    // ... and Acceptable again after another text was read.
    readNumber(QStringLiteral("12"), position, anyDouble, last);
    QCOMPARE(readNumber(QStringLiteral("123"), position, anyDouble, last).value, 123.0);
}

void tst_readNumber::emptyTextIsNeverCached()
{
    NumberReading last;
    int position = 0;
    QCOMPARE(readNumber(QString(), position, anyDouble, last).state, intermediate);
    QVERIFY(last.text.isEmpty());
    QCOMPARE(readNumber(QString(), position, inRange(5, 5), last).state, invalid);
}

void tst_readNumber::survivesAnyText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QValidator::State>("state");

    const QString nul(QChar(0));
    const QString half(QChar(0xd83d));
    // clang-format off
    QTest::newRow("10,000 digits, too large") << QString(10000, QLatin1Char('1')) << invalid;
    QTest::newRow("10,000 digits after the point") << QStringLiteral("0.") + QString(10000, QLatin1Char('1')) << acceptable;
    QTest::newRow("10,000 zeros") << QString(10000, QLatin1Char('0')) << acceptable;
    QTest::newRow("10,000 blanks") << QString(10000, QLatin1Char(' ')) << intermediate;
    QTest::newRow("10,000 commas") << QString(10000, QLatin1Char(',')) << invalid;
    QTest::newRow("10,000 points") << QString(10000, QLatin1Char('.')) << invalid;
    QTest::newRow("10,000 digits and commas") << QStringLiteral("0,").repeated(5000) << intermediate;
    QTest::newRow("a NUL") << nul << invalid;
    QTest::newRow("a NUL after a digit") << QStringLiteral("1") + nul << invalid;
    QTest::newRow("a NUL between digits") << QStringLiteral("1") + nul + QStringLiteral("2") << invalid;
    QTest::newRow("half a surrogate pair") << half << invalid;
    QTest::newRow("half a surrogate pair between digits") << QStringLiteral("1") + half + QStringLiteral("2") << invalid;
    QTest::newRow("a surrogate pair") << QString::fromUtf8("\xF0\x9F\x93\x81") << invalid;
    QTest::newRow("em spaces around a digit") << QStringLiteral(u"\u20031\u2003") << acceptable;
    // clang-format on
}

void tst_readNumber::survivesAnyText()
{
    QFETCH(QString, text);
    QFETCH(QValidator::State, state);
    QCOMPARE(read(text, anyDouble).state, state);
    NumberRules rules = inRange(1e6, 1e12);
    for (const int decimals : {12, 0, -1, std::numeric_limits<int>::min()}) {
        rules.decimals = decimals;
        literal::Cache expected;
        int position = 0;
        literal::validateAndInterpret(text, position, literalRules(rules), expected);
        QCOMPARE(read(text, rules).state, expected.state);
    }
}

void tst_readNumber::doesNotDependOnTheLocale()
{
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    QCOMPARE(QLocale().decimalPoint(), QLatin1Char(','));
    QCOMPARE(read(QStringLiteral("1.5"), anyDouble).value, 1.5);
    QCOMPARE(read(QStringLiteral("1,234.5"), anyDouble).value, 1234.5);
    QCOMPARE(read(QStringLiteral("1,5"), anyDouble).state, intermediate);
    QCOMPARE(read(QStringLiteral("1.234,5"), anyDouble).state, invalid);
}

void tst_readNumber::agreesWithTheLiteralRules()
{
    const char* const pieces[] = {"1", "25", "0", ".", ",", "-", "+", "e", " ", "$", "k"};
    const NumberRules rules[] = {anyDouble, inRange(-5.5, 250), inRange(100, 2500), inRange(-2500, -0.25),
                                 withAffixes(QStringLiteral("$"), QStringLiteral("k"), QStringLiteral("$0k"))};
    literal::Cache expected;
    NumberReading last;
    // Every text of up to four pieces, with the cursor after the second code unit.
    for (int number = 0; number < 11 * 11 * 11 * 11; ++number) {
        QString text;
        for (int rest = number; rest > 0; rest /= 11)
            text += QLatin1String(pieces[rest % 11]);
        for (const NumberRules& rule : rules) {
            int position = 2;
            int expectedPosition = 2;
            literal::validateAndInterpret(text, expectedPosition, literalRules(rule), expected);
            readNumber(text, position, rule, last);
            if (last.state != expected.state || !sameBits(last.value, expected.value) || last.text != expected.text
                || position != expectedPosition)
                QFAIL(qPrintable(text));
        }
    }
}

void tst_readNumber::readsNumbersAsTheEnglishLocaleDoes()
{
    const QLocale english(QLocale::English, QLocale::UnitedStates);
    const QString characters = QStringLiteral("00123456789..+-eE");
    std::mt19937 random(1); // the same texts in each run
    int numbers = 0;
    for (int attempt = 0; attempt < 200000; ++attempt) {
        QString text(1 + int(random() % 24), QLatin1Char('9'));
        for (QChar& character : text) {
            // Mostly digits, because few other texts are numbers.
            character = characters[int(random() % (random() % 4 == 0 ? unsigned(characters.size()) : 11U))];
        }
        bool isNumber = false;
        const double expected = english.toDouble(text, &isNumber);
        const NumberReading reading = read(text, anyDouble);
        if (isNumber && std::isfinite(expected)) {
            ++numbers;
            if (reading.state != acceptable || !sameBits(reading.value, expected))
                QFAIL(qPrintable(text));
        } else if (reading.state == acceptable) {
            QFAIL(qPrintable(text));
        }
    }
    QVERIFY2(numbers > 20000, qPrintable(QString::number(numbers)));
}

CORE_TEST_MAIN(tst_readNumber)
#include "tst_readNumber.moc"
