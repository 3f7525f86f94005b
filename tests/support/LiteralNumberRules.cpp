#include "LiteralNumberRules.h"

#include <QLocale>

#include <limits>

namespace literal {

namespace {

quint64 magnitude(qint64 number)
{
    return number < 0 ? ~quint64(number) + 1 : quint64(number);
}

/// Stores the digits, least significant first, and returns their number.
int digitsOf(quint64 number, int* digits)
{
    int count = 0;
    do {
        digits[count++] = int(number % 10);
        number /= 10;
    } while (number != 0);
    return count;
}

} // namespace

bool digitTest(qint64 number, qint64 low, qint64 high, qint64& match)
{
    if (low <= number && number <= high) {
        match = number;
        return true;
    }
    int wanted[20];
    const int wantedCount = digitsOf(magnitude(number), wanted);
    if (high < low)
        return false;
    int failures = 0;
    for (qint64 candidate = high;; --candidate) {
        quint64 rest = magnitude(candidate);
        int met = 0;
        while (rest != 0) {
            if (int(rest % 10) == wanted[met] && ++met == wantedCount) {
                match = candidate;
                return true;
            }
            rest /= 10;
        }
        if (++failures == 500000) {
            match = number;
            return true;
        }
        if (candidate == low)
            return false;
    }
}

bool intermediateTest(const QString& str, const Rules& rules)
{
    qint64 dec = 1;
    for (int i = 0; i < rules.decimals; ++i)
        dec *= 10;

    const QString minstr = QString::number(rules.minimum, 'f', rules.decimals);
    const QString maxstr = QString::number(rules.maximum, 'f', rules.decimals);
    const qint64 minLeft = minstr.section(QLatin1Char('.'), 0, 0).toLongLong();
    const qint64 maxLeft = maxstr.section(QLatin1Char('.'), 0, 0).toLongLong();
    qint64 minRight = minstr.section(QLatin1Char('.'), 1).toLongLong();
    qint64 maxRight = maxstr.section(QLatin1Char('.'), 1).toLongLong();
    const bool negative = rules.maximum < 0;
    const int dot = str.indexOf(QLatin1Char('.'));

    bool hasIntegral = true;
    bool hasFraction = false;
    qint64 left = 0;
    qint64 right = 0;
    if (dot == -1) {
        left = str.toLongLong();
    } else if (dot == 0 || (dot == 1 && str[0] == QLatin1Char('+'))) {
        if (negative)
            return false;
        hasIntegral = false;
        hasFraction = true;
        right = str.mid(dot + 1).toLongLong();
    } else if (dot == 1 && str[0] == QLatin1Char('-')) {
        if (!negative)
            return false;
        hasIntegral = false;
        hasFraction = true;
        right = str.mid(dot + 1).toLongLong();
    } else {
        left = str.left(dot).toLongLong();
        if (dot != str.size() - 1) {
            hasFraction = true;
            right = str.mid(dot + 1).toLongLong();
        }
    }

    qint64 match = 0;
    if (hasIntegral) {
        if (left < 0 && minLeft >= 0)
            return false;
        if (maxLeft < 0 && !str.startsWith(QLatin1Char('-')))
            return false;
        if (!digitTest(left, minLeft, maxLeft, match))
            return false;
        if (!hasFraction)
            return true;
        if (match != minLeft)
            minRight = negative ? dec : 0;
        if (match != maxLeft)
            maxRight = negative ? 0 : dec;
        return digitTest(right, negative ? maxRight : minRight, negative ? minRight : maxRight, match);
    }

    // Tests the missing integral part, which counts as 0, instead of the fraction.
    const qint64 number = 0;
    if (minLeft == maxLeft)
        return digitTest(number, negative ? maxRight : minRight, negative ? minRight : maxRight, match);
    const bool differByOne = minLeft < maxLeft ? minLeft + 1 == maxLeft : maxLeft + 1 == minLeft;
    if (differByOne)
        return digitTest(number, minRight, negative ? 0 : dec, match)
               || digitTest(number, negative ? dec : 0, maxRight, match);
    return digitTest(number, 0, dec, match);
}

namespace {

/// Performs all steps except the fallback value of unacceptable texts.
QValidator::State interpret(QString& copy, int& pos, const Rules& rules, double& value)
{
    const QChar point = QLatin1Char('.');
    const QChar comma = QLatin1Char(',');
    const double max = rules.maximum;
    const double min = rules.minimum;
    const bool plus = max >= 0;
    const bool minus = min <= 0;

    switch (copy.size()) {
    case 0:
        return max != min ? QValidator::Intermediate : QValidator::Invalid;
    case 1:
        if (copy[0] == point || (copy[0] == QLatin1Char('+') && plus) || (copy[0] == QLatin1Char('-') && minus))
            return QValidator::Intermediate;
        break;
    case 2:
        if (copy[1] == point && ((copy[0] == QLatin1Char('+') && plus) || (copy[0] == QLatin1Char('-') && minus)))
            return QValidator::Intermediate;
        break;
    default:
        break;
    }

    if (copy[0] == comma)
        return QValidator::Invalid;

    if (copy.size() > 1) {
        const int d = copy.indexOf(point);
        if (d != -1) {
            if (d + 1 < copy.size() && copy[d + 1] == point && pos == d + 1)
                copy.remove(d + 1, 1);
            for (int i = d + 1; i < copy.size(); ++i) {
                if (copy[i].isSpace() || copy[i] == comma)
                    return QValidator::Invalid;
            }
        } else {
            const QChar last = copy[copy.size() - 1];
            const QChar secondLast = copy[copy.size() - 2];
            if ((last == comma || last.isSpace()) && (secondLast == comma || secondLast.isSpace()))
                return QValidator::Invalid;
            if (last.isSpace() && (!comma.isSpace() || secondLast.isSpace()))
                return QValidator::Invalid;
        }
    }

    const QLocale english(QLocale::English, QLocale::UnitedStates);
    bool ok = false;
    bool onlyIntermediate = false;
    double num = english.toDouble(copy, &ok);
    if (!ok && comma.isPrint()) {
        if (max < 1000 && min > -1000 && copy.contains(comma))
            return QValidator::Invalid;
        for (int i = 0; i + 1 < copy.size(); ++i) {
            if (copy[i] == comma && copy[i + 1] == comma)
                return QValidator::Invalid;
        }
        const int length = copy.size();
        copy.remove(comma);
        const qint64 moved = qint64(pos) + copy.size() - length;
        pos = moved < 0 ? 0 : int(moved);
        num = english.toDouble(copy, &ok);
        if (!ok)
            return QValidator::Invalid;
        onlyIntermediate = true;
    }
    if (!ok)
        return QValidator::Invalid;

    value = num;
    if (num >= min && num <= max)
        return onlyIntermediate ? QValidator::Intermediate : QValidator::Acceptable;
    if (max == min)
        return QValidator::Invalid;
    if ((num >= 0 && num > max) || (num < 0 && num < min))
        return QValidator::Invalid;
    return intermediateTest(copy, rules) ? QValidator::Intermediate : QValidator::Invalid;
}

} // namespace

void validateAndInterpret(const QString& input, int& position, const Rules& rules, Cache& cache)
{
    if (cache.text == input && !input.isEmpty())
        return;

    QString copy = input;
    if (rules.specialValueText.isEmpty() || input != rules.specialValueText) {
        if (copy.startsWith(rules.prefix))
            copy = copy.mid(rules.prefix.size());
        if (copy.endsWith(rules.suffix))
            copy = copy.left(copy.size() - rules.suffix.size());
    }
    const QString trimmed = copy.trimmed();
    const qint64 moved = qint64(position) + trimmed.size() - copy.size();
    position = moved < std::numeric_limits<int>::min() ? std::numeric_limits<int>::min() : int(moved);
    copy = trimmed;

    double value = 0;
    const QValidator::State state = interpret(copy, position, rules, value);
    if (state != QValidator::Acceptable)
        value = rules.maximum > 0 ? rules.minimum : rules.maximum;
    cache.text = rules.prefix + copy + rules.suffix;
    cache.state = state;
    cache.value = value;
}

} // namespace literal
