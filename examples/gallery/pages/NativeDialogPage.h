#pragma once

#include "GalleryPage.h"

#include "property/Property.h"

#include <functional>
#include <vector>

class ExtendedWinFileDialog;
class QCheckBox;
class QPlainTextEdit;
class QPushButton;

namespace gallery {

/// A page that runs the native file dialog with buttons, check boxes and a menu on its accept button, and logs its
/// events. Some controls enable or disable others while the dialog is open.
class NativeDialogPage : public GalleryPage
{
    Q_OBJECT

public:
    NativeDialogPage();
    ~NativeDialogPage() override;

private:
    using BoolProperty = boost::shared_ptr<zelmar::Property<bool>>;

    void addWidgets();
    void runDialog();
    void addControls(ExtendedWinFileDialog& dialog);
    void addMenu(ExtendedWinFileDialog& dialog);
    void logOutcome(ExtendedWinFileDialog& dialog, bool accepted);
    void log(const QString& line);
    /// Calls `step` with each new value as long as the dialog is open.
    void observe(const BoolProperty& property, const QString& name, std::function<void(bool)> step);

    const BoolProperty m_preview;
    const BoolProperty m_expert;
    std::vector<boost::signals2::scoped_connection> m_connections; ///< the connections of the open dialog
    QCheckBox* m_save;
    QCheckBox* m_menu;
    QPushButton* m_button;
    QPlainTextEdit* m_log;
};

} // namespace gallery
