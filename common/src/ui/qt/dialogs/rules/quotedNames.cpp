#include "ui/qt/dialogs/rules/quotedNames_p.h"

namespace zelmar::internal {

std::string quotedNames(const std::vector<std::string>& names)
{
    std::string quoted;
    for (const std::string& name : names)
        if (!name.empty())
            quoted += '"' + name + "\" ";
    return quoted;
}

bool startsWithQuotedName(const QString& text)
{
    const QLatin1Char quote('"');
    return text.startsWith(quote) && text.count(quote) >= 2;
}

QStringList namesOfQuotedText(const QString& text)
{
    const QString quoted = text.trimmed();
    if (!startsWithQuotedName(quoted) || !quoted.endsWith(QLatin1Char('"')))
        return {};
    return quoted.mid(1, quoted.size() - 2).split(QStringLiteral("\" \""));
}

} // namespace zelmar::internal
