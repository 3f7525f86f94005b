#include "ui/qt/controls/numbers/readNumber.h"

#include "ui/qt/controls/numbers/intermediateTest.h"

#include <QLocale>

#include <algorithm>
#include <limits>
#include <optional>

namespace {

constexpr QLatin1Char decimalPoint('.');
constexpr QLatin1Char groupSeparator(',');

/// A position is the caller's, and may be anything.
void moveBack(int& position, int distance)
{
    const qint64 moved = qint64(position) - distance;
    position = int(qMax<qint64>(moved, std::numeric_limits<int>::min()));
}

bool isSignInRange(QChar character, const NumberRules& rules)
{
    return (character == QLatin1Char('+') && rules.maximum >= 0)
           || (character == QLatin1Char('-') && rules.minimum <= 0);
}

/// Of texts that are no number yet, and show it by their length.
std::optional<QValidator::State> stateOfBeginning(const QString& text, const NumberRules& rules)
{
    if (text.isEmpty()) {
        const bool isFixed = rules.maximum == rules.minimum;
        return isFixed ? QValidator::Invalid : QValidator::Intermediate;
    }
    const bool isPoint = text.size() == 1 && text[0] == decimalPoint;
    const bool isSign = text.size() == 1 && isSignInRange(text[0], rules);
    const bool isSignAndPoint = text.size() == 2 && text[1] == decimalPoint && isSignInRange(text[0], rules);
    if (isPoint || isSign || isSignAndPoint)
        return QValidator::Intermediate;
    return std::nullopt;
}

bool isSeparator(QChar character)
{
    return character == groupSeparator || character.isSpace();
}

/// A point that is typed while the cursor stands on one moves over it.
void removePointTypedOver(QString& text, int point, int position)
{
    const int second = point + 1;
    if (second < text.size() && text[second] == decimalPoint && position == second)
        text.remove(second, 1);
}

bool hasSeparatorBehind(const QString& text, int point)
{
    return std::any_of(text.cbegin() + point + 1, text.cend(), isSeparator);
}

/// Of a text without point: nothing can follow the one, and what separates groups stands alone.
bool hasSeparatorAtEnd(const QString& text)
{
    const QChar last = text[text.size() - 1];
    return last.isSpace() || (last == groupSeparator && isSeparator(text[text.size() - 2]));
}

/// Whether separators are where no number can have them. May take away a point from `text`.
bool hasMisplacedSeparator(QString& text, int position)
{
    if (text.startsWith(groupSeparator))
        return true;
    if (text.size() < 2)
        return false;
    const int point = text.indexOf(decimalPoint);
    if (point < 0)
        return hasSeparatorAtEnd(text);
    removePointTypedOver(text, point, position);
    return hasSeparatorBehind(text, point);
}

std::optional<double> parsed(const QString& text)
{
    static const QLocale english(QLocale::English, QLocale::UnitedStates);
    bool isNumber = false;
    const double number = english.toDouble(text, &isNumber);
    return isNumber ? std::make_optional(number) : std::nullopt;
}

/// Reads a number whose groups are not where they belong, and takes their separators out of `text`.
std::optional<double> parsedWithoutGroups(QString& text, int& position, const NumberRules& rules)
{
    if (rules.maximum < 1000 && rules.minimum > -1000 && text.contains(groupSeparator))
        return std::nullopt;
    if (text.contains(QLatin1String(",,")))
        return std::nullopt;
    const int length = text.size();
    text.remove(groupSeparator);
    moveBack(position, length - text.size());
    position = qMax(position, 0);
    return parsed(text);
}

/// `best` is the state of a number in the range.
QValidator::State stateOf(double number, QValidator::State best, const QString& text, const NumberRules& rules)
{
    if (rules.minimum <= number && number <= rules.maximum)
        return best;
    const bool isFixed = rules.maximum == rules.minimum;
    const bool isBeyond = number >= 0 ? number > rules.maximum : number < rules.minimum;
    // More digits only lead away from zero.
    if (isFixed || isBeyond || !canBecomeNumberInRange(text, rules.minimum, rules.maximum, rules.decimals))
        return QValidator::Invalid;
    return QValidator::Intermediate;
}

/// Reads the number in `text`, which loses what is removed to understand it.
QValidator::State readStripped(QString& text, int& position, const NumberRules& rules, double& number)
{
    if (const auto state = stateOfBeginning(text, rules))
        return *state;
    if (hasMisplacedSeparator(text, position))
        return QValidator::Invalid;
    QValidator::State best = QValidator::Acceptable;
    std::optional<double> result = parsed(text);
    if (!result) {
        // Somebody else's decimal comma must not make another number.
        best = QValidator::Intermediate;
        result = parsedWithoutGroups(text, position, rules);
    }
    if (!result)
        return QValidator::Invalid;
    number = *result;
    return stateOf(number, best, text, rules);
}

} // namespace

QString strippedNumber(const QString& input, int& position, const NumberRules& rules)
{
    QString text = input;
    if (rules.specialValueText.isEmpty() || input != rules.specialValueText) {
        if (text.startsWith(rules.prefix))
            text.remove(0, rules.prefix.size());
        if (text.endsWith(rules.suffix))
            text.chop(rules.suffix.size());
    }
    QString trimmed = text.trimmed();
    moveBack(position, text.size() - trimmed.size());
    return trimmed;
}

const NumberReading& readNumber(const QString& input, int& position, const NumberRules& rules, NumberReading& last)
{
    if (!input.isEmpty() && input == last.text)
        return last;
    QString text = strippedNumber(input, position, rules);
    last.state = readStripped(text, position, rules, last.value);
    if (last.state != QValidator::Acceptable)
        last.value = rules.maximum > 0 ? rules.minimum : rules.maximum;
    last.text = rules.prefix + text + rules.suffix;
    return last;
}
