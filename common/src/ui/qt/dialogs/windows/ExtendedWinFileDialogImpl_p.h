#pragma once

#include "property/Property.h"
#include "ui/qt/dialogs/windows/ExtendedWinFileDialog.h"
#include "ui/qt/dialogs/windows/com/ComPtr_p.h"

#include <QPointer>

#include <map>
#include <memory>
#include <vector>

/// The private state of ExtendedWinFileDialog. If the thread cannot enter the apartment or the system cannot create a
/// dialog object, `m_dialog` is null, and every function skips the steps that need it.
class ExtendedWinFileDialog::Impl
{
public:
    class ExtendedWinFileDialogEventHandler;
    class FakeWidget;
    class Run;

    Impl(QWidget* parent, const std::string& caption, const std::string& directory, const std::string& filter,
         const std::string& helpTopic, QFileDialog::AcceptMode mode, bool useAcceptButtonMenu);
    /// Leaves the apartment first, and releases the dialog object last of all members.
    ///
    /// Compatibility: apartment-left-first
    ~Impl();
    Q_DISABLE_COPY(Impl)

    QDialog::DialogCode exec();
    QStringList selectedFiles() const;
    QString selectedNameFilter() const;
    QWidget* addCustomButton(const std::string& label, boost::function<void()> onClick);
    QWidget* addCustomCheckBox(const std::string& label, boost::shared_ptr<zelmar::PropertyAbstract<bool>> checked);
    QWidget* addAcceptButtonOption(const std::string& label, int value);
    void clearAcceptMenuOptions();
    void close();
    /// Makes a running exec() return QDialog::Rejected. Does nothing when none is running.
    void cancelRun();

    // The order matters, because members are destroyed from the last to the first.
    zelmar::internal::ComPtr<IFileDialog> m_dialog;
    const QPointer<QWidget> m_parent; // null without a parent, and once it has been destroyed
    const std::string m_caption;
    const boost::shared_ptr<zelmar::Property<std::string>> m_directory;
    QStringList m_nameFilters;
    const std::string m_helpTopic;
    const QFileDialog::AcceptMode m_acceptMode;
    QFileDialog::FileMode m_fileMode = QFileDialog::AnyFile;
    const boost::shared_ptr<zelmar::Property<int>> m_currentFilterIndex; // from 1
    const boost::shared_ptr<zelmar::Property<std::string>> m_selectedFileName;
    bool m_dontConfirmOverwrite = false;
    DWORD m_nextControlId = 0; // shared by buttons, check boxes, menu items and the menu itself
    const bool m_useAcceptButtonMenu;
    DWORD m_acceptMenuControlId = 0;
    std::map<DWORD, boost::function<void()>> m_buttonCallbacks;
    std::map<DWORD, boost::shared_ptr<zelmar::PropertyAbstract<bool>>> m_checkBoxProperties;
    std::map<DWORD, int> m_acceptMenuOptionValues;
    using Handles = std::vector<std::unique_ptr<FakeWidget>>;
    Handles m_customControlWidgets;
    Handles m_acceptMenuWidgets;
    int m_selectedAcceptMenuOption = 255; // Compatibility: option-255
    bool m_prepared = false;
    Run* m_run = nullptr; // null unless exec() is running

private:
    enum class Prominence { Ordinary, Prominent };

    zelmar::internal::ComPtr<IFileDialogCustomize> customize() const;
    QWidget* addButton(const std::string& label, boost::function<void()> onClick, Prominence prominence);
    template <typename... Arguments>
    QWidget* keep(Handles& handles, Arguments... arguments);

    void prepare();
    void setOptions();
    void setFolder();
    void setFileTypes();
    void readSelectedAcceptMenuOption();
};
