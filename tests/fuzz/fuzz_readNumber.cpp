// Reads texts of number fields both with the library and with the literal rules, and aborts at an input for which the
// results differ.
//
// An input consists of lines: minimum, maximum, decimals, cursor position, prefix, suffix, special-value text, and then
// the texts to read. Each text is read with the result of the previous one in the cache. Characters beyond ASCII, which
// the fuzzer rarely generates, are written as "\" and a letter that specialCharacter() maps.

#include "LiteralNumberRules.h"
#include "sameBits.h"

#include "ui/qt/controls/numbers/canTextGrowIntoRange_p.h"
#include "ui/qt/controls/numbers/readNumber_p.h"

#include <QByteArray>
#include <QList>

#include <cstdio>
#include <cstdlib>

using zelmar::internal::NumberReading;

namespace {

QChar specialCharacter(char letter)
{
    switch (letter) {
    case 'h':
        return {0xd83d}; // a high surrogate
    case 'l':
        return {0xde00}; // a low surrogate
    case 'n':
        return {0x00a0}; // a no-break space
    case 't':
        return {0x2003}; // an em space
    case 'm':
        return {0x2212}; // the typographic minus
    case 'd':
        return {0x0663}; // an Arabic digit
    case 'p':
        return {0x066b}; // the Arabic decimal point
    default:
        return {0};
    }
}

QString decoded(const QByteArray& line)
{
    QString text;
    for (int i = 0; i < line.size(); ++i) {
        const bool isSpecial = line[i] == '\\' && i + 1 < line.size();
        text += isSpecial ? specialCharacter(line[++i]) : QChar(QLatin1Char(line[i]));
    }
    return text;
}

void require(bool holds, const char* what, const QString& text)
{
    if (holds)
        return;
    std::fprintf(stderr, "differs in %s for \"%s\"\n", what, qPrintable(text));
    std::abort();
}

void compareReadings(const QString& text, int position, const literal::Rules& rules, literal::Cache& expected,
                     NumberReading& reading)
{
    int expectedPosition = position;
    literal::validateAndInterpret(text, expectedPosition, rules, expected);
    zelmar::internal::readNumber(
        text, position,
        {rules.minimum, rules.maximum, rules.decimals, rules.prefix, rules.suffix, rules.specialValueText}, reading);
    require(reading.state == expected.state, "the state", text);
    require(sameBits(reading.value, expected.value), "the value", text);
    require(reading.text == expected.text, "the kept text", text);
    require(position == expectedPosition, "the position", text);
}

/// Compares the tests directly, also for texts that a field would reject before this test.
void compareIntermediateTests(const QString& text, const literal::Rules& rules)
{
    require(zelmar::internal::canTextGrowIntoRange(text, rules.minimum, rules.maximum, rules.decimals)
                == literal::intermediateTest(text, rules),
            "the intermediate test", text);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QByteArray input = QByteArray::fromRawData(reinterpret_cast<const char*>(data), int(size));
    const QList<QByteArray> lines = input.split('\n');
    const int headLines = 7;
    const literal::Rules rules = {lines.value(0).toDouble(),        lines.value(1).toDouble(),
                                  qMin(lines.value(2).toInt(), 12), decoded(lines.value(4)),
                                  decoded(lines.value(5)),          decoded(lines.value(6))};
    compareIntermediateTests(decoded(lines.value(headLines)), rules);
    literal::Cache expected;
    NumberReading reading;
    for (int i = headLines; i < lines.size(); ++i)
        compareReadings(decoded(lines[i]), lines.value(3).toInt(), rules, expected, reading);
    return 0;
}
