#pragma once

#include "ui/qt/dialogs/windows/builtin/ControlModel_p.h"
#include "ui/qt/dialogs/windows/builtin/FileDialogRequest_p.h"

#include <QFileDialog>
#include <QString>

#include <optional>

class QComboBox;
class QDialogButtonBox;
class QFileSystemModel;
class QItemSelectionModel;
class QLineEdit;
class QPushButton;

namespace zelmar::internal {

class AcceptMenu;
class ControlBar;
class FileDialogListener;

/// The window of a FileDialogObject, for one run. The desktop may draw it as long as no controls were added.
///
/// The class must not have Q_OBJECT: QFileDialog lets the desktop draw only objects whose meta-object is its own.
class FileDialogWindow : public QFileDialog
{
public:
    /// Keeps references to all arguments except `owner`, which becomes the parent and may be null.
    FileDialogWindow(QWidget* owner, FileDialogRequest& request, ControlModel& controls, FileDialogListener& listener);

    /// Stores the folder, the type and the name that were shown last in the request, with which the next window starts.
    ~FileDialogWindow() override;

    /// Shows the dialog modally and waits until it closes. Returns whether the user has accepted it. The dialog also
    /// closes when its owner is destroyed or the application quits. May be called only once.
    bool run();

    /// Closes the questions over the dialog and rejects the dialog, without asking the listener.
    void closeAtOnce();

    QString folder() const;
    void setFolder(const QString& folder);
    QString fileName() const;
    void setFileName(const QString& text);
    int fileType() const;
    /// Selects the type with this index (from 0), or the first type if the index is out of range.
    void setFileType(int type);
    void updateLabels();

    void setVisible(bool visible) override;
    void accept() override;
    void done(int result) override;

private:
    bool isDrawnByQt() const { return m_fileNameEdit; }
    void outliveOwner();
    void attachToWidgets();
    void placeControlBar();
    void fitButtonBox();
    void updateControls();
    void updateTabOrder();
    void showAcceptText();
    QString acceptText() const;

    void showTypes();
    void useFileType();
    bool filterByTypedPattern();

    void reportFolder();
    void reportType();
    bool mayAccept();
    void acceptWith(DWORD item);
    void selectAcceptItem();
    void showAgainLater();
    void showAgain();
    void showSilently();

    FileDialogRequest& m_request;
    ControlModel& m_controls;
    FileDialogListener& m_listener;

    /// The child widgets and models of a dialog that Qt draws. They are null if the desktop draws the dialog.
    QLineEdit* m_fileNameEdit = nullptr;
    QComboBox* m_fileTypeCombo = nullptr;
    QFileSystemModel* m_model = nullptr;
    QItemSelectionModel* m_selection = nullptr;
    QDialogButtonBox* m_buttonBox = nullptr;
    QPushButton* m_acceptButton = nullptr;
    ControlBar* m_controlBar = nullptr;
    AcceptMenu* m_acceptMenu = nullptr;
    int m_buttonRows = 0;         ///< the number of rows of the button box in QFileDialog's own layout
    QString m_plainAcceptText;    ///< QFileDialog's own label of the accept button
    QString m_plainFileNameLabel; ///< QFileDialog's own label of the file-name box

    QString m_reportedFolder;
    int m_reportedType = 0;
    std::optional<DWORD> m_pickedItem; ///< the item of the accept menu by which the user is accepting the dialog
    bool m_open = false;
    bool m_accepted = false;
};

} // namespace zelmar::internal
