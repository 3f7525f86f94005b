#include "ui/qt/controls/numbers/readNumber_p.h"

#include "ui/qt/controls/numbers/canTextGrowIntoRange_p.h"

#include <QLocale>

#include <algorithm>
#include <limits>
#include <optional>

namespace zelmar::internal {

namespace {

constexpr QLatin1Char decimalPoint('.');
constexpr QLatin1Char groupSeparator(',');

/// Moves back without overflow: the position comes from the caller and may be any number.
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

/// Returns the state of an empty text, a lone sign, a lone point, or a sign with a point, and nothing for other texts.
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

/// Removes the second of two adjacent points if the cursor is between them: a point that is typed in front of a point
/// moves the cursor over it.
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

/// Returns whether a text without a decimal point ends with white space or with a group separator behind another
/// separator.
bool hasSeparatorAtEnd(const QString& text)
{
    const QChar last = text[text.size() - 1];
    return last.isSpace() || (last == groupSeparator && isSeparator(text[text.size() - 2]));
}

/// Returns whether separators are at positions where no number has them. May remove a point from `text`.
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

/// Returns whether the character means the same in numbers of the English and of the C locale.
bool isCommonToEnglishAndC(QChar character)
{
    return (character >= QLatin1Char('0') && character <= QLatin1Char('9')) || character == decimalPoint
           || character == QLatin1Char('-') || character == QLatin1Char('+') || character == QLatin1Char('e')
           || character == QLatin1Char('E');
}

/// Parses an English number.
std::optional<double> parsed(const QString& text)
{
    static const QLocale english(QLocale::English, QLocale::UnitedStates);
    bool isNumber = false;
    // Most of the time of a locale is spent on its own characters, in Qt 6 more than in Qt 5.
    const double number = std::all_of(text.cbegin(), text.cend(), isCommonToEnglishAndC)
                              ? text.toLatin1().toDouble(&isNumber)
                              : english.toDouble(text, &isNumber);
    return isNumber ? std::make_optional(number) : std::nullopt;
}

/// Removes the group separators from `text` and parses it. `position` moves with them, but not below 0.
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

/// Returns the state of a parsed number; `best` is the state for a number in the range.
QValidator::State stateOf(double number, QValidator::State best, const QString& text, const NumberRules& rules)
{
    if (rules.minimum <= number && number <= rules.maximum)
        return best;
    const bool isFixed = rules.maximum == rules.minimum;
    const bool isBeyond = number >= 0 ? number > rules.maximum : number < rules.minimum;
    // Further digits only increase the magnitude, so a number beyond a bound stays beyond it.
    if (isFixed || isBeyond || !canTextGrowIntoRange(text, rules.minimum, rules.maximum, rules.decimals))
        return QValidator::Invalid;
    return QValidator::Intermediate;
}

/// Parses `text` and returns its state. Stores the number in `number` only if `text` could be parsed. Removes from
/// `text` the separators that hinder parsing.
QValidator::State readStripped(QString& text, int& position, const NumberRules& rules, double& number)
{
    if (const auto state = stateOfBeginning(text, rules))
        return *state;
    if (hasMisplacedSeparator(text, position))
        return QValidator::Invalid;
    QValidator::State best = QValidator::Acceptable;
    std::optional<double> result = parsed(text);
    if (!result) {
        // The comma may be meant as a decimal point. Compatibility: commas-never-final
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

} // namespace zelmar::internal
