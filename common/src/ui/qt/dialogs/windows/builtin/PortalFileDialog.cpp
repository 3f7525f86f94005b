#include "ui/qt/dialogs/windows/builtin/PortalFileDialog_p.h"

#include "ui/qt/dialogs/files/grantedFile_p.h"
#include "ui/qt/dialogs/rules/quotedNames_p.h"
#include "ui/qt/dialogs/windows/builtin/ControlModel_p.h"
#include "ui/qt/dialogs/windows/builtin/FileDialogListener_p.h"
#include "ui/qt/dialogs/windows/builtin/FileDialogRequest_p.h"
#include "ui/qt/dialogs/windows/builtin/portalQuestion_p.h"
#include "ui/qt/dialogs/windows/portal/PortalAnswer_p.h"
#include "ui/qt/dialogs/windows/portal/PortalRequest_p.h"

#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QEvent>
#include <QFileInfo>

namespace zelmar::internal {

namespace {

/// A modal dialog that is never seen. The application's windows take no input while it exists. Then `window` is
/// activated, because Qt has ignored that the portal's window, which closes first, has passed the focus to it.
class InputBlocker : public QDialog
{
public:
    explicit InputBlocker(QWidget* window)
        : m_window(window)
    {
        setAttribute(Qt::WA_DontShowOnScreen);
        setWindowModality(Qt::ApplicationModal);
        show();
    }

    ~InputBlocker() override
    {
        hide();
        if (m_window && m_window->isVisible() && !QApplication::activeWindow())
            m_window->activateWindow();
    }

private:
    const QPointer<QWidget> m_window;
};

QString namesOf(const QStringList& files)
{
    QStringList names;
    for (const QString& file : files)
        names += QFileInfo(file).fileName();
    return fileNameText(names);
}

/// Returns the path of a file, or its name if the folder is not known.
QString pathIn(const QString& folder, const QString& name)
{
    return folder.isEmpty() ? name : QDir(folder).filePath(name);
}

} // namespace

PortalFileDialog::PortalFileDialog(QWidget* owner, FileDialogRequest& request, ControlModel& controls,
                                   FileDialogListener& listener, const PathCompletion& completion)
    : m_owner(owner)
    , m_request(request)
    , m_controls(controls)
    , m_listener(listener)
    , m_completion(completion)
{
    if (!owner)
        return;
    owner->window()->installEventFilter(this);
    connect(owner, &QObject::destroyed, this, [this] { closeAtOnce(); });
}

PortalFileDialog::Outcome PortalFileDialog::run()
{
    const InputBlocker blocker(m_owner ? m_owner->window() : QApplication::activeWindow());
    while (m_open) {
        const std::optional<PortalQuestion> question = nextQuestion();
        if (!question)
            return Outcome::NotShown;
        PortalRequest request;
        m_portalRequest = &request;
        const PortalRequest::Outcome outcome = request.ask(*question);
        m_portalRequest = nullptr;
        if (!m_open || outcome == PortalRequest::Outcome::Cancelled)
            return Outcome::Rejected;
        if (outcome == PortalRequest::Outcome::NotShown)
            return Outcome::NotShown;
        const std::optional<PortalAnswer> answer = portalAnswer(request.results(), *question);
        if (!answer) {
            qWarning("The desktop portal has answered with a location that is not a local file.");
            return Outcome::Rejected;
        }
        if (take(*answer))
            return Outcome::Accepted;
    }
    return Outcome::Rejected;
}

void PortalFileDialog::closeAtOnce()
{
    m_open = false;
    if (m_portalRequest)
        m_portalRequest->close();
}

bool PortalFileDialog::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Hide && !event->spontaneous())
        closeAtOnce();
    return QObject::eventFilter(watched, event);
}

/// Returns the question about the present state of the request, with the full name of a file to save, or nothing if no
/// portal can show it.
std::optional<PortalQuestion> PortalFileDialog::nextQuestion() const
{
    std::optional<PortalQuestion> question = portalQuestion(m_request, m_controls);
    if (!question)
        return question;
    question->parentWindow = parentWindow();
    if (!question->name.isEmpty())
        question->name = QFileInfo(completed(pathIn(question->folder, question->name))).fileName();
    return question;
}

/// Returns the portal's identifier of the owner's window. Qt has no public function for that of a Wayland window.
QString PortalFileDialog::parentWindow() const
{
    if (!m_owner || QGuiApplication::platformName() != QLatin1String("xcb"))
        return {};
    return QStringLiteral("x11:%1").arg(m_owner->window()->winId(), 0, 16);
}

/// Stores an answer and notifies the listener of it. Returns false if the portal has to ask again, or if the dialog was
/// closed meanwhile.
bool PortalFileDialog::take(const PortalAnswer& answer)
{
    const QString& file = answer.files.first();
    m_request.fileName = namesOf(answer.files);
    takeFolder(file);
    takeType(answer.filter);
    takeControls(answer);
    if (m_request.kind == DialogKind::Save) {
        // The listener may have given the file the extension of another file type.
        const QString path = completed(QFileInfo(file).dir().filePath(m_request.fileName));
        m_request.fileName = QFileInfo(path).fileName();
        if (path != file)
            return false;
    }
    return m_open && m_listener.mayAccept(answer.files) && m_open;
}

/// Stores the folder of a chosen file. A folder of the document portal contains nothing but a granted file, and is not
/// the one that the user has seen.
void PortalFileDialog::takeFolder(const QString& file)
{
    const QString folder = m_request.options & FOS_PICKFOLDERS ? file : QFileInfo(file).path();
    if (!m_open || folder == m_request.folder || isGrantedFile(file))
        return;
    m_request.folder = folder;
    m_listener.folderChanged();
}

void PortalFileDialog::takeType(int type)
{
    if (!m_open || type < 0 || type == m_request.types.validIndex(m_request.type))
        return;
    m_request.type = type;
    m_listener.typeChanged();
}

void PortalFileDialog::takeControls(const PortalAnswer& answer)
{
    const std::vector<Control> controls = m_controls.controls(); // a copy: the listener may change the controls
    for (const Control& control : controls) {
        const QString value = answer.choices.value(QString::number(control.id));
        if (!m_open)
            return;
        if (control.kind == Control::Kind::AcceptMenu) {
            const ControlItem* first = firstItem(control);
            const DWORD item = value.isEmpty() && first ? first->id : value.toUInt();
            m_controls.selectItem(control.id, item);
            if (first && item != first->id)
                m_listener.itemSelected(control.id, item);
        } else if (!value.isEmpty() && control.checked != (value == QLatin1String("true"))) {
            m_controls.setChecked(control.id, !control.checked);
            m_listener.checkButtonToggled(control.id, !control.checked);
        }
    }
}

/// Returns the path under which a file of the selected type is saved.
QString PortalFileDialog::completed(const QString& path) const
{
    const bool completes = m_request.kind == DialogKind::Save && m_completion;
    return completes ? m_completion(path, m_request.type) : path;
}

} // namespace zelmar::internal
