#pragma once

#include <QString>
#include <QValidator>
#include <QtGlobal>

/// What a number field's texts mean, step by step and as slowly as it is told: the oracle for the library's own ways.
/// Knows nothing of the library.
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

/// Walks through the candidates one by one.
bool digitTest(qint64 number, qint64 low, qint64 high, qint64& match);

bool intermediateTest(const QString& str, const Rules& rules);

/// Leaves its answer in `cache`.
void validateAndInterpret(const QString& input, int& position, const Rules& rules, Cache& cache);

} // namespace literal
