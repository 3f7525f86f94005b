#include "platform/HelpLauncher.h"

#include <QDesktopServices>

#include <utility>

namespace zelmar {

namespace {

/// Returns the path of `url` with a final '/'.
QString folderPath(const QUrl& url)
{
    const QString path = url.adjusted(QUrl::NormalizePathSegments).path();
    return path.endsWith(QLatin1Char('/')) ? path : path + QLatin1Char('/');
}

/// Returns the URL of the topic below `base`, or an invalid URL if the topic's path leads out of `base`. The topic is
/// used as a path and never parsed as a URL, because a colon in it would then separate a scheme.
QUrl topicUrl(const QUrl& base, const QString& topic)
{
    if (topic.contains(QLatin1Char('\\'))) // a path separator on Windows, which QUrl does not know
        return {};
    const QString basePath = folderPath(base);
    QUrl url = base;
    url.setPath(basePath + topic.section(QLatin1Char('#'), 0, 0));
    if (topic.contains(QLatin1Char('#')))
        url.setFragment(topic.section(QLatin1Char('#'), 1));
    url = url.adjusted(QUrl::NormalizePathSegments);
    return url.path().startsWith(basePath) ? url : QUrl();
}

} // namespace

HelpLauncher& HelpLauncher::getInstance()
{
    static HelpLauncher instance;
    return instance;
}

QUrl HelpLauncher::baseUrl() const
{
    return m_baseUrl;
}

void HelpLauncher::setBaseUrl(const QUrl& url)
{
    m_baseUrl = url;
}

void HelpLauncher::setHandler(Handler handler)
{
    m_handler = std::move(handler);
}

void HelpLauncher::showHelp(const std::string& topic)
{
    // Calls a copy, because the handler may replace itself by setHandler().
    const Handler handler = m_handler;
    if (handler)
        handler(topic);
    else
        openTopic(topic);
}

void HelpLauncher::openTopic(const std::string& topic) const
{
    if (m_baseUrl.isEmpty()) {
        qWarning("No base URL is set: cannot show the help topic %s", topic.c_str());
        return;
    }
    const QUrl url = topicUrl(m_baseUrl, QString::fromStdString(topic));
    if (!url.isValid() || !QDesktopServices::openUrl(url))
        qWarning("Cannot show the help topic %s below %s", topic.c_str(), qPrintable(m_baseUrl.toString()));
}

} // namespace zelmar
