#pragma once

#include "common_ui_qt_testing_export.h"

#include <QFileDialog>
#include <QString>
#include <QStringList>

#include <deque>
#include <functional>
#include <iosfwd>
#include <memory>
#include <vector>

class QDebug;

namespace zelmar { // NOLINT(modernize-concat-nested-namespaces): C++14 here
namespace testing {

/// A control that an application has added to a file dialog: a button, a check box or an entry of the accept button's
/// menu. The Help button of either kind of dialog is a button, too.
struct ShownControl
{
    enum class Kind { Button, CheckBox, MenuEntry };

    Kind kind = Kind::Button;
    QString label; ///< without the "&" that marks a mnemonic
    bool ticked = false;
    bool enabled = true;
    bool visible = true;
};

/// A record of what a file dialog showed when it opened. Texts are as the user would see them.
struct ShownFileDialog
{
    enum class Kind { Native, DrawnByQt };

    Kind kind = Kind::Native;
    QFileDialog::AcceptMode acceptMode = QFileDialog::AcceptOpen;
    /// One of AnyFile, ExistingFile, ExistingFiles and Directory.
    QFileDialog::FileMode fileMode = QFileDialog::AnyFile;
    QString caption;
    QString folder;                     ///< an absolute path with slashes
    QString defaultName;                ///< the text that was in the file-name box
    QStringList nameFilters;            ///< in QFileDialog's syntax
    QString selectedNameFilter;         ///< empty if there are no filters
    bool asksBeforeOverwriting = false; ///< always false in an open dialog
    std::vector<ShownControl> controls; ///< in the order in which they were added
};

/// A question that a save flow has asked between two of its dialogs.
struct ShownQuestion
{
    /// Overwrite asks whether to replace a file, and ChooseAgain whether to choose another place.
    enum class Kind { Overwrite, ChooseAgain };

    Kind kind = Kind::Overwrite;
    QString caption;
    QString text;
};

COMMON_UI_QT_TESTING_EXPORT bool operator==(const ShownControl& left, const ShownControl& right);
COMMON_UI_QT_TESTING_EXPORT bool operator==(const ShownFileDialog& left, const ShownFileDialog& right);
COMMON_UI_QT_TESTING_EXPORT bool operator==(const ShownQuestion& left, const ShownQuestion& right);
inline bool operator!=(const ShownControl& left, const ShownControl& right)
{
    return !(left == right);
}
inline bool operator!=(const ShownFileDialog& left, const ShownFileDialog& right)
{
    return !(left == right);
}
inline bool operator!=(const ShownQuestion& left, const ShownQuestion& right)
{
    return !(left == right);
}

/// Returns a description, of several lines for a dialog, as it is in the texts of failures.
COMMON_UI_QT_TESTING_EXPORT QString describe(const ShownControl& control);
COMMON_UI_QT_TESTING_EXPORT QString describe(const ShownFileDialog& dialog);
COMMON_UI_QT_TESTING_EXPORT QString describe(const ShownQuestion& question);

/// Print the description. QtTest calls toString() for an operand of QCOMPARE(), and Catch2 and googletest use the
/// standard stream. The caller of toString() frees the text with delete[], as QtTest does.
COMMON_UI_QT_TESTING_EXPORT QDebug operator<<(QDebug debug, const ShownControl& control);
COMMON_UI_QT_TESTING_EXPORT QDebug operator<<(QDebug debug, const ShownFileDialog& dialog);
COMMON_UI_QT_TESTING_EXPORT QDebug operator<<(QDebug debug, const ShownQuestion& question);
COMMON_UI_QT_TESTING_EXPORT std::ostream& operator<<(std::ostream& stream, const ShownControl& control);
COMMON_UI_QT_TESTING_EXPORT std::ostream& operator<<(std::ostream& stream, const ShownFileDialog& dialog);
COMMON_UI_QT_TESTING_EXPORT std::ostream& operator<<(std::ostream& stream, const ShownQuestion& question);
COMMON_UI_QT_TESTING_EXPORT char* toString(const ShownControl& control);
COMMON_UI_QT_TESTING_EXPORT char* toString(const ShownFileDialog& dialog);
COMMON_UI_QT_TESTING_EXPORT char* toString(const ShownQuestion& question);

/// A script that takes the place of the user in a test of an application. As long as an object of this class exists, it
/// answers every file dialog and save flow of the library, whether the system or Qt draws the dialog, and no dialog
/// is shown.
///
///     zelmar::testing::FileDialogScript script;
///     script.accept("/data/run1.csv", "Tables (*.csv)");
///     openTable(); // a function of the application that calls LaunchFileDialog(), for example
///     QCOMPARE(script.dialogs().front().caption, QString("Open table"));
///     QCOMPARE(script.verify(), QString());
///
/// A script is a list of steps in the order in which the user makes them. The functions that add steps return the
/// script, so that steps can be written one after another:
///
///     using Answer = zelmar::testing::FileDialogScript::Answer;
///     zelmar::testing::FileDialogScript script;
///     script.cancel();
///     script.accept("/data/old.csv").overwrite(Answer::No).accept("/data/new.csv");
///     script.press("Columns ...").tick("Preview").pick("Open read-only").accept("/data/run1.csv");
///     script.accept("/cdrom/run1.csv").refuse(Answer::No);
///
/// A dialog takes steps until it closes. A dialog that opens meanwhile, for example in the action of a button, takes
/// the steps that follow. Steps may be added at any time, also when a dialog is open.
///
/// Nothing is read from or written to the files that a script names, which need not exist; see useFileSystem(). Dialogs
/// neither restore nor store their geometry.
///
/// A failure never stops a test, which would hang if a dialog waited: the dialog is cancelled, a question stays without
/// an answer, which ends its flow, and the failure is recorded. Failures are: a dialog or question for which no step is
/// left or the next step is of another kind; a step that the dialog does not offer, such as a name filter, a button or
/// several files; a dialog that the application does not let accept the files; a native dialog that was created before
/// the script; and a script that is not used up.
///
/// Known traps:
/// - A native dialog is the script's if it is created while the script exists. Create the script first.
/// - Only dialogs that run modally, by exec(), launch() or LaunchFileDialog(), are answered. A dialog on which the
///   application calls show() or open() becomes an ordinary window.
/// - Dialogs of Qt itself, such as QMessageBox and QFileDialog::getOpenFileName(), are not answered.
///
/// If there are several scripts, the latest one that still exists takes the user's place, so that a test function may
/// have a script of its own within that of its fixture. GUI thread only; an application object must exist.
class COMMON_UI_QT_TESTING_EXPORT FileDialogScript
{
public:
    /// The answer to a question of a save flow.
    enum class Answer { Yes, No };

