#pragma once

#include <QString>
#include <QValidator>
#include <QtGlobal>

/// A literal, slow implementation of the rules for texts in number fields. It is the oracle for the library's optimised
/// functions and does not depend on the library.
namespace literal {

struct Rules
{
    double minimum = 0;
    double maximum = 0;
    int decimals = 0;
    QString prefix = {};
    QString suffix = {};
    QString specialValueText = {};
};

struct Cache
{
    QString text = {};
    QValidator::State state = QValidator::Invalid;
    double value = 0;
};

/// Tries all candidates one by one.
bool digitTest(qint64 number, qint64 low, qint64 high, qint64& match);

bool intermediateTest(const QString& str, const Rules& rules);

/// Stores its result in `cache`.
void validateAndInterpret(const QString& input, int& position, const Rules& rules, Cache& cache);

} // namespace literal
