#include "testing/ScriptStep_p.h"

#include <algorithm>

namespace zelmar::internal {

namespace {

QString describeAccept(const ScriptStep& step)
{
    QStringList files;
    for (const QString& file : step.files)
        files += quoted(file);
    const QString accept = QStringLiteral("accept ") + files.join(QStringLiteral(", "));
    return step.text.isEmpty() ? accept : accept + QStringLiteral(" with ") + quoted(step.text);
}

QString yesOrNo(const ScriptStep& step)
{
    return step.yes ? QStringLiteral("Yes") : QStringLiteral("No");
}

/// Returns the text before the patterns of a name filter.
QString description(const QString& filter)
{
    return filter.left(filter.lastIndexOf(QLatin1Char('('))).simplified();
}

template <typename Matches>
int indexOf(const QStringList& filters, const Matches& matches)
{
    const auto found = std::find_if(filters.begin(), filters.end(), matches);
    return found == filters.end() ? -1 : int(found - filters.begin());
}

} // namespace

QString quoted(const QString& text)
{
    return QLatin1Char('"') + text + QLatin1Char('"');
}

bool endsDialog(const ScriptStep& step)
{
    return step.kind == ScriptStep::Kind::Accept || step.kind == ScriptStep::Kind::Cancel;
}

bool isAnswer(const ScriptStep& step)
{
    return step.kind == ScriptStep::Kind::Overwrite || step.kind == ScriptStep::Kind::Refuse;
}

QString describe(const ScriptStep& step)
{
    switch (step.kind) {
    case ScriptStep::Kind::Accept:
        return describeAccept(step);
    case ScriptStep::Kind::Cancel:
        return QStringLiteral("cancel");
    case ScriptStep::Kind::Press:
        return QStringLiteral("press ") + quoted(step.text);
    case ScriptStep::Kind::Tick:
        return (step.yes ? QStringLiteral("tick ") : QStringLiteral("untick ")) + quoted(step.text);
    case ScriptStep::Kind::Pick:
        return QStringLiteral("pick ") + quoted(step.text);
    case ScriptStep::Kind::Overwrite:
        return QStringLiteral("overwrite: ") + yesOrNo(step);
    case ScriptStep::Kind::Refuse:
        return QStringLiteral("refuse, choose another place: ") + yesOrNo(step);
    }
    return {};
}

QString shownLabel(const QString& label)
{
    QString shown;
    for (int i = 0; i < label.size(); ++i) {
        if (label.at(i) == QLatin1Char('&') && i + 1 < label.size())
            ++i; // "&&" is shown as "&".
        shown += label.at(i);
    }
    return shown;
}

int indexOfNameFilter(const QStringList& filters, const QString& wanted)
{
    const QString text = wanted.simplified();
    const int whole = indexOf(filters, [&text](const QString& filter) { return filter.simplified() == text; });
    return whole >= 0 ? whole
                      : indexOf(filters, [&text](const QString& filter) { return description(filter) == text; });
}

} // namespace zelmar::internal
