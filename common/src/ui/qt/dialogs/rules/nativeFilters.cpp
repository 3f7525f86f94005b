#include "ui/qt/dialogs/rules/nativeFilters_p.h"

#include "ui/qt/dialogs/rules/utf8Path_p.h"

#include <optional>

namespace zelmar::internal {

namespace {

struct Bracketed
{
    QString before;
    QString inside;
};

/// Returns the text between the last `opening` before the last ")" and that ")", and the text before both. Empty when
/// there is none or the filter has several lines. Searches without std::regex, which exhausts the stack on a filter
/// with some thousand patterns.
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

NativeFilter nativeFilter(const QString& filter)
{
    Bracketed parts = lastBracketed(filter, QStringLiteral(" (")).value_or(Bracketed{unnamedFileType, filter});
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

} // namespace zelmar::internal
