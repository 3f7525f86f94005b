#pragma once

#include <QDeadlineTimer>
#include <QString>

#include <queue>
#include <utility>

/// Fails the running test function with `problem` unless the text is empty. Has no effect outside a test function.
void verifyNoProblem(const QString& problem);

/// The queue of a driver that acts as the user of dialogs. The driver takes the named steps in order, each before a
/// deadline, and stops at the first problem.
///
/// The destructor fails the running test function if there was a problem or if steps are left. A test object that owns
/// a driver must therefore destroy it in cleanup().
template <typename Step>
class StepQueue
{
public:
    /// Creates a queue whose steps may wait for `deadline` milliseconds each.
    explicit StepQueue(int deadline)
        : m_deadlineLength(deadline)
        , m_deadline(deadline)
    {
    }
    ~StepQueue() { verifyNoProblem(problem()); }
    StepQueue(const StepQueue&) = delete;
    StepQueue& operator=(const StepQueue&) = delete;

    void add(const QString& name, Step step)
    {
        m_steps.push({name, std::move(step)});
        restartDeadline();
    }
    bool isEmpty() const { return m_steps.empty(); }
    const Step& next() const { return m_steps.front().second; }
    Step takeNext()
    {
        Step step = std::move(m_steps.front().second);
        m_steps.pop();
        restartDeadline();
        return step;
    }

    void restartDeadline() { m_deadline.setRemainingTime(m_deadlineLength); }
    bool isLate() const { return m_deadline.hasExpired(); }

    /// Records that the next step was not due in time, or that a dialog stayed open after the last one. `open`
    /// describes the open dialogs.
    void failLate(const QString& open)
    {
        fail(isEmpty() ? QStringLiteral("open after the last step: %1").arg(open)
                       : QStringLiteral("the step \"%1\" was not due in time; open: %2").arg(nextName(), open));
    }
    /// Records `problem` unless there was one before.
    void fail(const QString& problem)
    {
        if (!hasFailed())
            m_problem = problem;
    }
    bool hasFailed() const { return !m_problem.isEmpty(); }

    /// Returns a description of the problem or of the first step that is left, or an empty text.
    QString problem() const
    {
        if (hasFailed() || isEmpty())
            return m_problem;
        return QStringLiteral("the step \"%1\" was never due").arg(nextName());
    }

private:
    const QString& nextName() const { return m_steps.front().first; }

    int m_deadlineLength;
    std::queue<std::pair<QString, Step>> m_steps;
    QDeadlineTimer m_deadline;
    QString m_problem;
};
