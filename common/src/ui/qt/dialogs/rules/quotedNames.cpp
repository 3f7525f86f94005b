#include "ui/qt/dialogs/rules/quotedNames_p.h"

namespace zelmar::internal {

namespace {

const QLatin1Char quote('"');

/// What separates the names in a text, from the end of one to the beginning of the next.
const QLatin1String separator("\" \"");

} // namespace

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
    return text.startsWith(quote) && text.count(quote) >= 2;
}

QStringList namesOfQuotedText(const QString& text)
{
    const QString quoted = text.trimmed();
    if (!startsWithQuotedName(quoted) || !quoted.endsWith(quote))
        return {};
    return quoted.mid(1, quoted.size() - 2).split(separator);
}

QString fileNameText(const QStringList& names)
{
    if (names.size() < 2)
        return names.value(0);
    return quote + names.join(separator) + quote;
}

QStringList namesIn(const QString& fileNameText)
{
    // A single quote character is part of a name.
    if (!startsWithQuotedName(fileNameText))
        return fileNameText.isEmpty() ? QStringList() : QStringList(fileNameText);
    QStringList names;
    const QStringList parts = fileNameText.split(quote);
    for (int i = 1; i < parts.size(); i += 2)
        names += parts[i];
    names.removeAll(QString());
    return names;
}

} // namespace zelmar::internal
