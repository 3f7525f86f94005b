#include "ui/qt/dialogs/windows/ExtendedWinFileDialogEventHandler_p.h"

#include "platform/utf8ToWideString.h"
#include "ui/qt/dialogs/rules/nativeFilters_p.h"
#include "ui/qt/dialogs/windows/com/CoTaskMemString_p.h"
#include "ui/qt/dialogs/windows/com/fileSystemPath_p.h"

#include <new>

using namespace zelmar::internal;

HRESULT ExtendedWinFileDialog::Impl::ExtendedWinFileDialogEventHandler::create(Impl& owner,
                                                                               ComPtr<IFileDialogEvents>& events)
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

HRESULT ExtendedWinFileDialog::Impl::ExtendedWinFileDialogEventHandler::QueryInterface(REFIID iid, void** object)
{
    const QITAB table[] = {{&IID_IFileDialogEvents, offsetOf<IFileDialogEvents>(this)},
                           {&IID_IFileDialogControlEvents, offsetOf<IFileDialogControlEvents>(this)},
                           {nullptr, 0}};
    return QISearch(this, table, iid, object);
}

HRESULT ExtendedWinFileDialog::Impl::ExtendedWinFileDialogEventHandler::OnFolderChange(IFileDialog* dialog)
{
    if (!m_owner)
        return S_OK;
    const auto directory = m_owner->m_directory; // outlives an owner that is deleted while the shell answers
    IShellItem* folder = nullptr;
    dialog->GetFolder(&folder);
    const ComPtr<IShellItem> reference = adopt(folder);
    if (const auto path = fileSystemPath(folder))
        directory->setValue(path->toStdString());
    return S_OK;
}

HRESULT ExtendedWinFileDialog::Impl::ExtendedWinFileDialogEventHandler::OnTypeChange(IFileDialog* dialog)
{
    if (!m_owner)
        return S_OK;
    const auto currentFilterIndex = m_owner->m_currentFilterIndex; // outlives an owner that an observer deletes
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
    const CoTaskMemString owner(name);
    const int type = m_owner->m_currentFilterIndex->value() - 1;
    if (FAILED(read) || !name || !*name || type < 0 || type >= m_owner->m_nameFilters.size())
        return;
    const std::string renamed =
        withExtensionOfFilter(QString::fromWCharArray(name).toStdString(), m_owner->m_nameFilters.at(type));
    dialog.SetFileName(zelmar::utf8ToWideString(renamed).c_str());
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
