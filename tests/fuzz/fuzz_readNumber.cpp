// Reads texts in number fields as the library does and as the literal rules do, and ends with the input for which the
// two differ.
//
// An input is lines of text: minimum, maximum, digits, cursor position, prefix, suffix, special text, and then one text
// after the other that is read, each with the answer for the one before at hand. A letter beyond ASCII, which texts for
// the fuzzer are unlikely to have, is written as "\" and one of the letters of specialCharacter().

#include "LiteralNumberRules.h"
#include "sameBits.h"

#include "ui/qt/controls/numbers/intermediateTest.h"
#include "ui/qt/controls/numbers/readNumber.h"

#include <QByteArray>
#include <QList>

#include <cstdio>
#include <cstdlib>

namespace {

QChar specialCharacter(char letter)
{
    switch (letter) {
    case 'h':
        return {0xd83d}; // one half of a letter
    case 'l':
        return {0xde00}; // the other one
    case 'n':
        return {0x00a0}; // a blank that is no line end
    case 't':
        return {0x2003}; // a wide blank
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
    readNumber(text, position,
               {rules.minimum, rules.maximum, rules.decimals, rules.prefix, rules.suffix, rules.specialValueText},
               reading);
    require(reading.state == expected.state, "the state", text);
    require(sameBits(reading.value, expected.value), "the value", text);
    require(reading.text == expected.text, "the kept text", text);
    require(position == expectedPosition, "the position", text);
}

/// Also for texts that a field would refuse before they come to it.
void compareIntermediateTests(const QString& text, const literal::Rules& rules)
{
    require(canBecomeNumberInRange(text, rules.minimum, rules.maximum, rules.decimals)
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
