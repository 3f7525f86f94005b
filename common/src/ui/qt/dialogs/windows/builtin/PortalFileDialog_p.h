#pragma once

#include "ui/qt/dialogs/windows/portalSeam_p.h"

#include <QObject>
#include <QPointer>

#include <optional>

class QString;
class QWidget;

namespace zelmar::internal {

class ControlModel;
class FileDialogListener;
struct FileDialogRequest;
struct PortalAnswer;
struct PortalQuestion;
class PortalRequest;

/// The dialog of a FileDialogObject that a desktop portal shows, for one run. The application's windows take no input
/// meanwhile.
///
/// The portal tells nothing before the user has accepted its dialog. The listener is notified of the folder, the file
/// type, the check buttons and the menu item then, and last of all asked whether it accepts the files. If it refuses,
/// or if the file gets another name, the portal asks again.
class PortalFileDialog : public QObject
{
public:
    enum class Outcome {
        Accepted,
        Rejected,
        NotShown ///< No portal can show the dialog, or none has answered.
    };

    /// Keeps references to all arguments except `owner`, which may be null.
    PortalFileDialog(QWidget* owner, FileDialogRequest& request, ControlModel& controls, FileDialogListener& listener,
                     const PathCompletion& completion);

    /// Lets the portal show the dialog and waits until it closes. The dialog also closes when its owner is hidden or
    /// destroyed, or the application quits. Stores the folder, the type and the name of the answer in the request. May
    /// be called only once.
    Outcome run();

    /// Closes the portal's dialog, without asking the listener.
    void closeAtOnce();

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    std::optional<PortalQuestion> nextQuestion() const;
    QString parentWindow() const;
    bool take(const PortalAnswer& answer);
    void takeFolder(const QString& file);
    void takeType(int type);
    void takeControls(const PortalAnswer& answer);
    QString completed(const QString& path) const;

    const QPointer<QWidget> m_owner;
    FileDialogRequest& m_request;
    ControlModel& m_controls;
    FileDialogListener& m_listener;
    const PathCompletion& m_completion;
    PortalRequest* m_portalRequest = nullptr; ///< null unless the portal is asked
    bool m_open = true;
};

} // namespace zelmar::internal
