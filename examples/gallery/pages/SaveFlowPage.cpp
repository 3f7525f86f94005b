#include "SaveFlowPage.h"

#include "ui/qt/dialogs/DefaultSaveFileMessageHandler.h"
#include "ui/qt/dialogs/SaveFileQtDialog.h"
#include "ui/qt/dialogs/TranslatedSaveFileMessageHandler.h"

#include <QCheckBox>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHeaderView>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

namespace gallery {

namespace {

/// A message handler that demonstrates texts of the application's own: it names the file without its folder.
class ShortWording : public zelmar::DefaultSaveFileMessageHandler
{
public:
    std::string filenameToCheck(const std::string& filename) override
    {
        m_name = QFileInfo(QString::fromStdString(filename)).fileName();
        return DefaultSaveFileMessageHandler::filenameToCheck(filename);
    }

    std::string okToOverwriteMessage() const override
    {
        return SaveFlowPage::tr("There is a sample \"%1\" already. Write over it?").arg(m_name).toStdString();
    }

private:
    QString m_name;
};

std::unique_ptr<zelmar::SaveFileMessageHandlerInterface> makeHandler(bool ownWording)
{
    if (ownWording)
        return std::make_unique<ShortWording>();
    return std::make_unique<zelmar::TranslatedSaveFileMessageHandler>();
}

} // namespace

SaveFlowPage::SaveFlowPage()
    : GalleryPage(tr("Save with a writer"),
                  tr("The save flow: it appends the extension of the chosen type, asks before "
                     "it overwrites, and proves that the place can be written. Then this page "
                     "writes a small sample."))
    , m_writers(sampleWriters())
    , m_table(new QTableWidget)
    , m_ownWording(new QCheckBox(tr("&Word the questions in our own way")))
    , m_button(new QPushButton(tr("&Save a sample…")))
    , m_result(new QPlainTextEdit)
{
    fillTable();
    addWidgets();
    connect(m_button, &QPushButton::clicked, this, &SaveFlowPage::save);
}

SaveFlowPage::~SaveFlowPage() = default;

void SaveFlowPage::fillTable()
{
    m_table->setColumnCount(2);
    m_table->setHorizontalHeaderLabels({tr("Writer"), tr("Filter")});
    for (const SampleWriter& writer : m_writers) {
        const int row = m_table->rowCount();
        m_table->insertRow(row);
        m_table->setItem(row, 0, new QTableWidgetItem(writer.name));
        m_table->setItem(row, 1, new QTableWidgetItem(writer.nameFilter));
    }
    m_table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setSelectionMode(QAbstractItemView::SingleSelection);
    m_table->setTabKeyNavigation(false);
    m_table->verticalHeader()->hide();
    m_table->horizontalHeader()->setStretchLastSection(true);
    m_table->setAccessibleName(tr("Writers"));
    m_table->selectRow(0);
}

void SaveFlowPage::addWidgets()
{
    m_result->setReadOnly(true);
    m_result->setTabChangesFocus(true);
    m_result->setLineWrapMode(QPlainTextEdit::NoWrap);
    m_result->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    m_result->setPlaceholderText(tr("What the flow returns is shown here."));

    auto* writersLabel = new QLabel(tr("W&riters, and the one that is preselected"));
    writersLabel->setBuddy(m_table);
    auto* resultLabel = new QLabel(tr("R&esult"));
    resultLabel->setBuddy(m_result);

    contents().addWidget(writersLabel);
    contents().addWidget(m_table, 1);
    contents().addWidget(m_ownWording);
    contents().addWidget(m_button, 0, Qt::AlignLeft);
    contents().addWidget(resultLabel);
    contents().addWidget(m_result, 1);
}

std::unique_ptr<SaveFileQtDialog> SaveFlowPage::makeFlow() const
{
    std::vector<std::string> filters;
    for (const SampleWriter& writer : m_writers)
        filters.push_back(writer.nameFilter.toStdString());
    return std::make_unique<SaveFileQtDialog>(window(), tr("Save a sample").toStdString(), std::string(),
                                              tr("sample").toStdString(), filters, m_table->currentRow(),
                                              "dialogs/save-flow.html", makeHandler(m_ownWording->isChecked()));
}

void SaveFlowPage::save()
{
    const auto flow = makeFlow();
    if (flow->launch())
        m_result->setPlainText(written(*flow));
    else
        m_result->setPlainText(tr("Nothing was saved."));
}

/// Writes the sample file and returns a description of the choice and of the result.
QString SaveFlowPage::written(const SaveFileQtDialog& flow) const
{
    const QString name = QString::fromStdString(flow.selectedFilename());
    const SampleWriter& writer = m_writers[flow.selectedWriter()];
    QStringList lines{tr("File: %1").arg(QDir::toNativeSeparators(name)),
                      tr("Filter: %1").arg(QString::fromStdString(flow.selectedFilter())),
                      tr("Index of the writer, from 0: %1").arg(flow.selectedWriter())};
    QFile file(name);
    if (file.open(QIODevice::WriteOnly) && file.write(writer.sample) == writer.sample.size() && file.flush())
        lines += tr("Written: %1 bytes by the writer \"%2\"").arg(file.size()).arg(writer.name);
    else
        lines += tr("Not written: %1").arg(file.errorString());
    return lines.join(QLatin1Char('\n'));
}

} // namespace gallery
