#include "ui/qt/dialogs/windows/portal/PortalAnswer_p.h"

#include "ui/qt/dialogs/windows/portal/PortalQuestion_p.h"
#include "ui/qt/dialogs/windows/portal/portalMarshalling_p.h"

#include <QDBusMetaType>
#include <QDir>
#include <QUrl>

#include <algorithm>

namespace zelmar::internal {

namespace {

/// Returns the result `key`, or an empty value if it is missing or has another type than the D-Bus signature says.
template <typename Value>
Value resultOf(const QVariantMap& results, const QString& key, const char* signature)
{
    const QVariant result = results.value(key);
    if (result.userType() == qMetaTypeId<Value>())
        return result.value<Value>();
    if (result.userType() != qMetaTypeId<QDBusArgument>())
        return {};
    const auto argument = result.value<QDBusArgument>();
    return argument.currentSignature() == QLatin1String(signature) ? qdbus_cast<Value>(argument) : Value();
}

/// Returns the path of a local file, or an empty text if the location is none.
QString localPath(const QString& location)
{
    const QUrl url(location, QUrl::StrictMode);
    const QString path = url.isValid() && url.isLocalFile() && url.host().isEmpty() ? url.toLocalFile() : QString();
    return QDir::isAbsolutePath(path) && !path.contains(QChar::Null) ? QDir::cleanPath(path) : QString();
}

QStringList localPaths(const QStringList& locations)
{
    QStringList paths;
    for (const QString& location : locations)
        paths += localPath(location);
    return paths.contains(QString()) ? QStringList() : paths;
}

int indexOfFilter(const PortalFilter& filter, const PortalQuestion& question)
{
    if (question.filters.value(question.filter) == filter)
        return question.filters.isEmpty() ? -1 : question.filter;
    return static_cast<int>(question.filters.indexOf(filter));
}

/// Returns whether `value` is one of the values of `choice`.
bool hasValue(const PortalChoice& choice, const QString& value)
{
    if (choice.values.isEmpty())
        return value == QLatin1String("true") || value == QLatin1String("false");
    return std::any_of(choice.values.begin(), choice.values.end(),
                       [&value](const PortalPair& pair) { return pair.id == value; });
}

QMap<QString, QString> valuesOf(const QList<PortalPair>& chosen, const PortalQuestion& question)
{
    QMap<QString, QString> values;
    for (const PortalChoice& choice : question.choices) {
        for (const PortalPair& pair : chosen) {
            if (pair.id == choice.id && hasValue(choice, pair.text))
                values.insert(pair.id, pair.text);
        }
    }
    return values;
}

} // namespace

std::optional<PortalAnswer> portalAnswer(const QVariantMap& results, const PortalQuestion& question)
{
    PortalAnswer answer;
    answer.files = localPaths(resultOf<QStringList>(results, QStringLiteral("uris"), "as"));
    if (answer.files.isEmpty())
        return std::nullopt;
    const QString filter = QStringLiteral("current_filter");
    if (results.contains(filter))
        answer.filter = indexOfFilter(resultOf<PortalFilter>(results, filter, "(sa(us))"), question);
    answer.choices = valuesOf(resultOf<QList<PortalPair>>(results, QStringLiteral("choices"), "a(ss)"), question);
    return answer;
}

} // namespace zelmar::internal
