#pragma once

#include "testing/FileDialogScript.h"

#include <QString>
#include <QStringList>

namespace zelmar::internal {

/// A step of a script.
struct ScriptStep
{
    enum class Kind { Accept, Cancel, Press, Tick, Pick, Overwrite, Refuse };

    Kind kind = Kind::Cancel;
    QStringList files; ///< for Accept
    QString text;      ///< a label, or for Accept the name filter
    bool yes = false;  ///< the answer, or for Tick the new state
};

/// Returns `text` in double quotes.
QString quoted(const QString& text);

/// Returns whether a dialog is closed after this step.
bool endsDialog(const ScriptStep& step);
/// Returns whether this step answers a question.
bool isAnswer(const ScriptStep& step);
/// Returns the step as it stands in a test, for example: accept "/data/run1.csv".
QString describe(const ScriptStep& step);

/// Returns `label` as the user sees it: without the "&" that marks a mnemonic.
QString shownLabel(const QString& label);

/// Returns the index in `filters` of the filter that a script means by `wanted`: the whole filter, or only the
/// description before its patterns. Returns -1 if there is none.
int indexOfNameFilter(const QStringList& filters, const QString& wanted);

} // namespace zelmar::internal
