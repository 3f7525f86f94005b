#pragma once

#include "common_ui_qt_export.h"

#include <QUrl>

#include <functional>
#include <string>

namespace zelmar {

/// A service that shows help topics. The Help buttons of the library's dialogs call it.
///
/// An application sets once where its help pages are, on the web or in a folder beside the program:
///
///     auto& help = zelmar::HelpLauncher::getInstance();
///     help.setBaseUrl(QUrl::fromLocalFile(QCoreApplication::applicationDirPath() + "/help"));
///     help.showHelp("files/open.html#filters"); // opens .../help/files/open.html#filters
///
/// or sets a handler that shows the topics itself, for example in a help window of its own. GUI thread only.
class COMMON_UI_QT_EXPORT HelpLauncher
{
public:
    /// A function that shows the topic (UTF-8), which it receives exactly as it was passed to showHelp().
    using Handler = std::function<void(const std::string& topic)>;

    /// Returns the instance of the process, which the first call creates.
    static HelpLauncher& getInstance();

    /// Returns the URL below which the default handler finds the topics. It is empty until setBaseUrl() is called.
    QUrl baseUrl() const;

    /// Sets the URL of the folder that contains the help pages. A final '/' is optional. Use QUrl::fromLocalFile() for
    /// a local folder.
    void setBaseUrl(const QUrl& url);

    /// Replaces the handler. The default one opens the topic's URL with QDesktopServices. An empty function restores
    /// the default handler. A handler that is called for a Help button must not throw, because no exception may pass
    /// through Qt's event loop.
    void setHandler(Handler handler);

    /// Shows `topic` (UTF-8). For the default handler a topic is a path below the base URL with '/' as separator,
    /// optionally followed by '#' and an anchor within the page.
    ///
    /// If the topic cannot be shown, the default handler logs a warning through Qt's message logger. This happens if no
    /// base URL is set, if the path leads out of it or contains a backslash, or if no program opens the URL. Throws
    /// only what a handler throws.
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
