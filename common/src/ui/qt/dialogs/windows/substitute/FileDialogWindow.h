#pragma once

#include "ui/qt/dialogs/windows/substitute/ControlModel.h"
#include "ui/qt/dialogs/windows/substitute/FileDialogRequest.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QKeySequence>
#include <QSet>
#include <QString>

#include <optional>

class AcceptMenu;
class ControlBar;
class FileDialogListener;
class QComboBox;
class QDialogButtonBox;
class QFileSystemModel;
class QItemSelectionModel;
class QLineEdit;
class QPushButton;

/// The dialog on the screen, for one run. As long as no controls were added the desktop may draw it.
///
/// Without Q_OBJECT on purpose: QFileDialog lets the desktop draw only what is by its meta object a plain QFileDialog.
class FileDialogWindow : public QFileDialog
{
public:
    /// Borrows everything but `owner`, which becomes the parent and may be null.
    FileDialogWindow(QWidget* owner, FileDialogRequest& request, ControlModel& controls, FileDialogListener& listener);

    /// Puts into the request what was shown last: the next dialog goes on from there.
    ~FileDialogWindow() override;

    /// Shows the dialog and waits for its user; true when the user has accepted. An owner that is destroyed meanwhile
    /// closes the dialog. Once only.
    bool run();

    /// Closes the dialog without asking anybody.
    void closeAtOnce();

    QString folder() const;
    void setFolder(const QString& folder);
    QString fileName() const;
    void setFileName(const QString& text);
    int fileType() const;
    void setFileType(int place);
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
    QSet<QKeySequence> takenMnemonics() const;

    void showTypes();
    void useFileType();
    bool filterByTypedPattern();
    bool acceptNameWithQuote();
    bool mayReplace(const QFileInfo& file);

    void reportFolder();
    void reportType();
    bool mayAccept();
    void acceptWith(DWORD item);
    void selectAcceptItem();
    void showAgain();
    void showSilently();

    FileDialogRequest& m_request;
    ControlModel& m_controls;
    FileDialogListener& m_listener;

    /// Parts of a dialog that Qt draws; null in any other.
    QLineEdit* m_fileNameEdit = nullptr;
    QComboBox* m_fileTypeCombo = nullptr;
    QFileSystemModel* m_model = nullptr;
    QItemSelectionModel* m_selection = nullptr;
    QDialogButtonBox* m_buttonBox = nullptr;
    QPushButton* m_acceptButton = nullptr;
    ControlBar* m_controlBar = nullptr;
    AcceptMenu* m_acceptMenu = nullptr;
    int m_buttonRows = 0;
    QString m_plainAcceptText;

    QString m_reportedFolder;
    int m_reportedType = 0;
    std::optional<DWORD> m_pickedItem;
    QString m_nameWithQuote;
    bool m_open = false;
    bool m_accepted = false;
};
