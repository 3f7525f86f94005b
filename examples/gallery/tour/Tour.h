#pragma once

#include <QString>

#include <functional>

class DialogDriver;
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
        QString name;        ///< typed into the file-name box
        int filter = -1;     ///< picked before that in the file-type box, from 0; -1 for none
        bool picture = true; ///< whether one is taken, with the suffix "dialog"
    };

    Tour(TourLog& log, QString pictureFolder);

    /// Begins with the page of this title.
    void enterPage(const QString& title);

    /// Calls `open`, which has to run one modal file dialog; enters `input` and presses Return.
    void acceptFileDialog(const FileDialogInput& input, const std::function<void()>& open);
    /// Calls `open`, which has to run one modal file dialog; presses Help, takes a picture of the help,
    /// closes it, and presses Escape.
    void readHelpAndCancelFileDialog(const std::function<void()>& open);

    /// Takes a picture of the program's windows. Its file is named after the page, with "-" and `suffix`
    /// behind.
    void takePicture(const QString& suffix = {});

    void log(const QString& line);
    void expect(bool holds, const QString& what);
    /// Lets the program run until `condition` holds; false, and a failure, when that takes too long.
    bool waitUntil(const QString& what, const std::function<bool()>& condition);

private:
    void addPictureStep(DialogDriver& driver, const QString& suffix);
    void drive(const DialogDriver& driver, const std::function<void()>& open);
    void savePicture(const QImage& image, const QString& suffix);
    void fail(const QString& what);

    TourLog& m_log;
    QString m_pictureFolder;
    QString m_pageTitle;
};

} // namespace gallery
