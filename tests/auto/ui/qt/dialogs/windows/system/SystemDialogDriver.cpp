#include "SystemDialogDriver.h"

#include <QTimer>

#include <utility>
#include <vector>

namespace {

// In milliseconds. Windows delivers timer messages only when no other message is pending, so the consequences of a step
// have been handled before the next poll.
constexpr int pollInterval = 20;

const QString dialogClass = QStringLiteral("#32770");
const QString menuClass = QStringLiteral("#32768");

/// Returns the visible windows of the system on this thread: dialogs, message boxes and menus.
std::vector<HWND> systemWindows()
{
    std::vector<HWND> windows;
    EnumThreadWindows(
        GetCurrentThreadId(),
        [](HWND window, LPARAM found) -> BOOL {
            const QString name = windowClass(window);
            if (IsWindowVisible(window) && (name == dialogClass || name == menuClass))
                reinterpret_cast<std::vector<HWND>*>(found)->push_back(window);
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&windows));
    return windows;
}

template <typename Condition>
HWND findWindow(Condition condition)
{
    for (HWND window : systemWindows()) {
        if (IsWindowEnabled(window) && condition(window))
            return window;
    }
    return nullptr;
}

HWND findMenu()
{
    return findWindow([](HWND window) { return windowClass(window) == menuClass; });
}

/// Returns whether `window` is a file dialog. A message box has the same class, but its owner is a dialog.
bool isFileDialog(HWND window)
{
    return windowClass(window) == dialogClass && windowClass(GetWindow(window, GW_OWNER)) != dialogClass;
}

HWND findDialog(const QString& title)
{
    if (findMenu())
        return nullptr;
    return findWindow(
        [&title](HWND window) { return isFileDialog(window) && (title.isEmpty() || windowText(window) == title); });
}

HWND findQuestion()
{
    return findWindow([](HWND window) { return windowClass(window) == dialogClass && !isFileDialog(window); });
}

QString windowList()
{
    QStringList list;
    for (HWND window : systemWindows())
        list += QStringLiteral("%1 \"%2\"").arg(windowClass(window), windowText(window));
    return list.isEmpty() ? QStringLiteral("none") : list.join(QStringLiteral(", "));
}

void endWindows()
{
    if (findMenu())
        EndMenu();
    for (HWND window : systemWindows()) {
        if (IsWindowEnabled(window)) {
            PostMessageW(window, WM_COMMAND, IDNO, 0); // answers a question
            PostMessageW(window, WM_COMMAND, IDCANCEL, 0);
        }
    }
}

} // namespace

SystemDialogDriver::SystemDialogDriver(const QString& title, int deadline)
    : m_title(title)
    , m_steps(deadline)
{
    poll();
}

void SystemDialogDriver::inDialog(const QString& name, std::function<void(const SystemDialog&)> action)
{
    inDialogWhen(
        name, [](const SystemDialog&) { return true; }, std::move(action));
}

void SystemDialogDriver::inDialogWhen(const QString& name, std::function<bool(const SystemDialog&)> condition,
                                      std::function<void(const SystemDialog&)> action)
{
    m_steps.add(name, [this, condition = std::move(condition), action = std::move(action)] {
        HWND window = findDialog(m_title);
        if (!window || !condition(SystemDialog(window)))
            return false;
        action(SystemDialog(window));
        return true;
    });
}

void SystemDialogDriver::inQuestion(const QString& name, std::function<void(const SystemQuestion&)> action)
{
    m_steps.add(name, [action = std::move(action)] {
        HWND window = findQuestion();
        if (window)
            action(SystemQuestion(window));
        return window != nullptr;
    });
}

void SystemDialogDriver::inMenu(const QString& name, std::function<void(const SystemMenu&)> action)
{
    m_steps.add(name, [action = std::move(action)] {
        HWND window = findMenu();
        if (window)
            action(SystemMenu(window));
        return window != nullptr;
    });
}

void SystemDialogDriver::poll()
{
    // Starts a new timer before the step, which may run a nested event loop: a repeating timer does not fire while its
    // own slot runs.
    QTimer::singleShot(pollInterval, this, [this] { poll(); });
    if (m_steps.hasFailed())
        endWindows();
    else if (!m_isTakingStep && (m_steps.isEmpty() ? systemWindows().empty() : takeStep()))
        m_steps.restartDeadline();
    else if (m_steps.isLate())
        m_steps.failLate(windowList());
}

bool SystemDialogDriver::takeStep()
{
    m_isTakingStep = true;
    const bool taken = m_steps.next()();
    m_isTakingStep = false;
    if (taken)
        m_steps.takeNext();
    return taken;
}
