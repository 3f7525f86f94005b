#include "ScriptedDesktop.h"

#include "StepQueue.h"

#include <QApplication>
#include <QDialog>
#include <QList>
#include <QTimer>
#include <QUrl>

#include <private/qguiapplication_p.h>
#include <qpa/qplatformdialoghelper.h>
#include <qpa/qplatformtheme.h>

#include <utility>

namespace {

QStringList pathsOf(const QList<QUrl>& urls)
{
    QStringList paths;
    for (const QUrl& url : urls)
        paths += url.toLocalFile();
    return paths;
}

QList<QUrl> urlsOf(const QStringList& paths)
{
    QList<QUrl> urls;
    for (const QString& path : paths)
        urls += QUrl::fromLocalFile(path);
    return urls;
}

} // namespace

/// The steps of the test, and a timer that ends dialogs that are late.
class ScriptedDesktop::Script : public QObject
{
public:
    Script()
    {
        connect(&m_clock, &QTimer::timeout, this, [this] { look(); });
        m_clock.start(50);
    }

    ~Script() override
    {
        if (!m_awaited.isEmpty())
            m_steps.fail(QStringLiteral("the step \"%1\" was never taken").arg(m_awaited));
    }

    void add(const QString& name, std::function<void()> action) { m_steps.add(name, {name, std::move(action)}); }
    void shown(Dialog& dialog);

    QList<Dialog*> dialogs;
    QStringList calls;

private:
    void look();

    struct Step
    {
        QString name;
        std::function<void()> action;
    };

    QTimer m_clock;
    StepQueue<Step> m_steps{10000};
    QString m_awaited; ///< the step that is taken next, of a dialog that is shown already
};

/// One file dialog of the desktop.
class ScriptedDesktop::Dialog : public QPlatformFileDialogHelper
{
public:
    Dialog(ScriptedDesktop& desktop, Script& script)
        : m_desktop(desktop)
        , m_script(script)
    {
        m_script.dialogs += this;
    }
    ~Dialog() override { m_script.dialogs.removeAll(this); }

    void exec() override { qFatal("the library waits for its dialogs in an event loop of its own"); }
    bool show(Qt::WindowFlags /*flags*/, Qt::WindowModality /*modality*/, QWindow* /*parent*/) override;
    void hide() override
    {
        m_script.calls += QStringLiteral("hide");
        isShown = false;
    }

    bool defaultNameFilterDisables() const override { return false; }
    void setDirectory(const QUrl& directory) override;
    QUrl directory() const override { return folder; }
    void selectFile(const QUrl& file) override;
    QList<QUrl> selectedFiles() const override { return m_desktop.reportsPreselection ? m_preselected + files : files; }
    void choose(const QList<QUrl>& chosen)
    {
        m_preselected.clear();
        files = chosen;
    }
    void setFilter() override {}
    void selectNameFilter(const QString& filter) override;
    QString selectedNameFilter() const override { return nameFilter; }

    bool isShown = false;
    QUrl folder;
    QList<QUrl> files;
    QString nameFilter;

private:
    Request request() const;
    void tellOfFilters();

    ScriptedDesktop& m_desktop;
    Script& m_script;
    QList<QUrl> m_preselected;
};

/// Hands file dialogs to the script, and everything else to the theme that was there before.
class ScriptedDesktop::Theme : public QPlatformTheme
{
public:
    Theme(ScriptedDesktop& desktop, Script& script)
        : m_desktop(desktop)
        , m_script(script)
        , m_before(std::exchange(QGuiApplicationPrivate::platform_theme, this))
    {
    }
    ~Theme() override { QGuiApplicationPrivate::platform_theme = m_before; }
    Q_DISABLE_COPY(Theme)

    bool usePlatformNativeDialog(DialogType type) const override
    {
        return type == FileDialog || m_before->usePlatformNativeDialog(type);
    }
    QPlatformDialogHelper* createPlatformDialogHelper(DialogType type) const override
    {
        return type == FileDialog ? new Dialog(m_desktop, m_script) : m_before->createPlatformDialogHelper(type);
    }

    const QPalette* palette(Palette type) const override { return m_before->palette(type); }
    const QFont* font(Font type) const override { return m_before->font(type); }
    QVariant themeHint(ThemeHint hint) const override { return m_before->themeHint(hint); }
    QPixmap standardPixmap(StandardPixmap pixmap, const QSizeF& size) const override
    {
        return m_before->standardPixmap(pixmap, size);
    }
    QIcon fileIcon(const QFileInfo& file, IconOptions options) const override
    {
        return m_before->fileIcon(file, options);
    }
    QIconEngine* createIconEngine(const QString& name) const override { return m_before->createIconEngine(name); }
    QList<QKeySequence> keyBindings(QKeySequence::StandardKey key) const override { return m_before->keyBindings(key); }
    QString standardButtonText(int button) const override { return m_before->standardButtonText(button); }
    QKeySequence standardButtonShortcut(int button) const override { return m_before->standardButtonShortcut(button); }

private:
    ScriptedDesktop& m_desktop;
    Script& m_script;
    QPlatformTheme* m_before;
};

// Script

