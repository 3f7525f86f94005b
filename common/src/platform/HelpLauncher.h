#pragma once

#include "common_ui_qt_export.h"

#include <QUrl>

#include <functional>
#include <string>

namespace zelmar {

/// Shows help topics: what the Help buttons of the library's dialogs call.
///
/// An application says once where its help is, on the web or in a folder beside the program:
///
///     auto& help = zelmar::HelpLauncher::getInstance();
///     help.setBaseUrl(QUrl::fromLocalFile(QCoreApplication::applicationDirPath() + "/help"));
///     help.showHelp("files/open.html#filters"); // opens .../help/files/open.html#filters
///
/// or handles topics itself, for example with a help window of its own, by setting a handler. GUI thread only.
class COMMON_UI_QT_EXPORT HelpLauncher
{
public:
    /// Gets the topic (UTF-8) as it was handed to showHelp().
    using Handler = std::function<void(const std::string& topic)>;

    /// The one instance of the process, made at the first call.
    static HelpLauncher& getInstance();

    /// The place below which the default handler looks for topics; see setBaseUrl(). Empty at first.
    QUrl baseUrl() const;

    /// Sets the place of the help pages; a final '/' may be left out. Use QUrl::fromLocalFile() for a folder.
    void setBaseUrl(const QUrl& url);

    /// Puts `handler` in place of the default one, which opens the topic's URL with QDesktopServices. An empty
    /// handler brings the default one back.
    void setHandler(Handler handler);

    /// Shows `topic` (UTF-8). For the default handler it is a path below the base URL, with '/' between its folders
    /// and, if wanted, a '#' and an anchor in the page at its end.
    ///
    /// A topic that cannot be shown (no base URL, a path that leads out of it or has a backslash in it, no program that
    /// opens it) is a warning on Qt's message logger. Throws only what a handler throws.
    void showHelp(const std::string& topic);

private:
    HelpLauncher() = default;
    ~HelpLauncher() = default;
    Q_DISABLE_COPY(HelpLauncher)

    void openTopic(const std::string& topic) const;

    QUrl m_baseUrl;
    Handler m_handler;
};

} // namespace zelmar
