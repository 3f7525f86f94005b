#include "PageCode.h"

#include <QFile>
#include <QRegularExpression>

#include <algorithm>

/// Must be outside of any namespace because of the macro.
static void initPageSources()
{
    Q_INIT_RESOURCE(pageSources);
}

namespace gallery {

namespace {

QStringList linesOf(const QString& fileName)
{
    QFile file(QStringLiteral(":/pages/") + fileName);
    if (!file.open(QIODevice::ReadOnly)) {
        qWarning("There is no source %s", qPrintable(fileName));
        return {};
    }
    return QString::fromUtf8(file.readAll()).remove(QLatin1Char('\r')).split(QLatin1Char('\n'));
}

QStringList namesIncludedIn(const QStringList& lines)
{
    static const QRegularExpression include(
        QStringLiteral("^#include \"(?:ui|property|platform)/(?:\\w+/)*(\\w+)\\.h\"$"));
    QStringList names;
    for (const QString& line : lines) {
        const QRegularExpressionMatch match = include.match(line);
        if (match.hasMatch())
            names += match.captured(1);
    }
    return names;
}

bool isComment(const QString& line)
{
    return line.startsWith(QStringLiteral("///"));
}

} // namespace

PageCode::PageCode(const std::vector<SourceFunctions>& functions)
{
    initPageSources();
    for (const SourceFunctions& source : functions) {
        const QStringList lines = linesOf(source.file);
        m_includedNames += namesIncludedIn(lines);
        for (const QString& name : source.names) {
            const QString function = functionIn(lines, name);
            if (function.isEmpty())
                qWarning("There is no function %s in %s", qPrintable(name), qPrintable(source.file));
            else
                m_functions += function;
        }
    }
}

QString functionIn(const QStringList& lines, const QString& name)
{
    const QRegularExpression heading(QStringLiteral("^[A-Za-z][^=;]*\\b%1\\([^;]*$").arg(name));
    auto first = std::find_if(lines.begin(), lines.end(),
                              [&heading](const QString& line) { return heading.match(line).hasMatch(); });
    const auto last = std::find(first, lines.end(), QStringLiteral("}"));
    if (last == lines.end())
        return {};
    while (first != lines.begin() && isComment(*(first - 1)))
        --first;
    return QStringList(lines.mid(int(first - lines.begin()), int(last - first) + 1)).join(QLatin1Char('\n'));
}

} // namespace gallery
