#include "ui/qt/dialogs/windows/portal/portalOptions_p.h"

#include "ui/qt/dialogs/windows/portal/PortalQuestion_p.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace zelmar::internal {

namespace {

/// Returns a path in the form of the portal: bytes with a final null byte.
QByteArray pathBytes(const QString& path)
{
    return QFile::encodeName(path).append('\0');
}

void addFilters(QVariantMap& options, const PortalQuestion& question)
{
    if (question.filters.isEmpty())
        return;
    options.insert(QStringLiteral("filters"), QVariant::fromValue(question.filters));
    if (question.filter >= 0 && question.filter < question.filters.size())
        options.insert(QStringLiteral("current_filter"), QVariant::fromValue(question.filters.at(question.filter)));
}

void addPlace(QVariantMap& options, const PortalQuestion& question)
{
    if (!question.folder.isEmpty())
        options.insert(QStringLiteral("current_folder"), pathBytes(question.folder));
    if (question.kind != PortalQuestion::Kind::SaveFile || question.name.isEmpty())
        return;
    options.insert(QStringLiteral("current_name"), question.name);
    const QString file = QDir(question.folder).filePath(question.name);
    if (!question.folder.isEmpty() && QFileInfo(file).isFile())
        options.insert(QStringLiteral("current_file"), pathBytes(file));
}

} // namespace

QString portalMethod(const PortalQuestion& question)
{
    return question.kind == PortalQuestion::Kind::SaveFile ? QStringLiteral("SaveFile") : QStringLiteral("OpenFile");
}

QVariantMap portalOptions(const PortalQuestion& question, const QString& token)
{
    QVariantMap options{{QStringLiteral("handle_token"), token}, {QStringLiteral("modal"), true}};
    if (!question.acceptLabel.isEmpty())
        options.insert(QStringLiteral("accept_label"), question.acceptLabel);
    if (question.several)
        options.insert(QStringLiteral("multiple"), true);
    if (question.folders)
        options.insert(QStringLiteral("directory"), true);
    addFilters(options, question);
    addPlace(options, question);
    if (!question.choices.isEmpty())
        options.insert(QStringLiteral("choices"), QVariant::fromValue(question.choices));
    return options;
}

QString anyCasePattern(const QString& pattern)
{
    QString result;
    bool inBrackets = false;
    for (const QChar unit : pattern) {
        if (unit == QLatin1Char('['))
            inBrackets = true;
        else if (unit == QLatin1Char(']'))
            inBrackets = false;
        if (inBrackets || unit.toLower() == unit.toUpper())
            result += unit;
        else
            result += QLatin1Char('[') + unit.toLower() + unit.toUpper() + QLatin1Char(']');
    }
    return result;
}

} // namespace zelmar::internal
