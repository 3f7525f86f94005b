#include "HelpDialog.h"

#include "platform/HelpLauncher.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QFile>
#include <QTextBrowser>
#include <QUrl>
#include <QVBoxLayout>

namespace gallery {

HelpDialog::HelpDialog(const std::string& topic, QWidget* parent)
    : QDialog(parent)
    , m_browser(new QTextBrowser)
    , m_hasPage(QFile::exists(QStringLiteral(":/help/") + QString::fromStdString(topic)))
{
    setWindowTitle(tr("Help"));
    m_browser->setAccessibleName(tr("Help text"));
    if (m_hasPage)
        m_browser->setSource(QUrl(QStringLiteral("qrc:/help/") + QString::fromStdString(topic)));
    else
        m_browser->setPlainText(tr("There is no help on \"%1\".").arg(QString::fromStdString(topic)));

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_browser);
    layout->addWidget(buttons);
    resize(fontMetrics().averageCharWidth() * 70, fontMetrics().height() * 18);
}

HelpDialog::~HelpDialog() = default;

void showHelpTopicsInDialogs()
{
    zelmar::HelpLauncher::getInstance().setHandler([](const std::string& topic) {
        HelpDialog dialog(topic, QApplication::activeWindow());
        dialog.exec();
    });
}

} // namespace gallery
