#include "BuiltInDialog.h"

#include "ui/qt/dialogs/windows/com/CoTaskMemString_p.h"
#include "ui/qt/dialogs/windows/com/fileSystemPath_p.h"

using namespace zelmar::internal;

namespace {

int sinksAlive = 0;
int dialogsLeaked = 0;

QString takePath(IShellItem* item)
{
    return fileSystemPath(adopt(item).get()).value_or(QString());
}

} // namespace

HWND windowOf(const QWidget& widget)
{
    return reinterpret_cast<HWND>(widget.winId()); // NOLINT(performance-no-int-to-ptr): a handle
}

// RecordingSink

RecordingSink::RecordingSink()
{
    ++sinksAlive;
}

RecordingSink::~RecordingSink()
{
    --sinksAlive;
}

int RecordingSink::alive()
{
    return sinksAlive;
}

HRESULT RecordingSink::QueryInterface(REFIID iid, void** object)
{
    *object = nullptr;
    if (iid == IID_IFileDialogEvents || iid == IID_IUnknown)
        *object = static_cast<IFileDialogEvents*>(this);
    else if (iid == IID_IFileDialogControlEvents && hasControlEvents)
        *object = static_cast<IFileDialogControlEvents*>(this);
    else
        return E_NOINTERFACE;
    AddRef();
    return S_OK;
}

HRESULT RecordingSink::tell(const QString& event)
{
    events += event;
    return whenTold ? whenTold(event) : S_OK;
}

// BuiltInDialog

BuiltInDialog::BuiltInDialog(REFCLSID classId)
    : m_sink(new RecordingSink, false)
{
    void* made = nullptr;
    if (FAILED(CoCreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER, IID_IFileDialog, &made)))
        qFatal("no dialog object");
    m_dialog = static_cast<IFileDialog*>(made);
    m_controls = queryFor<IFileDialogCustomize>(IID_IFileDialogCustomize, m_dialog);
    if (FAILED(m_dialog->Advise(m_sink.get(), &m_cookie)))
        qFatal("no sink accepted");
}

BuiltInDialog::~BuiltInDialog()
{
    m_controls.reset();
    if (m_dialog && m_dialog->Release() != 0)
        ++dialogsLeaked;
}

int BuiltInDialog::leaked()
{
    return dialogsLeaked;
}

IFileDialog* BuiltInDialog::detach()
{
    m_controls.reset();
    return std::exchange(m_dialog, nullptr);
}

HRESULT BuiltInDialog::show(const QWidget* owner) const
{
    return m_dialog->Show(owner ? windowOf(*owner) : nullptr);
}

bool BuiltInDialog::setTypes(const std::vector<std::pair<QString, QString>>& types) const
{
    std::vector<std::pair<std::wstring, std::wstring>> texts;
    texts.reserve(types.size());
    for (const auto& [name, patterns] : types)
        texts.emplace_back(name.toStdWString(), patterns.toStdWString());
    std::vector<COMDLG_FILTERSPEC> specs;
    specs.reserve(texts.size());
    for (const auto& [name, patterns] : texts)
        specs.push_back({name.c_str(), patterns.c_str()});
    return m_dialog->SetFileTypes(UINT(specs.size()), specs.data()) == S_OK;
}

bool BuiltInDialog::setFolder(const QString& path) const
{
    void* item = nullptr;
    if (FAILED(SHCreateItemFromParsingName(path.toStdWString().c_str(), nullptr, IID_IShellItem, &item)))
        return false;
    return m_dialog->SetFolder(adopt(static_cast<IShellItem*>(item)).get()) == S_OK;
}

bool BuiltInDialog::setName(const QString& name) const
{
    return m_dialog->SetFileName(name.toStdWString().c_str()) == S_OK;
}

bool BuiltInDialog::setOptions(FILEOPENDIALOGOPTIONS on, FILEOPENDIALOGOPTIONS off) const
{
    FILEOPENDIALOGOPTIONS options = 0;
    return m_dialog->GetOptions(&options) == S_OK && m_dialog->SetOptions((options & ~off) | on) == S_OK;
}

int BuiltInDialog::typeIndex() const
{
    UINT index = 0;
    return m_dialog->GetFileTypeIndex(&index) == S_OK ? int(index) : -1;
}

QString BuiltInDialog::folder() const
{
    IShellItem* item = nullptr;
    m_dialog->GetFolder(&item);
    return takePath(item);
}

QString BuiltInDialog::name() const
{
    LPWSTR text = nullptr;
    m_dialog->GetFileName(&text);
    return textOf(CoTaskMemString(text).get());
}

QString BuiltInDialog::result() const
{
    IShellItem* item = nullptr;
    m_dialog->GetResult(&item);
    return takePath(item);
}

QStringList BuiltInDialog::results() const
{
    const auto openDialog = queryFor<IFileOpenDialog>(IID_IFileOpenDialog, m_dialog);
    IShellItemArray* array = nullptr;
    if (!openDialog || FAILED(openDialog->GetResults(&array)))
        return {};
    const ComPtr<IShellItemArray> owner = adopt(array);
    DWORD count = 0;
    array->GetCount(&count);
    QStringList paths;
    for (DWORD i = 0; i < count; ++i) {
        IShellItem* item = nullptr;
        array->GetItemAt(i, &item);
        paths += takePath(item);
    }
    return paths;
}

qint64 BuiltInDialog::selectedItem(DWORD menu) const
{
    DWORD item = 0;
    const HRESULT result = m_controls->GetSelectedControlItem(menu, &item);
    return SUCCEEDED(result) ? qint64(item) : qint64(result);
}

bool BuiltInDialog::isChecked(DWORD box) const
{
    BOOL checked = FALSE;
    return m_controls->GetCheckButtonState(box, &checked) == S_OK && checked == TRUE;
}
