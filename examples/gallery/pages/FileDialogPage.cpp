#include "FileDialogPage.h"

#include "tour/Tour.h"

#include "ui/qt/dialogs/QExtendedFileDialog.h"

#include <QDir>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace gallery {

namespace {

/// Returns the names as a user types them: a single name unquoted, several names in double quotes.
QString typedNames(const QStringList& names)
{
    if (names.size() == 1)
        return names.first();
    return QLatin1Char('"') + names.join(QStringLiteral("\" \"")) + QLatin1Char('"');
}

QStringList pathsInCurrentFolder(const QStringList& names)
{
    QStringList paths;
    for (const QString& name : names)
        paths += QDir::current().absoluteFilePath(name);
    return paths;
}

/// Returns the index of the filter that is selected after the tour. A dialog with filters starts with the first one.
int filterAfterTour(const FileDialogExample& example)
{
    if (example.nameFilters.isEmpty())
        return -1;
    return qMax(0, example.tourFilter);
}

} // namespace

FileDialogPage::FileDialogPage(const FileDialogExample& example)
    : GalleryPage(example.title, example.description)
    , m_example(example)
    , m_button(new QPushButton(example.buttonText))
    , m_result(new QPlainTextEdit)
{
    addWidgets();
    connect(m_button, &QPushButton::clicked, this, &FileDialogPage::runDialog);
}

FileDialogPage::~FileDialogPage() = default;

void FileDialogPage::addWidgets()
{
    m_result->setReadOnly(true);
    m_result->setTabChangesFocus(true);
    m_result->setLineWrapMode(QPlainTextEdit::NoWrap);
    m_result->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    m_result->setPlaceholderText(tr("What the dialog returns is shown here."));
    m_result->setAccessibleName(tr("Result of the dialog"));

    auto* label = new QLabel(tr("&Result"));
    label->setBuddy(m_result);

    contents().addWidget(m_button, 0, Qt::AlignLeft);
    contents().addWidget(label);
    contents().addWidget(m_result, 1);
}

void FileDialogPage::runDialog()
{
    m_outcome = outcomeOfDialog();
    m_result->setPlainText(m_outcome->lines().join(QLatin1Char('\n')));
}

FileDialogOutcome FileDialogPage::outcomeOfDialog()
{
    QExtendedFileDialog dialog(*window(), m_example.title.toStdString(), std::string(),
                               m_example.nameFilters.join(QStringLiteral(";;")).toStdString(), m_example.helpTopic,
                               m_example.acceptMode);
    dialog.setFileMode(m_example.fileMode);
    dialog.setShowDirectoriesOnly(m_example.fileMode == QFileDialog::Directory);
    dialog.setGeometryPersistenceKey(m_example.geometryKey);
    dialog.setDefaultSize(window()->size() * 4 / 5);
    const int result = dialog.exec();
    return {dialog, result};
}

// Tour

void FileDialogPage::tour(Tour& tour)
{
    tour.readHelpAndCancelFileDialog([this] { m_button->click(); });
    logOutcome(tour);
    tour.expect(m_outcome && !m_outcome->accepted, QStringLiteral("Escape cancels the dialog"));

    tour.acceptFileDialog({typedNames(m_example.tourNames), m_example.tourFilter}, [this] { m_button->click(); });
    logOutcome(tour);
    tour.expect(m_outcome && m_outcome->accepted, QStringLiteral("Return accepts the dialog"));
    tour.expect(m_outcome && m_outcome->files == pathsInCurrentFolder(m_example.tourNames),
                QStringLiteral("the typed files are chosen"));
    tour.expect(m_outcome && m_outcome->filterIndex == filterAfterTour(m_example),
                QStringLiteral("the picked filter is chosen"));
    tour.takePicture();
}

void FileDialogPage::logOutcome(Tour& tour) const
{
    const QStringList lines = m_outcome ? m_outcome->lines() : QStringList();
    for (const QString& line : lines)
        tour.log(line);
}

} // namespace gallery
