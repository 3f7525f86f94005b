#include "ui/qt/dialogs/hideOutdatedCompletions_p.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCompleter>
#include <QEvent>
#include <QFileDialog>
#include <QFileSystemModel>
#include <QLineEdit>

namespace {

class CompletionsHider : public QObject
{
public:
    CompletionsHider(QFileDialog& dialog, const QLineEdit& edit, const QFileSystemModel& model)
        : QObject(&dialog)
        , m_edit(edit)
    {
        connect(&model, &QFileSystemModel::rootPathChanged, this, [this] { hide(); });
        dialog.installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Hide)
            hide();
        return QObject::eventFilter(watched, event);
    }

private:
    /// Hides the open list, if any. Does not call QCompleter::popup(), which would create a list.
    void hide() const
    {
        QWidget* const popup = QApplication::activePopupWidget();
        if (popup && popup->focusProxy() == &m_edit)
            popup->hide();
    }

    const QLineEdit& m_edit;
};

} // namespace

void hideOutdatedCompletions(QFileDialog& dialog)
{
    const auto* edit = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    const auto* model = dialog.findChild<QFileSystemModel*>(QStringLiteral("qt_filesystem_model"));
    if (edit && model)
        new CompletionsHider(dialog, *edit, *model);
}