void ScriptedDesktop::Script::shown(Dialog& dialog)
{
    m_steps.restartDeadline();
    if (m_steps.isEmpty()) {
        m_steps.fail(QStringLiteral("a dialog was shown after the last step"));
        return;
    }
    const Step step = m_steps.takeNext();
    if (!step.action)
        return;
    m_awaited = step.name;
    // Takes the step in the event loop of the dialog, after the calls that the dialog itself has deferred: no user is
    // faster.
    const auto takeStep = [this, action = step.action] {
        m_awaited.clear();
        action();
    };
    QTimer::singleShot(0, &dialog, [&dialog, takeStep] { QTimer::singleShot(0, &dialog, takeStep); });
}

/// Rejects every dialog that is open beyond the deadline: also one that only Qt regards as open, and one that Qt draws
/// while the next step waits for a dialog of the desktop.
void ScriptedDesktop::Script::look()
{
    const bool waiting = !dialogs.isEmpty() || !m_steps.isEmpty();
    if (!waiting)
        m_steps.restartDeadline();
    if (m_steps.isLate())
        m_steps.failLate(QStringLiteral("%1 dialogs of the desktop").arg(dialogs.size()));
    if (!m_steps.hasFailed())
        return;
    const QList<Dialog*> open = dialogs;
    for (Dialog* dialog : open)
        Q_EMIT dialog->reject();
    if (auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget()))
        dialog->reject();
}

// Dialog

bool ScriptedDesktop::Dialog::show(Qt::WindowFlags /*flags*/, Qt::WindowModality /*modality*/, QWindow* /*parent*/)
{
    m_script.calls += QStringLiteral("show");
    if (!m_desktop.showsDialogs)
        return false;
    m_desktop.request = request();
    isShown = true;
    if (nameFilter.isEmpty())
        nameFilter = options()->initiallySelectedNameFilter();
    if (m_desktop.reportsFiltersOnTheWay)
        tellOfFilters();
    m_script.shown(*this);
    return true;
}

ScriptedDesktop::Request ScriptedDesktop::Dialog::request() const
{
    Request request;
    request.title = options()->windowTitle();
    request.saving = options()->acceptMode() == QFileDialogOptions::AcceptSave;
    request.fileMode = options()->fileMode();
    request.options = static_cast<int>(options()->options());
    request.nameFilters = options()->nameFilters();
    request.nameFilter = options()->initiallySelectedNameFilter();
    request.folder = options()->initialDirectory().toLocalFile();
    request.files = pathsOf(options()->initiallySelectedFiles());
    request.defaultSuffix = options()->defaultSuffix();
    request.acceptLabel = options()->labelText(QFileDialogOptions::Accept);
    request.fileNameLabel = options()->labelText(QFileDialogOptions::FileName);
    return request;
}

void ScriptedDesktop::Dialog::tellOfFilters()
{
    const QString last = nameFilter;
    for (const QString& filter : options()->nameFilters()) {
        nameFilter = filter;
        Q_EMIT filterSelected(filter);
        if (filter == last)
            break;
    }
    nameFilter = last;
}

void ScriptedDesktop::Dialog::setDirectory(const QUrl& directory)
{
    m_script.calls += QStringLiteral("setDirectory ") + directory.toLocalFile();
    folder = directory;
    if (isShown && m_desktop.reportsEveryFolder)
        Q_EMIT directoryEntered(directory);
}

void ScriptedDesktop::Dialog::selectFile(const QUrl& file)
{
    m_script.calls += QStringLiteral("selectFile ") + file.toLocalFile();
    m_preselected += file;
}

void ScriptedDesktop::Dialog::selectNameFilter(const QString& filter)
{
    m_script.calls += QStringLiteral("selectNameFilter ") + filter;
    nameFilter = filter;
    if (isShown && m_desktop.reportsFiltersOnTheWay)
        Q_EMIT filterSelected(filter);
}

// ScriptedDesktop

ScriptedDesktop::ScriptedDesktop()
    : m_script(std::make_unique<Script>())
    , m_theme(std::make_unique<Theme>(*this, *m_script))
{
}

ScriptedDesktop::~ScriptedDesktop() = default;

void ScriptedDesktop::onShow(const QString& name, std::function<void()> action)
{
    m_script->add(name, std::move(action));
}

void ScriptedDesktop::onShowDoNothing()
{
    m_script->add(QStringLiteral("nothing"), {});
}

QStringList ScriptedDesktop::takeCalls()
{
    return std::exchange(m_script->calls, {});
}

int ScriptedDesktop::dialogs() const
{
    return m_script->dialogs.size();
}

bool ScriptedDesktop::isShown() const
{
    return !m_script->dialogs.isEmpty() && m_script->dialogs.last()->isShown;
}

void ScriptedDesktop::enterFolder(const QString& path)
{
    Dialog& dialog = *m_script->dialogs.last();
    dialog.folder = QUrl::fromLocalFile(path);
    Q_EMIT dialog.directoryEntered(dialog.folder);
}

void ScriptedDesktop::pickFilter(int index)
{
    Dialog& dialog = *m_script->dialogs.last();
    dialog.nameFilter = dialog.options()->nameFilters().at(index);
    Q_EMIT dialog.filterSelected(dialog.nameFilter);
}

void ScriptedDesktop::choose(const QStringList& paths)
{
    m_script->dialogs.last()->choose(urlsOf(paths));
}

void ScriptedDesktop::accept()
{
    Q_EMIT m_script->dialogs.last()->accept();
}

void ScriptedDesktop::closeAndAccept()
{
    m_script->dialogs.last()->isShown = false;
    accept();
}

void ScriptedDesktop::reject()
{
    Q_EMIT m_script->dialogs.last()->reject();
}
