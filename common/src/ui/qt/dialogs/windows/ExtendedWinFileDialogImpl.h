#pragma once

#include "property/Property.h"
#include "ui/qt/dialogs/windows/ExtendedWinFileDialog.h"
#include "ui/qt/dialogs/windows/comPointers.h"

#include <map>
#include <memory>
#include <vector>

/// The state behind ExtendedWinFileDialog, which is documented there. Without a dialog object, because there is no
/// apartment or the system makes none, every step that needs one is left out.
class ExtendedWinFileDialog::Impl
{
public:
    class ExtendedWinFileDialogEventHandler;
    class FakeWidget;

    Impl(QWidget* parent, const std::string& caption, const std::string& directory, const std::string& filter,
         const std::string& helpTopic, QFileDialog::AcceptMode mode, bool useAcceptButtonMenu);
    /// Leaves the apartment first, and lets the dialog object go last of all members.
    virtual ~Impl();
    Q_DISABLE_COPY(Impl)

    QDialog::DialogCode exec();
    QStringList selectedFiles() const;
    QString selectedNameFilter() const;
    QWidget* addCustomButton(const std::string& label, boost::function<void()> onClick);
    QWidget* addCustomCheckBox(const std::string& label, boost::shared_ptr<zelmar::PropertyAbstract<bool>> checked);
    QWidget* addAcceptButtonOption(const std::string& label, int value);
    void clearAcceptMenuOptions();
    void close();

    // The order counts: members go from the last to the first.
    ComPointer<IFileDialog> m_dialog;
    QWidget* const m_parent; // may be null
    const std::string m_caption;
    const boost::shared_ptr<zelmar::Property<std::string>> m_directory;
    QStringList m_nameFilters;
    const std::string m_helpTopic;
    const QFileDialog::AcceptMode m_acceptMode;
    QFileDialog::FileMode m_fileMode = QFileDialog::AnyFile;
    const boost::shared_ptr<zelmar::Property<int>> m_currentFilterIndex; // from 1
    const boost::shared_ptr<zelmar::Property<std::string>> m_selectedFileName;
    bool m_dontConfirmOverwrite = false;
    DWORD m_nextControlId = 0; // of buttons, check boxes, menu items and the menu itself
    const bool m_useAcceptButtonMenu;
    DWORD m_acceptMenuControlId = 0;
    std::map<DWORD, boost::function<void()>> m_buttonCallbacks;
    std::map<DWORD, boost::shared_ptr<zelmar::PropertyAbstract<bool>>> m_checkBoxProperties;
    std::map<DWORD, int> m_acceptMenuOptionValues;
    std::vector<std::unique_ptr<FakeWidget>> m_customControlWidgets;
    std::vector<std::unique_ptr<FakeWidget>> m_acceptMenuWidgets;
    int m_selectedAcceptMenuOption = 255; // no value that an application would choose
    bool m_prepared = false;

private:
    enum class Prominence { Ordinary, Prominent };

    ComPointer<IFileDialogCustomize> customize() const;
    QWidget* addButton(const std::string& label, boost::function<void()> onClick, Prominence prominence);
    QWidget* keep(std::vector<std::unique_ptr<FakeWidget>>& handles, std::unique_ptr<FakeWidget> handle);

    void prepare();
    void setOptions();
    void setFolder();
    void setFileTypes();
    void readSelectedAcceptMenuOption();
};
