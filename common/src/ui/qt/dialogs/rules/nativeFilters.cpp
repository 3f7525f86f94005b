#include "ui/qt/dialogs/rules/nativeFilters.h"

#include "ui/qt/dialogs/rules/utf8Path.h"

#include <optional>

namespace {

QString withoutBlanksAround(const QString& text)
{
    const QLatin1Char blank(' '); // and no other white space
    int from = 0;
    int to = text.size();
    while (from < to && text.at(from) == blank)
        ++from;
    while (to > from && text.at(to - 1) == blank)
        --to;
    return text.mid(from, to - from);
}

struct Bracketed
{
    QString before;
    QString inside;
};

/// The text between the last `opening` that is followed by a ")", and the last ")", and the text before both. Nothing
/// when there is no such thing, or the filter has several lines. A search and not a regular expression: those of the
/// standard library run out of stack on a filter with some thousand patterns.
std::optional<Bracketed> lastBracketed(const QString& filter, const QString& opening)
{
    if (filter.contains(QLatin1Char('\n')) || filter.contains(QLatin1Char('\r')))
        return std::nullopt;
    const int end = filter.lastIndexOf(QLatin1Char(')'));
    const int start = end < opening.size() ? -1 : filter.lastIndexOf(opening, end - opening.size());
    if (start < 0)
        return std::nullopt;
    const int inside = start + opening.size();
    return Bracketed{filter.left(start), filter.mid(inside, end - inside)};
}

} // namespace

QStringList splitNameFilters(const QString& joined)
{
    QStringList filters;
    for (const QString& part : joined.split(QStringLiteral(";;"), Qt::SkipEmptyParts))
        filters += withoutBlanksAround(part);
    return filters;
}

NativeFilter nativeFilter(const QString& filter)
{
    Bracketed parts =
        lastBracketed(filter, QStringLiteral(" (")).value_or(Bracketed{QStringLiteral("File of Type"), filter});
    return {parts.before, parts.inside.replace(QLatin1Char(' '), QLatin1Char(';'))};
}

QString extensionOfNativeFilter(const QString& filter)
{
    return lastBracketed(filter, QStringLiteral(" (*.")).value_or(Bracketed()).inside;
}

std::string withExtensionOfFilter(const std::string& name, const QString& filter)
{
    boost::filesystem::path path = utf8Path(name);
    path.replace_extension(utf8Path(extensionOfNativeFilter(filter).toStdString()));
    return genericUtf8(path);
}
