#include "testing/native/ScriptedDialogObject_p.h"

#include "testing/ScriptStep_p.h"
#include "testing/native/ScriptedDialogClasses_p.h"
#include "ui/qt/dialogs/rules/nativeFilters_p.h"
#include "ui/qt/dialogs/windows/builtin/ShellItem_p.h"
#include "ui/qt/dialogs/windows/builtin/dialogOptions_p.h"
#include "ui/qt/dialogs/windows/com/CoTaskMemString_p.h"
#include "ui/qt/dialogs/windows/com/fileSystemPath_p.h"

#include <QDir>
#include <QFileInfo>
#include <QScopeGuard>

#include <set>

namespace zelmar::internal {

using testing::ShownControl;
using testing::ShownFileDialog;

namespace {

/// The dialog objects that exist.
std::set<const void*>& dialogObjects()
{
    static std::set<const void*> objects;
    return objects;
}

/// Returns the name filter that a file type was made of.
QString nameFilter(const COMDLG_FILTERSPEC& type)
{
    const QString patterns = textOf(type.pszSpec).replace(QLatin1Char(';'), QLatin1Char(' '));
    const QString name = textOf(type.pszName);
    return name == unnamedFileType ? patterns : QStringLiteral("%1 (%2)").arg(name, patterns);
}

ShownControl shownControl(ShownControl::Kind kind, const QString& label, CDCONTROLSTATEF state)
{
    ShownControl shown;
    shown.kind = kind;
    shown.label = shownLabel(label);
    shown.enabled = isUsable(state);
    shown.visible = isShown(state);
    return shown;
}

/// A control of the dialog, or an item of its menu. The list of a record has one for each entry.
struct Place
{
    const Control* control;
    const ControlItem* item;
};

std::vector<Place> placesOf(const ControlModel& model)
{
    std::vector<Place> places;
    for (const Control& control : model.controls()) {
        if (control.kind != Control::Kind::AcceptMenu)
            places.push_back({&control, nullptr});
        for (const ControlItem& item : control.items)
            places.push_back({&control, &item});
    }
    return places;
}

ShownControl shownAt(const Place& place)
{
    if (place.item)
        return shownControl(ShownControl::Kind::MenuEntry, place.item->text, place.item->state);
    const bool isButton = place.control->kind == Control::Kind::PushButton;
    ShownControl shown = shownControl(isButton ? ShownControl::Kind::Button : ShownControl::Kind::CheckBox,
                                      place.control->label, place.control->state);
    shown.ticked = place.control->checked;
    return shown;
}

QStringList nativePaths(const QStringList& paths)
{
    QStringList converted;
    for (const QString& path : paths)
        converted += QDir::toNativeSeparators(path);
    return converted;
}

template <typename Value>
HRESULT store(const Value& value, Value* result)
{
    if (!result)
        return E_POINTER;
    *result = value;
    return S_OK;
}

HRESULT storeItem(const QString& path, IShellItem** item)
{
    if (!item)
        return E_POINTER;
    *item = path.isEmpty() ? nullptr : makeShellItem(QDir::toNativeSeparators(path)).detach();
    return *item ? S_OK : E_FAIL;
}

} // namespace

bool isScriptedDialogObject(const void* dialog)
{
    return dialogObjects().count(dialog) != 0;
}

template <typename DialogInterface>
ScriptedDialogObject<DialogInterface>::ScriptedDialogObject(QFileDialog::AcceptMode mode, REFIID iid)
    : m_mode(mode)
    , m_iid(iid)
    , m_options(mode == QFileDialog::AcceptSave ? FOS_OVERWRITEPROMPT : FOS_FILEMUSTEXIST)
{
    dialogObjects().insert(static_cast<IFileDialog*>(this));
}

template <typename DialogInterface>
ScriptedDialogObject<DialogInterface>::~ScriptedDialogObject()
{
    dialogObjects().erase(static_cast<IFileDialog*>(this));
}

template <typename DialogInterface>
HRESULT ScriptedDialogObject<DialogInterface>::QueryInterface(REFIID iid, void** object)
{
    const QITAB table[] = {{&m_iid, this->template offsetOf<DialogInterface>(this)},
                           {&IID_IFileDialog, this->template offsetOf<IFileDialog>(this)},
                           {&IID_IModalWindow, this->template offsetOf<IModalWindow>(this)},
                           {&IID_IFileDialogCustomize, this->template offsetOf<IFileDialogCustomize>(this)},
                           {nullptr, 0}};
    return QISearch(this, table, iid, object);
}

// Showing

template <typename DialogInterface>
HRESULT ScriptedDialogObject<DialogInterface>::Show(HWND /*owner*/)
{
    if (m_open)
        return E_UNEXPECTED;
    const ComPtr<IFileDialog> self(this);                     // A sink may release the caller's last reference.
    const auto end = qScopeGuard([this] { m_open = false; }); // also when a sink throws an exception
    openDialog();
    if (ScriptPlayer* const player = ScriptPlayer::current())
        player->play(*this);
    else
        reportFailure(QStringLiteral("No script exists any more for this dialog:\n") + describe(shown()));
    if (m_open)
        cancel();
    return m_result;
}

template <typename DialogInterface>
void ScriptedDialogObject<DialogInterface>::openDialog()
{
    m_open = true;
    m_chosen.clear();
    m_pickedItem.reset();
    if (m_folder.isEmpty())
        m_folder = QDir::currentPath();
    if (m_type < 0 || m_type >= m_types.size())
        m_type = 0;
    tell(&IFileDialogEvents::OnFolderChange);
}

template <typename DialogInterface>
HRESULT ScriptedDialogObject<DialogInterface>::Close(HRESULT result)
{
    if (!m_open)
        return E_UNEXPECTED;
    m_open = false;
    m_result = result;
    m_chosen.clear();
    return S_OK;
}

template <typename DialogInterface>
ShownFileDialog ScriptedDialogObject<DialogInterface>::shown() const
{
    ShownFileDialog shown;
    shown.kind = ShownFileDialog::Kind::Native;
    shown.acceptMode = m_mode;
    shown.fileMode = fileModeOf(m_options);
    shown.caption = m_title;
    shown.folder = m_folder;
    shown.defaultName = m_fileName;
    shown.nameFilters = m_types;
    shown.selectedNameFilter = m_types.value(m_type);
    shown.asksBeforeOverwriting = m_mode == QFileDialog::AcceptSave && (m_options & FOS_OVERWRITEPROMPT) != 0;
    for (const Place& place : placesOf(this->controls()))
        shown.controls.push_back(shownAt(place));
    return shown;
}

// The user

template <typename DialogInterface>
void ScriptedDialogObject<DialogInterface>::press(std::size_t button)
{
    tellOfControl(&IFileDialogControlEvents::OnButtonClicked, placesOf(this->controls()).at(button).control->id);
}

template <typename DialogInterface>
void ScriptedDialogObject<DialogInterface>::setTicked(std::size_t checkBox, bool on)
{
    const DWORD id = placesOf(this->controls()).at(checkBox).control->id;
    this->controls().setChecked(id, on);
    tellOfControl(&IFileDialogControlEvents::OnCheckButtonToggled, id, on ? TRUE : FALSE);
}

template <typename DialogInterface>
void ScriptedDialogObject<DialogInterface>::pick(std::size_t menuEntry)
{
    m_pickedItem = placesOf(this->controls()).at(menuEntry).item->id;
}

template <typename DialogInterface>
QString ScriptedDialogObject<DialogInterface>::accept(const QStringList& files, int nameFilter)
{
    selectType(nameFilter);
    enterFolder(QFileInfo(files.first()).path());
    m_fileName = QFileInfo(files.first()).fileName();
    selectMenuItem();
    if (!m_open) // An event handler has closed the dialog.
        return {};
    m_chosen = files;
    const bool accepted = mayAccept();
    if (!m_open)
        return {};
    if (!accepted) {
        m_chosen.clear();
        return QStringLiteral("The dialog stays open, because an event handler does not accept the files.");
    }
    m_open = false;
    m_result = S_OK;
    return {};
}

template <typename DialogInterface>
void ScriptedDialogObject<DialogInterface>::cancel()
{
    Close(HRESULT_FROM_WIN32(ERROR_CANCELLED));
}

template <typename DialogInterface>
void ScriptedDialogObject<DialogInterface>::selectType(int type)
{
    if (type < 0 || type == m_type)
        return;
    m_type = type;
    tell(&IFileDialogEvents::OnTypeChange);
}

template <typename DialogInterface>
void ScriptedDialogObject<DialogInterface>::enterFolder(const QString& folder)
{
    if (!m_open || folder == m_folder || !QFileInfo(folder).isDir())
        return;
    m_folder = folder;
    tell(&IFileDialogEvents::OnFolderChange);
}

/// Selects the item that the user has picked, or the first one, which the accept button itself stands for.
template <typename DialogInterface>
void ScriptedDialogObject<DialogInterface>::selectMenuItem()
{
    const Control* const menu = this->controls().acceptMenu();
    const ControlItem* const first = menu ? firstItem(*menu) : nullptr;
    if (!m_open || !first)
        return;
    const DWORD id = menu->id;
    this->controls().selectItem(id, m_pickedItem.value_or(first->id));
    if (m_pickedItem)
        tellOfControl(&IFileDialogControlEvents::OnItemSelected, id, *m_pickedItem);
}

/// Asks the sinks. Returns false if one of them refuses.
template <typename DialogInterface>
bool ScriptedDialogObject<DialogInterface>::mayAccept()
{
    bool accepted = true;
    m_sinks.forEach([this, &accepted](IFileDialogEvents& sink) {
        if (sink.OnFileOk(this) == S_FALSE)
            accepted = false;
    });
    return accepted;
}

/// Calls `event` of each sink with this dialog, unless it has been closed.
template <typename DialogInterface>
template <typename Event>
void ScriptedDialogObject<DialogInterface>::tell(Event event)
{
    m_sinks.forEach([this, event](IFileDialogEvents& sink) {
        if (m_open)
            (sink.*event)(this);
    });
}

/// Calls `event` of each sink that listens to controls, with this dialog and `arguments`.
template <typename DialogInterface>
template <typename Event, typename... Arguments>
void ScriptedDialogObject<DialogInterface>::tellOfControl(Event event, Arguments... arguments)
{
    m_sinks.forEachWithControls([this, event, arguments...](IFileDialogControlEvents& sink) {
        if (m_open)
            (sink.*event)(this, arguments...);
    });
}

template <typename DialogInterface>
HRESULT ScriptedDialogObject<DialogInterface>::Advise(IFileDialogEvents* events, DWORD* cookie)
{
    if (!events || !cookie)
        return E_POINTER;
    *cookie = m_sinks.add(*events);
    return S_OK;
}

template <typename DialogInterface>
HRESULT ScriptedDialogObject<DialogInterface>::Unadvise(DWORD cookie)
{
    return m_sinks.remove(cookie) ? S_OK : E_INVALIDARG;
}

// What the application sets and reads

template <typename DialogInterface>
HRESULT ScriptedDialogObject<DialogInterface>::SetFileTypes(UINT count, const COMDLG_FILTERSPEC* types)
{
    if (count == 0 || !types)
        return E_INVALIDARG;
    m_types.clear();
    for (UINT i = 0; i < count; ++i)
        m_types += nameFilter(types[i]);
    return S_OK;
}

template <typename DialogInterface>
HRESULT ScriptedDialogObject<DialogInterface>::SetFileTypeIndex(UINT index)
{
    m_type = static_cast<int>(index) - 1; // The shell counts from 1.
    return S_OK;
}

template <typename DialogInterface>
HRESULT ScriptedDialogObject<DialogInterface>::GetFileTypeIndex(UINT* index)
{
    return store(static_cast<UINT>(m_type + 1), index);
}

template <typename DialogInterface>
HRESULT ScriptedDialogObject<DialogInterface>::SetOptions(FILEOPENDIALOGOPTIONS options)
{
    m_options = options;
    return S_OK;
}

template <typename DialogInterface>
HRESULT ScriptedDialogObject<DialogInterface>::GetOptions(FILEOPENDIALOGOPTIONS* options)
{
    return store(m_options, options);
}

template <typename DialogInterface>
HRESULT ScriptedDialogObject<DialogInterface>::SetFolder(IShellItem* folder)
{
    const auto path = fileSystemPath(folder);
    if (!path)
        return E_INVALIDARG;
    m_folder = QDir::cleanPath(QDir::fromNativeSeparators(*path));
    return S_OK;
}

template <typename DialogInterface>
HRESULT ScriptedDialogObject<DialogInterface>::GetFolder(IShellItem** folder)
{
    return storeItem(m_folder, folder);
}

template <typename DialogInterface>
HRESULT ScriptedDialogObject<DialogInterface>::SetFileName(LPCWSTR name)
{
    m_fileName = textOf(name);
    return S_OK;
}

template <typename DialogInterface>
HRESULT ScriptedDialogObject<DialogInterface>::GetFileName(LPWSTR* name)
{
    if (!name)
        return E_POINTER;
    *name = makeCoTaskMemString(m_fileName).release();
    return *name ? S_OK : E_OUTOFMEMORY;
}

template <typename DialogInterface>
HRESULT ScriptedDialogObject<DialogInterface>::SetTitle(LPCWSTR title)
{
    m_title = textOf(title);
    return S_OK;
}

template <typename DialogInterface>
HRESULT ScriptedDialogObject<DialogInterface>::GetResult(IShellItem** item)
{
    return storeItem(m_chosen.size() == 1 ? m_chosen.first() : QString(), item);
}

HRESULT ScriptedOpenDialogObject::GetResults(IShellItemArray** items)
{
    if (!items)
        return E_POINTER;
    *items = chosenFiles().isEmpty() ? nullptr : makeShellItemArray(nativePaths(chosenFiles())).detach();
    return *items ? S_OK : E_FAIL;
}

template class ScriptedDialogObject<IFileOpenDialog>;
template class ScriptedDialogObject<IFileSaveDialog>;

} // namespace zelmar::internal
