#include "Tour.h"

#include "HelpDialog.h"
#include "SettledPicture.h"
#include "TourLog.h"

#include "DialogDriver.h"
#include "FileDialogActions.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileInfo>
#include <QFileSystemModel>
#include <QTest>

#include <memory>
#include <utility>

namespace gallery {

namespace {

const int deadline = 15000;

/// Returns whether the dialog lists its folder. No folder of a tour is empty.
bool folderIsListed(QFileDialog& dialog)
{
    const auto* model = dialog.findChild<QFileSystemModel*>(QStringLiteral("qt_filesystem_model"));
    return model->rowCount(model->index(model->rootPath())) > 0;
}

void pressHelp(QFileDialog& dialog)
{
    const auto* box = dialog.findChild<QDialogButtonBox*>(QStringLiteral("buttonBox"));
    const auto buttons = box->buttons();
    for (QAbstractButton* button : buttons)
        if (box->buttonRole(button) == QDialogButtonBox::HelpRole)
            button->click();
}

/// Closes the completion popup of the file name edit, which hides a part of the dialog.
void closeSuggestions()
{
    if (QWidget* popup = QApplication::activePopupWidget())
        popup->close();
}

} // namespace

Tour::Tour(TourLog& log, QString pictureFolder)
    : m_log(log)
    , m_pictureFolder(std::move(pictureFolder))
{
}

void Tour::enterPage(const QString& title)
{
    m_pageTitle = title;
}

void Tour::acceptFileDialog(const FileDialogInput& input, const std::function<void()>& open)
{
    DialogDriver driver(deadline);
    if (input.filter >= 0)
        driver.onDialogWhen<QFileDialog>(QStringLiteral("pick a filter"), folderIsListed,
                                         [&](QFileDialog& dialog) { pickFilter(dialog, input.filter); });
    driver.onDialogWhen<QFileDialog>(QStringLiteral("type a name"), folderIsListed,
                                     [&](QFileDialog& dialog) { typeName(dialog, input.name); });
    if (!input.picture.isEmpty())
        addPictureStep(driver, input.picture);
    driver.onDialog<QFileDialog>(QStringLiteral("press Return"), pressReturn);
    if (!input.questionPicture.isEmpty())
        addPictureStep(driver, input.questionPicture);
    for (const QMessageBox::StandardButton answer : input.answers)
        addAnswer(driver, answer);
    drive(driver, open);
}

void Tour::useFileDialog(const QVector<FileDialogStep>& firstSteps, const QString& picture,
                         const QVector<FileDialogStep>& lastSteps, const std::function<void()>& open)
{
    DialogDriver driver(deadline);
    for (const FileDialogStep& step : firstSteps)
        driver.onDialogWhen<QFileDialog>(QStringLiteral("use the dialog"), folderIsListed, step);
    if (!picture.isEmpty())
        addPictureStep(driver, picture);
    for (const FileDialogStep& step : lastSteps)
        driver.onDialog<QFileDialog>(QStringLiteral("use the dialog, and close it"), step);
    drive(driver, open);
}

void Tour::answerQuestion(QMessageBox::StandardButton answer, const std::function<void()>& ask)
{
    DialogDriver driver(deadline);
    addAnswer(driver, answer);
    drive(driver, ask);
}

void Tour::addAnswer(DialogDriver& driver, QMessageBox::StandardButton answer)
{
    driver.onDialog<QMessageBox>(QStringLiteral("answer a question"), [this, answer](QMessageBox& box) {
        log(QStringLiteral("asked: ") + box.text());
        box.button(answer)->click();
    });
}

void Tour::readHelpAndCancelFileDialog(const std::function<void()>& open)
{
    DialogDriver driver(deadline);
    driver.onDialogWhen<QFileDialog>(QStringLiteral("press Help"), folderIsListed, pressHelp);
    driver.onDialog<HelpDialog>(QStringLiteral("find the help page"), [this](HelpDialog& dialog) {
        expect(dialog.hasPage(), QStringLiteral("the Help button leads to a help page"));
    });
    addPictureStep(driver, QStringLiteral("help"));
    driver.onDialog<HelpDialog>(QStringLiteral("close the help"),
                                [](HelpDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
    driver.onDialog<QFileDialog>(QStringLiteral("cancel"), cancel);
    drive(driver, open);
}

void Tour::drive(const DialogDriver& driver, const std::function<void()>& open)
{
    open();
    if (!driver.finished())
        fail(driver.problem());
}

/// Waits for the picture in the condition of the step. If the step itself waited, the next steps would run before it
/// ends.
void Tour::addPictureStep(DialogDriver& driver, const QString& suffix)
{
    const auto picture = std::make_shared<SettledPicture>();
    driver.onDialogWhen<QDialog>(
        QStringLiteral("take the picture \"%1\"").arg(suffix),
        [picture](QDialog&) {
            closeSuggestions();
            return picture->isSettled();
        },
        [this, picture, suffix](QDialog&) { savePicture(picture->image(), suffix); });
}

void Tour::takePicture(const QString& suffix)
{
    SettledPicture picture;
    if (waitUntil(QStringLiteral("nothing moves on the screen"), [&] { return picture.isSettled(); }))
        savePicture(picture.image(), suffix);
}

void Tour::savePicture(const QImage& image, const QString& suffix)
{
    QString name = m_pageTitle.toLower().replace(QLatin1Char(' '), QLatin1Char('-'));
    if (!suffix.isEmpty())
        name += QLatin1Char('-') + suffix;
    const QString path = QDir(m_pictureFolder).filePath(name + QStringLiteral(".png"));
    if (image.isNull())
        fail(QStringLiteral("the screen cannot be looked at for %1").arg(path));
    else if (!image.save(path) || QFileInfo(path).size() == 0)
        fail(QStringLiteral("cannot write %1").arg(path));
    else
        log(QStringLiteral("picture %1.png, %2 x %3").arg(name).arg(image.width()).arg(image.height()));
}

void Tour::log(const QString& line)
{
    m_log.write(m_pageTitle + QStringLiteral(": ") + line);
}

void Tour::expect(bool holds, const QString& what)
{
    if (!holds)
        fail(QStringLiteral("expected: ") + what);
}

bool Tour::waitUntil(const QString& what, const std::function<bool()>& condition)
{
    const bool holds = QTest::qWaitFor(condition, deadline);
    if (!holds)
        fail(QStringLiteral("not in time: ") + what);
    return holds;
}

void Tour::fail(const QString& what)
{
    m_log.fail(m_pageTitle + QStringLiteral(": ") + what);
}

} // namespace gallery