    FileDialogScript();
    /// Gives the user's place back. Reports what verify() returns to the failure handler unless it is empty.
    ~FileDialogScript();

    /// Selects `nameFilter`, unless it is empty, and accepts the dialog with `file`: a path, or a name in the folder
    /// that the dialog shows. The user goes to the folder of the file first, if it exists. `nameFilter` is one of the
    /// dialog's filters, or the description before its patterns ("Tables" for "Tables (*.csv)").
    ///
    /// A question that the dialog itself would ask, such as whether to replace the file, counts as answered with Yes,
    /// because the dialog would stay open otherwise.
    FileDialogScript& accept(const QString& file, const QString& nameFilter = QString());
    /// Accepts a dialog for several files with `files`, in this order.
    FileDialogScript& acceptSeveral(const QStringList& files, const QString& nameFilter = QString());
    /// Closes the dialog by its Cancel button.
    FileDialogScript& cancel();

    /// Presses a button that the application has added, or the Help button. `label` is without "&" or with it.
    FileDialogScript& press(const QString& label);
    /// Sets a check box. The user clicks it only if it has another state.
    FileDialogScript& tick(const QString& label, bool on = true);
    /// Picks an entry of the accept button's menu, through which the accept() that must follow accepts the dialog.
    FileDialogScript& pick(const QString& label);

    /// Answers the question whether to replace the file that was just accepted. The file therefore exists, see
    /// useFileSystem(). No leads to another dialog, and Yes may be followed by refuse().
    FileDialogScript& overwrite(Answer answer);
    /// Refuses the place that was just accepted: the file cannot be written. Answers the question whether to choose
    /// another place. Yes leads to another dialog, and No ends the flow.
    FileDialogScript& refuse(Answer chooseAnother);

    /// Sets whether the file system decides which files exist and can be written. Initially off: a file exists only if
    /// overwrite() follows, and can be written unless refuse() follows. When on, save flows examine the real files,
    /// overwrite() and refuse() only answer their questions, and open dialogs accept existing files only.
    FileDialogScript& useFileSystem(bool on = true);

    /// Returns the dialogs that were opened so far, in the order of their opening. Includes those that have failed. A
    /// reference to an element stays valid while the script exists.
    const std::deque<ShownFileDialog>& dialogs() const;
    /// Returns the questions that were asked so far, in the same way.
    const std::deque<ShownQuestion>& questions() const;

    /// Returns the texts of all failures since the last call, and the steps that are left, which it removes. Empty if
    /// all is well.
    QString verify();

    /// Sets the function that receives the text of failures which nobody has asked for before the script is destroyed.
    /// An empty function restores the default, which prints the text and aborts the program, so that the test fails
    /// in every framework. A handler tells the framework instead, as the guide shows, and lets the other tests run.
    ///
    /// While an exception destroys the script, the test fails anyway: the default then only prints the text.
    static void setFailureHandler(std::function<void(const QString&)> handler);

private:
    class COMMON_UI_QT_TESTING_NO_EXPORT Impl;

    Q_DISABLE_COPY(FileDialogScript)

    const std::shared_ptr<Impl> m_impl;
};

} // namespace testing
} // namespace zelmar
