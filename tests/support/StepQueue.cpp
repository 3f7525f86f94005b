#include "StepQueue.h"

#include <QTest>

void verifyNoProblem(const QString& problem)
{
    if (QTest::currentTestFunction())
        QTest::qVerify(problem.isEmpty(), "all steps were taken", qPrintable(problem), __FILE__, __LINE__);
}
