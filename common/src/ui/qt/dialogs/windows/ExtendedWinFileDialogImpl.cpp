#include "ui/qt/dialogs/windows/ExtendedWinFileDialogImpl_p.h"

#include "platform/HelpLauncher.h"
#include "platform/utf8ToWideString.h"
#include "ui/qt/dialogs/rules/nameFilterList_p.h"
#include "ui/qt/dialogs/windows/ExtendedWinFileDialogEventHandler_p.h"
#include "ui/qt/dialogs/windows/ExtendedWinFileDialogRun_p.h"
#include "ui/qt/dialogs/windows/FakeWidget_p.h"
#include "ui/qt/dialogs/windows/com/fileSystemPath_p.h"
#include "ui/qt/dialogs/windows/nativeRequest_p.h"

#include <QWidget>

#include <utility>

using namespace zelmar::internal;
using zelmar::utf8ToWideString;

namespace {

void appendPath(QStringList& paths, IShellItem* item)
{
    if (const auto path = fileSystemPath(item))
        paths += *path;
}

void appendPaths(QStringList& paths, IShellItemArray& items)
{
    DWORD count = 0;
    if (FAILED(items.GetCount(&count)))
        return;
    for (DWORD index = 0; index < count; ++index) {
        IShellItem* item = nullptr;
        if (FAILED(items.GetItemAt(index, &item)))
            return;
        appendPath(paths, adopt(item).get());
    }
}

} // namespace

ExtendedWinFileDialog::Impl::Impl(QWidget* parent, const std::string& caption, const std::string& directory,
                                  const std::string& filter, const std::string& helpTopic, QFileDialog::AcceptMode mode,
                                  bool useAcceptButtonMenu)
    : m_parent(parent)
    , m_caption(caption)
    , m_directory(boost::make_shared<zelmar::Property<std::string>>())
    , m_helpTopic(helpTopic)
    , m_acceptMode(mode)
    , m_currentFilterIndex(boost::make_shared<zelmar::Property<int>>(1))
    , m_selectedFileName(boost::make_shared<zelmar::Property<std::string>>())
    , m_useAcceptButtonMenu(useAcceptButtonMenu)
{
    if (FAILED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED | COINIT_DISABLE_OLE1DDE)))
        return;
    void* dialog = nullptr;
    CoCreateInstance(mode == QFileDialog::AcceptSave ? CLSID_FileSaveDialog : CLSID_FileOpenDialog, nullptr,
                     CLSCTX_INPROC_SERVER, IID_IFileDialog, &dialog);
    m_dialog = adopt(static_cast<IFileDialog*>(dialog));

    m_directory->setValue(startFolder(directory));
    m_nameFilters = splitNameFilters(QString::fromStdString(filter));
    if (m_useAcceptButtonMenu) {
        m_acceptMenuControlId = m_nextControlId++;
        if (const auto customization = customize())
            customization->EnableOpenDropDown(m_acceptMenuControlId);
    }
    if (!m_helpTopic.empty())
        addButton(
            "&Help", [topic = m_helpTopic] { zelmar::HelpLauncher::getInstance().showHelp(topic); },
            Prominence::Prominent);
}

ExtendedWinFileDialog::Impl::~Impl()
{
    // Compatibility: apartment-left-first
    CoUninitialize();
    if (m_run)
        m_run->loseOwner();
}

QDialog::DialogCode ExtendedWinFileDialog::Impl::exec()
{
    if (!m_dialog || m_run)
        return QDialog::Rejected;
    Run run(*this);
    // Compatibility: prepared-once
    if (!m_prepared)
        prepare();
    m_prepared = true;
    const HRESULT result = run.show();
    if (run.isCancelled()) // this object may have been deleted
        return QDialog::Rejected;
    if (m_useAcceptButtonMenu)
        readSelectedAcceptMenuOption();
    return result == S_OK ? QDialog::Accepted : QDialog::Rejected;
}

void ExtendedWinFileDialog::Impl::cancelRun()
{
    if (m_run)
        m_run->cancel();
}

void ExtendedWinFileDialog::Impl::prepare()
{
    m_dialog->SetTitle(utf8ToWideString(m_caption).c_str());
    setOptions();
    setFolder();
    setFileTypes();
    m_dialog->SetFileTypeIndex(static_cast<UINT>(m_currentFilterIndex->value()));
    m_dialog->SetFileName(utf8ToWideString(m_selectedFileName->value()).c_str());
}

void ExtendedWinFileDialog::Impl::setOptions()
{
    FILEOPENDIALOGOPTIONS options = 0;
    if (SUCCEEDED(m_dialog->GetOptions(&options)))
        m_dialog->SetOptions(nativeOptions(options, m_fileMode, !m_dontConfirmOverwrite));
}

