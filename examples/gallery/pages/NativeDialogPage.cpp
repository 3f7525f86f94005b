#include "NativeDialogPage.h"

#include "ui/qt/dialogs/windows/ExtendedWinFileDialog.h"

#include <QCheckBox>
#include <QDir>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include <utility>

namespace gallery {

namespace {

QString onOrOff(bool on)
{
    return on ? NativeDialogPage::tr("on") : NativeDialogPage::tr("off");
}

} // namespace

NativeDialogPage::NativeDialogPage()
    : GalleryPage(
        tr("Native dialog"),
        tr("The system's own dialog, with controls that an application adds. Where the system has no dialog that "
           "takes controls, Qt draws one."))
    , m_preview(boost::make_shared<zelmar::Property<bool>>(true))
    , m_expert(boost::make_shared<zelmar::Property<bool>>(false))
    , m_save(new QCheckBox(tr("For &saving")))
    , m_menu(new QCheckBox(tr("With a &menu on the accept button")))
    , m_button(new QPushButton(tr("Show the &dialog…")))
    , m_log(new QPlainTextEdit)
{
    addWidgets();
    connect(m_button, &QPushButton::clicked, this, &NativeDialogPage::runDialog);
}

NativeDialogPage::~NativeDialogPage() = default;

void NativeDialogPage::addWidgets()
{
    m_menu->setChecked(true);
    m_log->setReadOnly(true);
    m_log->setTabChangesFocus(true);
    m_log->setLineWrapMode(QPlainTextEdit::NoWrap);
    m_log->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    m_log->setPlaceholderText(tr("What happens in the dialog is shown here."));

    auto* label = new QLabel(tr("&Events"));
    label->setBuddy(m_log);

    contents().addWidget(m_save);
    contents().addWidget(m_menu);
    contents().addWidget(m_button, 0, Qt::AlignLeft);
    contents().addWidget(label);
    contents().addWidget(m_log, 1);
}

void NativeDialogPage::runDialog()
{
    m_log->clear();
    ExtendedWinFileDialog dialog(*window(), title().toStdString(), QDir::currentPath().toStdString(),
                                 "Data files (*.dat);;Text files (*.txt);;All files (*)", "dialogs/native-dialog.html",
                                 m_save->isChecked() ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen,
                                 m_menu->isChecked());
    dialog.setFileMode(m_save->isChecked() ? QFileDialog::AnyFile : QFileDialog::ExistingFiles);
    addControls(dialog);
    if (m_menu->isChecked())
        addMenu(dialog);
    m_connections.emplace_back(dialog.currentFilterIndex()->signalValueChanged().connect(
        [this](int index) { log(tr("File type: %1").arg(index)); }));
    const bool accepted = dialog.exec() == QDialog::Accepted;
    m_connections.clear();
    logOutcome(dialog, accepted);
}

/// Adds a check box that enables a button, a check box that shows a button, and a button that closes the dialog.
void NativeDialogPage::addControls(ExtendedWinFileDialog& dialog)
{
    dialog.addCustomCheckBox(tr("&Preview").toStdString(), m_preview);
    dialog.addCustomCheckBox(tr("E&xpert").toStdString(), m_expert);
    QWidget* const columns =
        dialog.addCustomButton(tr("Colum&ns…").toStdString(), [this] { log(tr("Button: Columns")); });
    QWidget* const rules = dialog.addCustomButton(tr("&Rules…").toStdString(), [this] { log(tr("Button: Rules")); });
    dialog.addCustomButton(tr("&Close at once").toStdString(), [this, &dialog] {
        log(tr("Button: Close at once"));
        dialog.close();
    });
    columns->setEnabled(m_preview->value());
    rules->setVisible(m_expert->value());
    observe(m_preview, tr("Preview"), [columns](bool on) { columns->setEnabled(on); });
    observe(m_expert, tr("Expert"), [rules](bool on) { rules->setVisible(on); });
}

void NativeDialogPage::addMenu(ExtendedWinFileDialog& dialog)
{
    dialog.addAcceptButtonOption(tr("Take it").toStdString(), 1);
    dialog.addAcceptButtonOption(tr("Take it as text").toStdString(), 2);
    dialog.addAcceptButtonOption(tr("Take a copy").toStdString(), 3);
}

void NativeDialogPage::observe(const BoolProperty& property, const QString& name, std::function<void(bool)> step)
{
    m_connections.emplace_back(property->signalValueChanged().connect([this, name, step = std::move(step)](bool on) {
        log(tr("%1: %2").arg(name, onOrOff(on)));
        step(on);
    }));
}

void NativeDialogPage::logOutcome(ExtendedWinFileDialog& dialog, bool accepted)
{
    log(accepted ? tr("The dialog was accepted.") : tr("The dialog was cancelled."));
    const QStringList files = dialog.selectedFiles();
    for (const QString& file : files)
        log(tr("Chosen: %1").arg(QDir::toNativeSeparators(file)));
    log(tr("Directory: %1").arg(QDir::toNativeSeparators(dialog.directory().absolutePath())));
    log(tr("Filter: %1").arg(dialog.selectedNameFilter()));
    log(tr("Option of the accept button: %1").arg(dialog.selectedAcceptMenuOption()));
}

void NativeDialogPage::log(const QString& line)
{
    m_log->appendPlainText(line);
}

} // namespace gallery
