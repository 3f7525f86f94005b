#include "BuiltInDialog.h"

namespace {

int sinksAlive = 0;
int dialogsLeaked = 0;

QString take(LPWSTR text)
{
    const TaskText owner(text);
    return text ? QString::fromWCharArray(text) : QString();
}

QString takePath(IShellItem* item)
{
    const ComPointer<IShellItem> owner = adopt(item);
    LPWSTR path = nullptr;
    if (!item || FAILED(item->GetDisplayName(SIGDN_FILESYSPATH, &path)))
        return {};
    return take(path);
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

ULONG RecordingSink::Release()
{
    const ULONG left = --m_references;
    if (left == 0)
        delete this;
    return left;
}

HRESULT RecordingSink::tell(const QString& event)
{
    events += event;
    return whenTold ? whenTold(event) : S_OK;
}

HRESULT RecordingSink::OnFileOk(IFileDialog* /*dialog*/)
{
    return tell(QStringLiteral("ok"));
}

HRESULT RecordingSink::OnFolderChanging(IFileDialog* /*dialog*/, IShellItem* /*folder*/)
{
    return tell(QStringLiteral("folder changing"));
}

HRESULT RecordingSink::OnFolderChange(IFileDialog* /*dialog*/)
{
    return tell(QStringLiteral("folder"));
}

HRESULT RecordingSink::OnSelectionChange(IFileDialog* /*dialog*/)
{
    return tell(QStringLiteral("selection"));
}

HRESULT RecordingSink::OnShareViolation(IFileDialog* /*dialog*/, IShellItem* /*item*/,
                                        FDE_SHAREVIOLATION_RESPONSE* /*response*/)
{
    return tell(QStringLiteral("share violation"));
}

HRESULT RecordingSink::OnTypeChange(IFileDialog* /*dialog*/)
{
    return tell(QStringLiteral("type"));
}

HRESULT RecordingSink::OnOverwrite(IFileDialog* /*dialog*/, IShellItem* /*item*/, FDE_OVERWRITE_RESPONSE* /*response*/)
{
    return tell(QStringLiteral("overwrite"));
}

HRESULT RecordingSink::OnItemSelected(IFileDialogCustomize* /*dialog*/, DWORD control, DWORD item)
{
    return tell(QStringLiteral("item %1 %2").arg(control).arg(item));
}

HRESULT RecordingSink::OnButtonClicked(IFileDialogCustomize* /*dialog*/, DWORD control)
{
    return tell(QStringLiteral("button %1").arg(control));
}

HRESULT RecordingSink::OnCheckButtonToggled(IFileDialogCustomize* /*dialog*/, DWORD control, BOOL checked)
{
    return tell(QStringLiteral("check %1 %2").arg(control).arg(checked == TRUE ? "on" : "off"));
}

HRESULT RecordingSink::OnControlActivating(IFileDialogCustomize* /*dialog*/, DWORD control)
{
    return tell(QStringLiteral("activating %1").arg(control));
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
    return take(text);
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
    const ComPointer<IShellItemArray> owner = adopt(array);
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
