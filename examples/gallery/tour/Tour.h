#pragma once

#include <QMessageBox>
#include <QString>
#include <QVector>

#include <functional>

class DialogDriver;
class QFileDialog;
class QImage;

namespace gallery {

class TourLog;

/// A set of actions with which the pages act as their users: it drives modal dialogs by keyboard, takes pictures, and
/// writes a log whose lines begin with the title of the page. A step that times out, or an unexpected result, is a
/// failure of the tour, which continues nevertheless.
class Tour
{
public:
    /// The input of a user in a file dialog.
    struct FileDialogInput
    {
        QString name;    ///< typed into the file name edit
        int filter = -1; ///< 0-based index of the name filter to select first; -1 for none
        /// The suffix of the dialog's picture; empty for no picture.
        QString picture = QStringLiteral("dialog");
        /// The answers to the questions that follow, in order.
        QVector<QMessageBox::StandardButton> answers = {};
        /// The suffix of the first question's picture; empty for no picture.
        QString questionPicture = {};
    };

    Tour(TourLog& log, QString pictureFolder);

    /// Starts the tour of the page with this title.
    void enterPage(const QString& title);

    /// Calls `open`, which must run one modal file dialog. Enters `input`, presses Return and answers the questions.
    void acceptFileDialog(const FileDialogInput& input, const std::function<void()>& open);
    /// Calls `open`, which must run one modal file dialog. Presses Help, takes a picture of the help, closes it and
    /// presses Escape.
    void readHelpAndCancelFileDialog(const std::function<void()>& open);

    /// Calls `open`, which must run one modal file dialog. Performs the first steps in it, takes a picture and performs
    /// the last steps, which close it.
    using FileDialogStep = std::function<void(QFileDialog&)>;
    void useFileDialog(const QVector<FileDialogStep>& firstSteps, const QString& picture,
                       const QVector<FileDialogStep>& lastSteps, const std::function<void()>& open);

    /// Calls `ask`, which must ask one question, and answers it.
    void answerQuestion(QMessageBox::StandardButton answer, const std::function<void()>& ask);

    /// Takes a picture of the program's windows. Its file name consists of the name of the page, "-" and `suffix`.
    void takePicture(const QString& suffix = {});

    void log(const QString& line);
    void expect(bool holds, const QString& what);
    /// Runs the event loop until `condition` holds. Records a failure and returns false if that takes too long.
    bool waitUntil(const QString& what, const std::function<bool()>& condition);

private:
    void addAnswer(DialogDriver& driver, QMessageBox::StandardButton answer);
    void addPictureStep(DialogDriver& driver, const QString& suffix);
    void drive(const DialogDriver& driver, const std::function<void()>& open);
    void savePicture(const QImage& image, const QString& suffix);
    void fail(const QString& what);

    TourLog& m_log;
    QString m_pictureFolder;
    QString m_pageTitle;
};

} // namespace gallery
