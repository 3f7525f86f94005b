#include "ui/qt/dialogs/windows/builtin/FileDialogObject_p.h"

#include "ui/qt/dialogs/windows/builtin/PortalFileDialog_p.h"
#include "ui/qt/dialogs/windows/builtin/ShellItem_p.h"
#include "ui/qt/dialogs/windows/builtin/portalUsage_p.h"
#include "ui/qt/dialogs/windows/com/CoTaskMemString_p.h"
#include "ui/qt/dialogs/windows/com/fileSystemPath_p.h"

#include <QDir>
#include <QPointer>

#include <utility>

namespace zelmar::internal {

namespace {

QWidget* widgetOf(HWND window)
{
    return window ? QWidget::find(static_cast<WId>(reinterpret_cast<quintptr>(window))) : nullptr;
}

} // namespace

template <typename DialogInterface>
FileDialogObject<DialogInterface>::FileDialogObject(DialogKind kind, REFIID iid)
    : m_iid(iid)
    , m_request(kind)
{
}

template <typename DialogInterface>
FileDialogObject<DialogInterface>::~FileDialogObject() = default;

template <typename DialogInterface>
HRESULT FileDialogObject<DialogInterface>::QueryInterface(REFIID iid, void** object)
{
    const QITAB table[] = {{&m_iid, this->template offsetOf<DialogInterface>(this)},
                           {&IID_IFileDialog, this->template offsetOf<IFileDialog>(this)},
                           {&IID_IModalWindow, this->template offsetOf<IModalWindow>(this)},
                           {&IID_IFileDialogCustomize, this->template offsetOf<IFileDialogCustomize>(this)},
                           {&IID_PortalSeam, this->template offsetOf<PortalSeam>(this)},
                           {nullptr, 0}};
    return QISearch(this, table, iid, object);
}

// Showing

template <typename DialogInterface>
HRESULT FileDialogObject<DialogInterface>::Show(HWND owner)
{
    if (isOpen())
        return E_UNEXPECTED;
    const ComPtr<IFileDialog> self(this); // A sink may release the caller's last reference.
    m_chosen.clear();
    m_closeResult.reset();

    const QPointer<QWidget> ownerWidget = widgetOf(owner);
    const std::optional<bool> inPortal = runInPortal(ownerWidget);
    const bool accepted = inPortal ? *inPortal : runInWindow(ownerWidget);
    m_replacedPath = accepted && inPortal ? m_chosen.value(0) : QString();
    if (!accepted)
        m_chosen.clear();
    if (m_thrown)
        std::rethrow_exception(std::exchange(m_thrown, nullptr));
    return resultOf(accepted);
}

/// Lets a portal show the dialog. Returns whether the user has accepted it, or nothing if no portal has shown it.
template <typename DialogInterface>
std::optional<bool> FileDialogObject<DialogInterface>::runInPortal(QWidget* owner)
{
    if (!callsForPortal(ui::portalUse(), portalSurroundings()) || !m_sinks.allAcceptLateEvents())
        return std::nullopt;
    FileDialogListener& listener = *this;
    m_portalDialog = std::make_unique<PortalFileDialog>(owner, m_request, this->controls(), listener, m_completion);
    const PortalFileDialog::Outcome outcome = m_portalDialog->run();
    m_portalDialog.reset();
    if (outcome == PortalFileDialog::Outcome::NotShown)
        return std::nullopt;
    return outcome == PortalFileDialog::Outcome::Accepted;
}

/// Shows the dialog in a window of this object. Returns whether the user has accepted it.
template <typename DialogInterface>
bool FileDialogObject<DialogInterface>::runInWindow(QWidget* owner)
{
    FileDialogListener& listener = *this;
    m_window = std::make_unique<FileDialogWindow>(owner, m_request, this->controls(), listener);
    const bool accepted = m_window->run();
    m_window.reset();
    return accepted;
}

template <typename DialogInterface>
HRESULT FileDialogObject<DialogInterface>::resultOf(bool accepted) const
{
    return m_closeResult.value_or(accepted ? S_OK : HRESULT_FROM_WIN32(ERROR_CANCELLED));
}

template <typename DialogInterface>
HRESULT FileDialogObject<DialogInterface>::Close(HRESULT result)
{
    if (!isOpen())
        return E_UNEXPECTED;
    m_closeResult = result;
    closeAtOnce();
    return S_OK;
}

template <typename DialogInterface>
void FileDialogObject<DialogInterface>::closeAtOnce()
{
    if (m_window)
        m_window->closeAtOnce();
    if (m_portalDialog)
        m_portalDialog->closeAtOnce();
}

// Notifying the sinks

/// Calls a function that calls sinks. If a sink throws, stores the exception until Show() throws it again, because none
/// may pass through Qt's event loop. Calls nothing until then.
template <typename DialogInterface>
template <typename Call>
void FileDialogObject<DialogInterface>::guarded(const Call& call) noexcept
{
    if (m_thrown)
        return;
    try {
        call();
    } catch (...) {
        m_thrown = std::current_exception();
        closeAtOnce();
    }
}

/// Calls `event` of each sink with this dialog.
template <typename DialogInterface>
template <typename Event>
void FileDialogObject<DialogInterface>::tell(Event event) noexcept
{
    guarded([this, event] { m_sinks.forEach([this, event](IFileDialogEvents& sink) { (sink.*event)(this); }); });
}

/// Calls `event` of each sink that listens to controls, with this dialog and `arguments`.
template <typename DialogInterface>
template <typename Event, typename... Arguments>
void FileDialogObject<DialogInterface>::tellOfControl(Event event, Arguments... arguments) noexcept
{
    guarded([this, event, arguments...] {
        m_sinks.forEachWithControls(
            [this, event, arguments...](IFileDialogControlEvents& sink) { (sink.*event)(this, arguments...); });
    });
}

template <typename DialogInterface>
void FileDialogObject<DialogInterface>::folderChanged() noexcept
{
    tell(&IFileDialogEvents::OnFolderChange);
}

template <typename DialogInterface>
void FileDialogObject<DialogInterface>::typeChanged() noexcept
{
    tell(&IFileDialogEvents::OnTypeChange);
}

template <typename DialogInterface>
bool FileDialogObject<DialogInterface>::mayAccept(const QStringList& files) noexcept
{
    m_chosen = files;
    bool accepted = true;
    guarded([this, &accepted] {
        m_sinks.forEach([this, &accepted](IFileDialogEvents& sink) {
            if (sink.OnFileOk(this) == S_FALSE)
                accepted = false;
        });
    });
    if (!accepted)
        m_chosen.clear();
    return accepted;
}

template <typename DialogInterface>
void FileDialogObject<DialogInterface>::buttonClicked(DWORD control) noexcept
{
    tellOfControl(&IFileDialogControlEvents::OnButtonClicked, control);
}

template <typename DialogInterface>
void FileDialogObject<DialogInterface>::checkButtonToggled(DWORD control, bool checked) noexcept
{
    tellOfControl(&IFileDialogControlEvents::OnCheckButtonToggled, control, checked ? TRUE : FALSE);
}

template <typename DialogInterface>
void FileDialogObject<DialogInterface>::itemSelected(DWORD menu, DWORD item) noexcept
{
    tellOfControl(&IFileDialogControlEvents::OnItemSelected, menu, item);
}

template <typename DialogInterface>
HRESULT FileDialogObject<DialogInterface>::Advise(IFileDialogEvents* events, DWORD* cookie)
{
    if (!events || !cookie)
        return E_POINTER;
    *cookie = m_sinks.add(*events);
    return S_OK;
}

template <typename DialogInterface>
HRESULT FileDialogObject<DialogInterface>::Unadvise(DWORD cookie)
{
    return m_sinks.remove(cookie) ? S_OK : E_INVALIDARG;
}

// The private interface

template <typename DialogInterface>
void FileDialogObject<DialogInterface>::acceptLateEvents(DWORD cookie)
{
    m_sinks.acceptLateEvents(cookie);
}

template <typename DialogInterface>
void FileDialogObject<DialogInterface>::setPathCompletion(PathCompletion completion)
{
    m_completion = std::move(completion);
}

template <typename DialogInterface>
bool FileDialogObject<DialogInterface>::hasAskedToReplace(const QString& path) const
{
    return !m_replacedPath.isEmpty() && path == m_replacedPath;
}

// Options and file types

template <typename DialogInterface>
HRESULT FileDialogObject<DialogInterface>::SetOptions(FILEOPENDIALOGOPTIONS options)
{
    m_request.options = options;
    return S_OK;
}

template <typename DialogInterface>
HRESULT FileDialogObject<DialogInterface>::GetOptions(FILEOPENDIALOGOPTIONS* options)
{
    if (!options)
        return E_POINTER;
    *options = m_request.options;
    return S_OK;
}

template <typename DialogInterface>
HRESULT FileDialogObject<DialogInterface>::SetFileTypes(UINT count, const COMDLG_FILTERSPEC* types)
{
    if (count == 0 || !types)
        return E_INVALIDARG;
    if (isOpen() || !m_request.types.isEmpty())
        return E_UNEXPECTED;
    m_request.types = FileTypes(count, types);
    return S_OK;
}

template <typename DialogInterface>
HRESULT FileDialogObject<DialogInterface>::SetFileTypeIndex(UINT index)
{
    const int type = static_cast<int>(index - 1U); // The shell counts from 1.
    if (!m_window) {
        m_request.type = type;
        return S_OK;
    }
    if (type < 0 || type >= m_request.types.count())
        return E_INVALIDARG;
    m_window->setFileType(type);
    return S_OK;
}

template <typename DialogInterface>
HRESULT FileDialogObject<DialogInterface>::GetFileTypeIndex(UINT* index)
{
    if (!index)
        return E_POINTER;
    *index = static_cast<UINT>(m_window ? m_window->fileType() : m_request.type) + 1U;
    return S_OK;
}

template <typename DialogInterface>
HRESULT FileDialogObject<DialogInterface>::SetDefaultExtension(LPCWSTR extension)
{
    m_request.defaultExtension = textOf(extension);
    return S_OK;
}

// Folder

template <typename DialogInterface>
HRESULT FileDialogObject<DialogInterface>::SetDefaultFolder(IShellItem* folder)
{
    const auto path = fileSystemPath(folder);
    if (!path)
        return E_INVALIDARG;
    m_request.defaultFolder = *path;
    return S_OK;
}

template <typename DialogInterface>
HRESULT FileDialogObject<DialogInterface>::SetFolder(IShellItem* folder)
{
    const auto path = fileSystemPath(folder);
    if (!path)
        return E_INVALIDARG;
    m_request.folder = *path;
    if (m_window)
        m_window->setFolder(*path);
    return S_OK;
}

template <typename DialogInterface>
HRESULT FileDialogObject<DialogInterface>::GetFolder(IShellItem** folder)
{
    if (!folder)
        return E_POINTER;
    const QString path = m_window ? m_window->folder() : m_request.folder;
    *folder = path.isEmpty() ? nullptr : makeShellItem(path).detach();
    return *folder ? S_OK : E_FAIL;
}

// File name and labels

/// Stores a text of the request. Calls `apply` if the window is open.
template <typename DialogInterface>
template <typename Apply>
HRESULT FileDialogObject<DialogInterface>::setText(QString FileDialogRequest::*member, LPCWSTR text, const Apply& apply)
{
    m_request.*member = textOf(text);
    if (m_window)
        apply();
    return S_OK;
}

template <typename DialogInterface>
HRESULT FileDialogObject<DialogInterface>::SetFileName(LPCWSTR name)
{
    return setText(&FileDialogRequest::fileName, name, [this] { m_window->setFileName(m_request.fileName); });
}

template <typename DialogInterface>
HRESULT FileDialogObject<DialogInterface>::GetFileName(LPWSTR* name)
{
    if (!name)
        return E_POINTER;
    *name = makeCoTaskMemString(m_window ? m_window->fileName() : m_request.fileName).release();
    return *name ? S_OK : E_OUTOFMEMORY;
}

template <typename DialogInterface>
HRESULT FileDialogObject<DialogInterface>::SetTitle(LPCWSTR title)
{
    return setText(&FileDialogRequest::title, title, [this] { m_window->setWindowTitle(m_request.title); });
}

template <typename DialogInterface>
HRESULT FileDialogObject<DialogInterface>::SetOkButtonLabel(LPCWSTR text)
{
    return setText(&FileDialogRequest::acceptLabel, text, [this] { m_window->updateLabels(); });
}

template <typename DialogInterface>
HRESULT FileDialogObject<DialogInterface>::SetFileNameLabel(LPCWSTR label)
{
    return setText(&FileDialogRequest::fileNameLabel, label, [this] { m_window->updateLabels(); });
}

// Results

template <typename DialogInterface>
HRESULT FileDialogObject<DialogInterface>::GetResult(IShellItem** item)
{
    if (!item)
        return E_POINTER;
    *item = m_chosen.size() == 1 ? makeShellItem(m_chosen.first()).detach() : nullptr;
    return *item ? S_OK : E_UNEXPECTED;
}

template class FileDialogObject<IFileOpenDialog>;
template class FileDialogObject<IFileSaveDialog>;

HRESULT FileOpenDialogObject::GetResults(IShellItemArray** items)
{
    if (!items)
        return E_POINTER;
    *items = chosenFiles().isEmpty() ? nullptr : makeShellItemArray(chosenFiles()).detach();
    return *items ? S_OK : E_UNEXPECTED;
}

} // namespace zelmar::internal
