#pragma once

#include "BuiltInDialog.h"

#include "DialogFolders.h"
#include "ui/qt/dialogs/windows/com/Apartment_p.h"

#include <QFileDialog>
#include <QObject>
#include <QStringList>
#include <QWidget>

#include <functional>
#include <memory>

const HRESULT cancelledResult = HRESULT_FROM_WIN32(ERROR_CANCELLED);

/// Returns the class of the dialogs for opening or for saving a file.
inline REFCLSID classOf(QFileDialog::AcceptMode mode)
{
    return mode == QFileDialog::AcceptOpen ? CLSID_FileOpenDialog : CLSID_FileSaveDialog;
}

/// The base class of the tests of the built-in dialog. Provides some files and a parent window, in the single-threaded
/// apartment, and checks that each test releases all objects.
class BuiltInDialogTest : public QObject
{
    Q_OBJECT

public:
    BuiltInDialogTest();

protected:
    QString path(const QString& name = {}) const { return m_folders->path(name); }

    /// Creates a dialog that starts in the folder of the files.
    std::unique_ptr<BuiltInDialog> makeDialog(REFCLSID classId = CLSID_FileOpenDialog) const;
    /// Creates such a dialog with the types "Data", "Tables" and "All".
    std::unique_ptr<BuiltInDialog> makeDialogWithTypes(REFCLSID classId = CLSID_FileOpenDialog) const;

    static inline const QStringList opened{"folder"};
    static inline const QStringList openedAndAccepted{"folder", "ok"};

    std::unique_ptr<DialogFolders> m_folders; ///< a.dat, b.dat, c.csv, and d.dat in the folder "deeper"
    std::unique_ptr<QWidget> m_window;

protected Q_SLOTS:
    void init();
    void cleanup();

private:
    const zelmar::internal::Apartment m_apartment;
};

/// The tests that hold whoever draws the dialog. The derived class acts as the user.
class BuiltInDialogRunTest : public BuiltInDialogTest
{
    Q_OBJECT

protected:
    /// Performs `action` in the event loop of the next dialog that is shown, or of the same one when it stays open.
    virtual void onShow(const char* name, const std::function<void()>& action) = 0;
    /// Leaves it to the program to close the next dialog that is shown.
    virtual void onShowDoNothing() {}
    virtual void userAccepts(const QString& file) = 0;
    virtual void userPicksType(int index) = 0;
    virtual void userCancels() = 0;
    /// Returns what went wrong since the last call, or an empty text.
    virtual QString takeProblem() = 0;

protected Q_SLOTS:
    void cleanup();

private Q_SLOTS:
    void refused();
    void closedByASink_data();
    void closedByASink();
    void ownerDestroyed_data();
    void ownerDestroyed();
    void throwingSink_data();
    void throwingSink();
    void secondRunShowsNoOldResult();

private:
    void causeEvent(const QString& event);
    void acceptsInTheNextRun(BuiltInDialog& dialog);
};
