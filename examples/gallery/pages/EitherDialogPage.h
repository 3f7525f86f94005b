#pragma once

#include "GalleryPage.h"

#include <QStringList>

#include <functional>
#include <vector>

class QPlainTextEdit;
class QPushButton;

namespace gallery {

/// The same tasks twice, side by side: with the system's file dialog and with the one that Qt draws, through the
/// interface that an application uses without knowing which it is.
class EitherDialogPage : public GalleryPage
{
    Q_OBJECT

public:
    EitherDialogPage();
    ~EitherDialogPage() override;

    void tour(Tour& tour) override;

private:
    struct Task
    {
        QString text;
        std::function<QStringList(QWidget* window)> run; ///< what came of it, for people
    };
    /// One kind of dialog, with a button for each task.
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

    void tourTask(Tour& tour, const Family& family, std::size_t task, const QString& name, const QString& expected);

    const std::vector<Task> m_tasks;
    Family m_system;
    Family m_drawn;
    QPlainTextEdit* m_result;
};

} // namespace gallery
