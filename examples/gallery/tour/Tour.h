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

/// What the pages need to play their users: modal dialogs driven by keyboard, pictures, and a log in which
/// everything has the page's title before it. A step that is not possible in time, or a result that is not
/// the expected one, is a failure of the tour, which goes on all the same.
class Tour
{
public:
    /// What a user enters in a file dialog.
    struct FileDialogInput
    {
        QString name;    ///< typed into the file-name box
        int filter = -1; ///< picked before that in the file-type box, from 0; -1 for none
        /// The suffix of the dialog's picture; empty for none.
        QString picture = QStringLiteral("dialog");
        /// To the questions that follow, in order.
        QVector<QMessageBox::StandardButton> answers = {};
        /// The suffix of the first question's picture; empty for none.
        QString questionPicture = {};
    };

    Tour(TourLog& log, QString pictureFolder);

    /// Begins with the page of this title.
    void enterPage(const QString& title);

    /// Calls `open`, which has to run one modal file dialog; enters `input`, presses Return and answers.
    void acceptFileDialog(const FileDialogInput& input, const std::function<void()>& open);
    /// Calls `open`, which has to run one modal file dialog; presses Help, takes a picture of the help,
    /// closes it, and presses Escape.
    void readHelpAndCancelFileDialog(const std::function<void()>& open);

    /// Calls `open`, which has to run one modal file dialog; takes the steps in it, and between the first ones and the
    /// last ones, which close it, a picture.
    using FileDialogStep = std::function<void(QFileDialog&)>;
    void useFileDialog(const QVector<FileDialogStep>& firstSteps, const QString& picture,
                       const QVector<FileDialogStep>& lastSteps, const std::function<void()>& open);

    /// Calls `ask`, which has to ask one question, and answers it.
    void answerQuestion(QMessageBox::StandardButton answer, const std::function<void()>& ask);

    /// Takes a picture of the program's windows. Its file is named after the page, with "-" and `suffix`
    /// behind.
    void takePicture(const QString& suffix = {});

    void log(const QString& line);
    void expect(bool holds, const QString& what);
    /// Lets the program run until `condition` holds; false, and a failure, when that takes too long.
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
