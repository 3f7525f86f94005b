#include "FileDialogPage.h"

#include "ui/qt/dialogs/QExtendedFileDialog.h"

#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace gallery {

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
    m_result->setPlainText(outcomeOfDialog().lines().join(QLatin1Char('\n')));
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

} // namespace gallery
