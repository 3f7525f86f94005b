#pragma once

#include "GalleryPage.h"

#include <QStringList>

#include <functional>
#include <vector>

class QPlainTextEdit;
class QPushButton;

namespace gallery {

/// A page with the same tasks for the native and for the Qt-drawn file dialog side by side, through the facade with
/// which an application need not know the kind of the dialog.
class EitherDialogPage : public GalleryPage
{
    Q_OBJECT

public:
    EitherDialogPage();
    ~EitherDialogPage() override;

private:
    struct Task
    {
        QString text;
        std::function<QStringList(QWidget* window)> run; ///< runs the task and returns the result as lines for the user
    };
    /// A kind of dialog with a button for each task.
    struct Family
    {
        QString name;
        bool native;
        std::vector<QPushButton*> buttons;
    };

    static std::vector<Task> makeTasks();
    QWidget* makeBox(Family& family, const QString& title);
    void addWidgets();
    void run(const Family& family, const Task& task);

    const std::vector<Task> m_tasks;
    Family m_system;
    Family m_drawn;
    QPlainTextEdit* m_result;
};

} // namespace gallery