void ExtendedWinFileDialog::Impl::setFolder()
{
    const std::string folder = m_directory->value();
    void* item = nullptr;
    if (folder.empty()
        || FAILED(SHCreateItemFromParsingName(nativeFolder(folder).c_str(), nullptr, IID_IShellItem, &item)))
        return;
    m_dialog->SetFolder(adopt(static_cast<IShellItem*>(item)).get());
}

void ExtendedWinFileDialog::Impl::setFileTypes()
{
    if (m_nameFilters.isEmpty())
        return;
    const NativeFileTypes types(m_nameFilters);
    const std::vector<COMDLG_FILTERSPEC> specs = types.specs();
    m_dialog->SetFileTypes(static_cast<UINT>(specs.size()), specs.data());
}

void ExtendedWinFileDialog::Impl::readSelectedAcceptMenuOption()
{
    DWORD item = 0;
    const auto customization = customize();
    if (customization && SUCCEEDED(customization->GetSelectedControlItem(m_acceptMenuControlId, &item)))
        m_selectedAcceptMenuOption = optionValue(m_acceptMenuOptionValues, item, m_selectedAcceptMenuOption);
}

QStringList ExtendedWinFileDialog::Impl::selectedFiles() const
{
    QStringList paths;
    FILEOPENDIALOGOPTIONS options = 0;
    if (!m_dialog || FAILED(m_dialog->GetOptions(&options)))
        return paths;
    if (!(options & FOS_ALLOWMULTISELECT)) {
        IShellItem* item = nullptr;
        if (SUCCEEDED(m_dialog->GetResult(&item)))
            appendPath(paths, adopt(item).get());
        return paths;
    }
    const auto openDialog = queryFor<IFileOpenDialog>(IID_IFileOpenDialog, m_dialog.get());
    IShellItemArray* items = nullptr;
    if (openDialog && SUCCEEDED(openDialog->GetResults(&items)) && items)
        appendPaths(paths, *adopt(items));
    return paths;
}

QString ExtendedWinFileDialog::Impl::selectedNameFilter() const
{
    return m_nameFilters.value(m_currentFilterIndex->value() - 1);
}

ComPtr<IFileDialogCustomize> ExtendedWinFileDialog::Impl::customize() const
{
    return queryFor<IFileDialogCustomize>(IID_IFileDialogCustomize, m_dialog.get());
}

/// Creates the handle of a control, and returns it.
template <typename... Arguments>
QWidget* ExtendedWinFileDialog::Impl::keep(Handles& handles, Arguments... arguments)
{
    handles.push_back(std::make_unique<FakeWidget>(m_dialog.get(), arguments...));
    return handles.back().get();
}

QWidget* ExtendedWinFileDialog::Impl::addCustomButton(const std::string& label, boost::function<void()> onClick)
{
    return addButton(label, std::move(onClick), Prominence::Ordinary);
}

QWidget* ExtendedWinFileDialog::Impl::addButton(const std::string& label, boost::function<void()> onClick,
                                                Prominence prominence)
{
    const auto customization = customize();
    const DWORD id = m_nextControlId++;
    const bool added = customization && SUCCEEDED(customization->AddPushButton(id, utf8ToWideString(label).c_str()));
    if (added && prominence == Prominence::Prominent)
        customization->MakeProminent(id);
    m_buttonCallbacks.emplace(id, std::move(onClick));
    return keep(m_customControlWidgets, FakeWidget::Kind::PushButton, id, 0);
}

QWidget* ExtendedWinFileDialog::Impl::addCustomCheckBox(const std::string& label,
                                                        boost::shared_ptr<zelmar::PropertyAbstract<bool>> checked)
{
    const auto customization = customize();
    const DWORD id = m_nextControlId++;
    if (customization)
        customization->AddCheckButton(id, utf8ToWideString(label).c_str(), checked->value() ? TRUE : FALSE);
    m_checkBoxProperties.emplace(id, std::move(checked));
    return keep(m_customControlWidgets, FakeWidget::Kind::CheckButton, id, 0);
}

QWidget* ExtendedWinFileDialog::Impl::addAcceptButtonOption(const std::string& label, int value)
{
    const auto customization = customize();
    const DWORD id = m_nextControlId++;
    if (customization)
        customization->AddControlItem(m_acceptMenuControlId, id, utf8ToWideString(label).c_str());
    m_acceptMenuOptionValues.emplace(id, value);
    return keep(m_acceptMenuWidgets, FakeWidget::Kind::AcceptMenuItem, m_acceptMenuControlId, id);
}

void ExtendedWinFileDialog::Impl::clearAcceptMenuOptions()
{
    // Compatibility: cleared-menu-keeps-values
    if (const auto customization = customize())
        for (const auto& handle : m_acceptMenuWidgets)
            customization->RemoveControlItem(m_acceptMenuControlId, handle->itemId());
    m_acceptMenuWidgets.clear();
}

void ExtendedWinFileDialog::Impl::close()
{
    if (m_dialog)
        m_dialog->Close(S_OK);
}
