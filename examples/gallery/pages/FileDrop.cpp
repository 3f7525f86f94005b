#include "FileDrop.h"

#include <QDropEvent>
#include <QFileInfo>
#include <QMimeData>
#include <QUrl>
#include <QWidget>

namespace gallery {

namespace {

/// Returns the path of the only file, or an empty text.
QString onlyFile(const QMimeData& data)
{
    const QList<QUrl> urls = data.urls();
    const QString path = urls.size() == 1 ? urls.first().toLocalFile() : QString();
    return QFileInfo(path).isDir() ? QString() : path;
}

} // namespace

FileDrop::FileDrop(QObject* parent)
    : QObject(parent)
{
}

FileDrop::~FileDrop() = default;

void FileDrop::setActive(QWidget& window, bool isActive)
{
    window.setAcceptDrops(isActive);
    window.removeEventFilter(this);
    if (isActive)
        window.installEventFilter(this);
}

bool FileDrop::eventFilter(QObject* /*window*/, QEvent* event)
{
    const bool isDrop = event->type() == QEvent::Drop;
    if (!isDrop && event->type() != QEvent::DragEnter && event->type() != QEvent::DragMove)
        return false;
    auto& drag = static_cast<QDropEvent&>(*event);
    const QString path = onlyFile(*drag.mimeData());
    // Accepts no move, after which the other program would remove its file.
    const bool isAccepted = !path.isEmpty() && drag.possibleActions() & Qt::CopyAction;
    if (isAccepted)
        drag.setDropAction(Qt::CopyAction);
    drag.setAccepted(isAccepted);
    if (isAccepted && isDrop)
        QMetaObject::invokeMethod(
            this, [this, path] { Q_EMIT dropped(path); }, Qt::QueuedConnection);
    return true;
}

} // namespace gallery
