#include "EitherDialogPage.h"

#include "FileDialogOutcome.h"

#include "ui/qt/dialogs/ExtendedFileDialog.h"
#include "ui/qt/dialogs/LaunchFileDialog.h"
#include "ui/qt/dialogs/SaveFileDialog.h"

#include <QDir>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>

namespace gallery {

namespace {

const std::vector<std::string> filters{"Data files (*.dat)", "Text files (*.txt)"};

QString tr(const char* text)
{
    return EitherDialogPage::tr(text);
}

/// A guard that selects the kind of the dialogs that are created during its lifetime.
class KindSwitch
{
public:
    explicit KindSwitch(bool native)
        : m_before(ExtendedFileDialog::useNativeFileDialog())
    {
        ExtendedFileDialog::setUseNativeFileDialog(native);
    }
    ~KindSwitch() { ExtendedFileDialog::setUseNativeFileDialog(m_before); }
    Q_DISABLE_COPY(KindSwitch)

private:
    const bool m_before;
};

QStringList open(bool several)
{
    std::vector<std::string> files;
    int filter = -1;
    if (!zelmar::ui::LaunchFileDialog(files, filter, tr("Open").toStdString(), filters, {}, false, several, 0))
        return {tr("The dialog was cancelled.")};
    QStringList lines;
    for (const std::string& file : files)
        lines += tr("Chosen: %1").arg(QDir::toNativeSeparators(QString::fromStdString(file)));
    return lines << tr("Index of the filter, from 0: %1").arg(filter);
}

QStringList save(QWidget* window)
{
    SaveFileDialog dialog(window, tr("Save").toStdString(), "", tr("either").toStdString(), filters, 0, "");
    if (!dialog.launch())
        return {tr("Nothing was chosen.")};
    return {tr("May be written: %1").arg(QDir::toNativeSeparators(QString::fromStdString(dialog.selectedFilename()))),
            tr("Index of the writer, from 0: %1").arg(dialog.selectedWriter())};
}

QStringList chooseDirectory(QWidget* window)
{
    ExtendedFileDialog dialog(*window, tr("Choose a directory").toStdString(), "", "", "", QFileDialog::AcceptOpen);
    dialog.setFileMode(QFileDialog::Directory);
    dialog.setShowDirectoriesOnly(true);
    const int result = dialog.exec();
    return FileDialogOutcome(dialog, result).lines();
}

} // namespace

EitherDialogPage::EitherDialogPage()
    : GalleryPage(
        tr("Either dialog"),
        tr("One interface, two kinds of dialog: the same calls with the system's file dialog and with the one that "
           "Qt draws. Which one an application gets is a switch for the whole process; the table editor follows "
           "the one in the Gallery menu."))
    , m_tasks(makeTasks())
    , m_system{tr("The system's dialog"), true, {}}
    , m_drawn{tr("The dialog drawn by Qt"), false, {}}
    , m_result(new QPlainTextEdit)
{
    addWidgets();
}

EitherDialogPage::~EitherDialogPage() = default;

std::vector<EitherDialogPage::Task> EitherDialogPage::makeTasks()
{
    return {{tr("Open one file…"), [](QWidget*) { return open(false); }},
            {tr("Open several files…"), [](QWidget*) { return open(true); }},
            {tr("Save…"), save},
            {tr("Choose a directory…"), chooseDirectory}};
}

void EitherDialogPage::addWidgets()
{
    auto* families = new QHBoxLayout;
    families->addWidget(makeBox(m_system, tr("The &system's dialog")));
    families->addWidget(makeBox(m_drawn, tr("The dialog drawn by &Qt")));

    m_result->setReadOnly(true);
    m_result->setTabChangesFocus(true);
    m_result->setLineWrapMode(QPlainTextEdit::NoWrap);
    m_result->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    m_result->setPlaceholderText(tr("What came of it is shown here."));
    auto* label = new QLabel(tr("&Result"));
    label->setBuddy(m_result);

    contents().addLayout(families);
    contents().addWidget(label);
    contents().addWidget(m_result, 1);
}

QWidget* EitherDialogPage::makeBox(Family& family, const QString& title)
{
    auto* box = new QGroupBox(title);
    auto* layout = new QVBoxLayout(box);
    for (const Task& task : m_tasks) {
        auto* button = new QPushButton(task.text);
        button->setAccessibleName(family.name + QStringLiteral(": ") + task.text);
        connect(button, &QPushButton::clicked, this, [this, &family, &task] { run(family, task); });
        layout->addWidget(button);
        family.buttons.push_back(button);
    }
    return box;
}

void EitherDialogPage::run(const Family& family, const Task& task)
{
    const KindSwitch kind(family.native);
    const QStringList lines = QStringList(family.name + QStringLiteral(", ") + task.text) + task.run(window());
    m_result->setPlainText(lines.join(QLatin1Char('\n')));
}

} // namespace gallery
