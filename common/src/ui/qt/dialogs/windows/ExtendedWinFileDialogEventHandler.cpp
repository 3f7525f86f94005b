#include "ui/qt/dialogs/windows/ExtendedWinFileDialogEventHandler_p.h"

#include "platform/utf8ToWideString.h"
#include "ui/qt/dialogs/rules/nativeFilters_p.h"
#include "ui/qt/dialogs/windows/fileSystemPath_p.h"

#include <new>

HRESULT ExtendedWinFileDialog::Impl::ExtendedWinFileDialogEventHandler::create(Impl& owner,
                                                                               ComPointer<IFileDialogEvents>& events)
{
    const auto handler =
        adopt(static_cast<IFileDialogEvents*>(new (std::nothrow) ExtendedWinFileDialogEventHandler(owner)));
    if (!handler)
        return E_OUTOFMEMORY;
    events = queryFor<IFileDialogEvents>(IID_IFileDialogEvents, handler.get());
    return S_OK;
}

void ExtendedWinFileDialog::Impl::ExtendedWinFileDialogEventHandler::forgetOwner(IFileDialogEvents* events)
{
    if (events)
        static_cast<ExtendedWinFileDialogEventHandler*>(events)->m_owner = nullptr;
}

ExtendedWinFileDialog::Impl::ExtendedWinFileDialogEventHandler::ExtendedWinFileDialogEventHandler(Impl& owner)
    : m_owner(&owner)
{
}

ExtendedWinFileDialog::Impl::ExtendedWinFileDialogEventHandler::~ExtendedWinFileDialogEventHandler() = default;

HRESULT ExtendedWinFileDialog::Impl::ExtendedWinFileDialogEventHandler::QueryInterface(REFIID iid, void** object)
{
    const auto offset = reinterpret_cast<char*>(static_cast<IFileDialogControlEvents*>(this))
                        - reinterpret_cast<char*>(static_cast<IFileDialogEvents*>(this));
    // dwOffset is an int in older SDKs and a DWORD in newer ones.
    const QITAB table[] = {{&IID_IFileDialogEvents, 0},
                           {&IID_IFileDialogControlEvents, static_cast<decltype(QITAB::dwOffset)>(offset)},
                           {nullptr, 0}};
    return QISearch(static_cast<IFileDialogEvents*>(this), table, iid, object);
}

ULONG ExtendedWinFileDialog::Impl::ExtendedWinFileDialogEventHandler::AddRef()
{
    return static_cast<ULONG>(++m_refCount);
}

ULONG ExtendedWinFileDialog::Impl::ExtendedWinFileDialogEventHandler::Release()
{
    const LONG left = --m_refCount;
    if (left == 0)
        delete this;
    return static_cast<ULONG>(left);
}

HRESULT ExtendedWinFileDialog::Impl::ExtendedWinFileDialogEventHandler::OnFileOk(IFileDialog* /*dialog*/)
{
    return E_NOTIMPL;
}

HRESULT ExtendedWinFileDialog::Impl::ExtendedWinFileDialogEventHandler::OnFolderChanging(IFileDialog* /*dialog*/,
                                                                                         IShellItem* /*folder*/)
{
    return E_NOTIMPL;
}

HRESULT ExtendedWinFileDialog::Impl::ExtendedWinFileDialogEventHandler::OnFolderChange(IFileDialog* dialog)
{
    if (!m_owner)
        return S_OK;
    const auto directory = m_owner->m_directory; // outlives an owner that an observer deletes
    IShellItem* folder = nullptr;
    dialog->GetFolder(&folder);
    const ComPointer<IShellItem> reference = adopt(folder);
    if (const auto path = fileSystemPath(folder))
        directory->setValue(path->toStdString());
    return S_OK;
}

HRESULT ExtendedWinFileDialog::Impl::ExtendedWinFileDialogEventHandler::OnSelectionChange(IFileDialog* /*dialog*/)
{
    return E_NOTIMPL;
}

HRESULT ExtendedWinFileDialog::Impl::ExtendedWinFileDialogEventHandler::OnShareViolation(
    IFileDialog* /*dialog*/, IShellItem* /*item*/, FDE_SHAREVIOLATION_RESPONSE* /*response*/)
{
    return E_NOTIMPL;
}

HRESULT ExtendedWinFileDialog::Impl::ExtendedWinFileDialogEventHandler::OnTypeChange(IFileDialog* dialog)
{
    if (!m_owner)
        return S_OK;
    const auto currentFilterIndex = m_owner->m_currentFilterIndex; // as above
    UINT index = 0;
    if (SUCCEEDED(dialog->GetFileTypeIndex(&index)))
        currentFilterIndex->setValue(static_cast<int>(index));
    if (m_owner && m_owner->m_acceptMode == QFileDialog::AcceptSave)
        replaceExtension(*dialog);
    return S_OK;
}

/// Gives the typed name the extension of the selected file type. Leaves the name alone if the list of filters does not
/// contain the type.
void ExtendedWinFileDialog::Impl::ExtendedWinFileDialogEventHandler::replaceExtension(IFileDialog& dialog) const
{
    LPWSTR name = nullptr;
    const HRESULT read = dialog.GetFileName(&name);
    const TaskText owner(name);
    const int type = m_owner->m_currentFilterIndex->value() - 1;
    if (FAILED(read) || !name || !*name || type < 0 || type >= m_owner->m_nameFilters.size())
        return;
    const std::string renamed =
        withExtensionOfFilter(QString::fromWCharArray(name).toStdString(), m_owner->m_nameFilters.at(type));
    dialog.SetFileName(zelmar::utf8ToWideString(renamed).c_str());
}

/// Leaves the decision to the dialog's own question about overwriting.
HRESULT ExtendedWinFileDialog::Impl::ExtendedWinFileDialogEventHandler::OnOverwrite(
    IFileDialog* /*dialog*/, IShellItem* /*item*/, FDE_OVERWRITE_RESPONSE* /*response*/)
{
    return E_NOTIMPL;
}

HRESULT ExtendedWinFileDialog::Impl::ExtendedWinFileDialogEventHandler::OnItemSelected(IFileDialogCustomize* /*dialog*/,
                                                                                       DWORD /*control*/,
                                                                                       DWORD /*item*/)
{
    return E_NOTIMPL;
}

HRESULT
ExtendedWinFileDialog::Impl::ExtendedWinFileDialogEventHandler::OnButtonClicked(IFileDialogCustomize* /*dialog*/,
                                                                                DWORD control)
{
    if (!m_owner)
        return S_OK;
    const auto found = m_owner->m_buttonCallbacks.find(control);
    if (found != m_owner->m_buttonCallbacks.end()) {
        const boost::function<void()> action = found->second; // a copy: the action may change or delete the map
        action();                                             // Compatibility: empty-action-throws
    }
    return S_OK;
}

HRESULT
ExtendedWinFileDialog::Impl::ExtendedWinFileDialogEventHandler::OnCheckButtonToggled(IFileDialogCustomize* /*dialog*/,
                                                                                     DWORD control, BOOL checked)
{
    if (!m_owner)
        return S_OK;
    const auto found = m_owner->m_checkBoxProperties.find(control);
    if (found != m_owner->m_checkBoxProperties.end()) {
        const boost::shared_ptr<zelmar::PropertyAbstract<bool>> property = found->second;
        property->setValue(checked == TRUE);
    }
    return S_OK;
}

HRESULT
ExtendedWinFileDialog::Impl::ExtendedWinFileDialogEventHandler::OnControlActivating(IFileDialogCustomize* /*dialog*/,
                                                                                    DWORD /*control*/)
{
    return E_NOTIMPL;
}
