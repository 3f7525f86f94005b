#include "PortalPage.h"

#include "ui/qt/dialogs/PortalUse.h"
#include "ui/qt/dialogs/windows/ExtendedWinFileDialog.h"
#include "ui/qt/dialogs/windows/SaveFileWinDialog.h"

#include <QComboBox>
#include <QDir>
#include <QFormLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

using zelmar::ui::PortalUse;

namespace gallery {

PortalPage::PortalPage()
    : GalleryPage(tr("Desktop portal"),
                  tr("On Linux a desktop portal shows the native dialog of the desktop, with the application's check "
                     "boxes and choices in it. Where there is no portal, the library draws the dialog."))
    , m_headers(boost::make_shared<zelmar::Property<bool>>(true))
    , m_use(new QComboBox)
    , m_result(new QPlainTextEdit)
{
    m_use->addItem(tr("In a sandbox, and in a desktop's session"), int(PortalUse::Automatic));
    m_use->addItem(tr("Never"), int(PortalUse::Never));
    m_use->addItem(tr("Always"), int(PortalUse::Always));
    m_use->setCurrentIndex(m_use->findData(int(zelmar::ui::portalUse())));
    connect(m_use, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            [this] { zelmar::ui::setPortalUse(PortalUse(m_use->currentData().toInt())); });
    addWidgets();
}

PortalPage::~PortalPage() = default;

void PortalPage::addWidgets()
{
    auto* openButton = new QPushButton(tr("&Open tables…"));
    auto* saveButton = new QPushButton(tr("&Save a table…"));
    connect(openButton, &QPushButton::clicked, this, &PortalPage::open);
    connect(saveButton, &QPushButton::clicked, this, &PortalPage::save);
    m_result->setReadOnly(true);
    m_result->setTabChangesFocus(true);
    m_result->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    m_result->setPlaceholderText(tr("What was chosen is shown here."));

    auto* use = new QFormLayout;
    use->addRow(tr("&The portal is asked"), m_use);
    auto* resultLabel = new QLabel(tr("&Result"));
    resultLabel->setBuddy(m_result);
    contents().addLayout(use);
    contents().addWidget(openButton, 0, Qt::AlignLeft);
    contents().addWidget(saveButton, 0, Qt::AlignLeft);
    contents().addWidget(resultLabel);
    contents().addWidget(m_result, 1);
}

void PortalPage::open()
{
    ExtendedWinFileDialog dialog(*window(), tr("Open tables").toStdString(), QDir::currentPath().toStdString(),
                                 "Tables (*.csv *.tsv);;All files (*)", "", QFileDialog::AcceptOpen, true);
    dialog.setFileMode(QFileDialog::ExistingFiles);
    dialog.addCustomCheckBox(tr("First line has the &names of the columns").toStdString(), m_headers);
    dialog.addAcceptButtonOption(tr("Open").toStdString(), 1);
    dialog.addAcceptButtonOption(tr("Open as a copy").toStdString(), 2);
    if (dialog.exec() != QDialog::Accepted) {
        m_result->setPlainText(tr("The dialog was cancelled."));
        return;
    }
    QStringList lines = dialog.selectedFiles();
    lines += tr("Names of the columns: %1").arg(m_headers->value() ? tr("yes") : tr("no"));
    lines += dialog.selectedAcceptMenuOption() == 2 ? tr("As a copy") : tr("Not as a copy");
    m_result->setPlainText(lines.join(QLatin1Char('\n')));
}

void PortalPage::save()
{
    SaveFileWinDialog flow(window(), tr("Save a table").toStdString(), QDir::currentPath().toStdString(), "table",
                           "Tables (*.csv)", "");
    const bool chosen = flow.launch();
    m_result->setPlainText(chosen ? QString::fromStdString(flow.selectedFilename()) : tr("The dialog was cancelled."));
}

} // namespace gallery
