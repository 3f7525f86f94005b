#include "TableEditorPage.h"

#include "LoadBar.h"
#include "MessageArea.h"
#include "TableView.h"
#include "tour/Tour.h"

#include "TableLoader.h"
#include "TableModel.h"

#include "ui/qt/dialogs/QExtendedFileDialog.h"

#include <QDir>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QStackedWidget>

namespace gallery {

namespace {

/// Filters for opening, in the syntax of file dialogs: all kinds of tables together, then one by one.
QString openFilters()
{
    QStringList patterns;
    QStringList filters;
    for (const TableFormat& format : tableFormats()) {
        patterns += QStringLiteral("*.") + format.extension;
        filters += format.nameFilter;
    }
    filters.prepend(TableEditorPage::tr("All tables (%1)").arg(patterns.join(QLatin1Char(' '))));
    return filters.join(QStringLiteral(";;"));
}

} // namespace

TableEditorPage::TableEditorPage()
    : GalleryPage(tr("Table editor"), tr("Opens a table of any size and shows it. Reading goes on in the "
                                         "background and can be cancelled."))
    , m_openButton(new QPushButton(tr("&Open a table…")))
    , m_pathLabel(new QLabel)
    , m_view(new TableView)
    , m_model(new TableModel(this))
    , m_loader(new TableLoader(this))
    , m_statusLine(new QStackedWidget)
    , m_facts(new QLabel)
    , m_loadBar(new LoadBar)
    , m_messages(new MessageArea)
{
    m_view->setModel(m_model);
    addWidgets();
    connectWidgets();
}

TableEditorPage::~TableEditorPage() = default;

void TableEditorPage::addWidgets()
{
    m_pathLabel->setTextFormat(Qt::PlainText);
    m_pathLabel->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    // A long path must not widen the window.
    m_pathLabel->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    m_pathLabel->setText(tr("No table is open."));
    m_view->setAccessibleName(tr("Table"));
    m_facts->setTextFormat(Qt::PlainText);
    m_statusLine->addWidget(m_facts);
    m_statusLine->addWidget(m_loadBar);
    m_statusLine->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);

    auto* top = new QHBoxLayout;
    top->addWidget(m_openButton);
    top->addWidget(m_pathLabel, 1);
    contents().addLayout(top);
    contents().addWidget(m_view, 1);
    contents().addWidget(m_statusLine);
    contents().addWidget(m_messages);
}

void TableEditorPage::connectWidgets()
{
    connect(m_openButton, &QPushButton::clicked, this, &TableEditorPage::openTable);
    connect(m_loadBar, &LoadBar::cancelled, this, &TableEditorPage::cancelLoading);
    connect(m_loader, &TableLoader::progressChanged, m_loadBar, &LoadBar::setPercent);
    connect(m_loader, &TableLoader::finished, this, &TableEditorPage::onLoaded);
}

// Opening

void TableEditorPage::openTable()
{
    const QString path = askForPath();
    if (!path.isEmpty())
        startLoading(path);
}

/// Empty when the user has cancelled.
QString TableEditorPage::askForPath()
{
    QExtendedFileDialog dialog(*window(), tr("Open a table").toStdString(), std::string(), openFilters().toStdString(),
                               "table/open.html", QFileDialog::AcceptOpen);
    dialog.setGeometryPersistenceKey("gallery/open-table");
    dialog.setDefaultSize(window()->size() * 4 / 5);
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

void TableEditorPage::startLoading(const QString& path)
{
    m_loadingPath = path;
    m_loadBar->start(QFileInfo(path).fileName());
    m_statusLine->setCurrentWidget(m_loadBar);
    m_loader->load(path);
}

void TableEditorPage::cancelLoading()
{
    m_loader->cancel();
    hideLoadBar();
}

void TableEditorPage::onLoaded(const TableResult& result)
{
    hideLoadBar();
    if (!result.document)
        reportProblem(result.error);
    else if (!m_view->canShow(result.document->rowCount(), result.document->columnCount()))
        reportProblem(tr("The table has more rows or columns than can be shown."));
    else
        showTable(result.document);
}

void TableEditorPage::hideLoadBar()
{
    // The keyboard is not to go away with the Cancel button.
    const bool hadFocus = m_loadBar->isAncestorOf(window()->focusWidget());
    m_statusLine->setCurrentWidget(m_facts);
    if (hadFocus)
        m_openButton->setFocus();
}

void TableEditorPage::showTable(const std::shared_ptr<TableDocument>& document)
{
    const QString path = QDir::toNativeSeparators(m_loadingPath);
    m_model->setDocument(document);
    m_view->fitColumns();
    m_view->setCurrentIndex(m_model->index(0, 0));
    m_view->scrollToTop();
    m_pathLabel->setText(path);
    m_pathLabel->setToolTip(path.toHtmlEscaped());
    showFacts();
}

void TableEditorPage::showFacts()
{
    const QLocale locale;
    m_facts->setText(tr("%1 rows, %2 columns, %3")
                         .arg(locale.toString(m_model->rowCount()), locale.toString(m_model->columnCount()),
                              m_model->document()->encodingName()));
}

void TableEditorPage::reportProblem(const QString& problem)
{
    m_messages->add(tr("%1: %2").arg(QDir::toNativeSeparators(m_loadingPath), problem));
}

// Tour

void TableEditorPage::tour(Tour& tour)
{
    tour.readHelpAndCancelFileDialog([this] { m_openButton->click(); });
    tour.expect(!m_loader->isLoading(), QStringLiteral("a cancelled dialog loads nothing"));
    tourGoodTable(tour);
    tourCancelledLoad(tour);
    tourBrokenTable(tour);
}

void TableEditorPage::openInTour(Tour& tour, const QString& name, bool picture)
{
    tour.acceptFileDialog({name, -1, picture}, [this] { m_openButton->click(); });
    tour.expect(QFileInfo(m_loadingPath).fileName() == name, QStringLiteral("the typed file is loaded: ") + name);
}

void TableEditorPage::tourGoodTable(Tour& tour)
{
    openInTour(tour, QStringLiteral("measurements.csv"), true);
    tour.waitUntil(QStringLiteral("the table is loaded"), [this] { return !m_loader->isLoading(); });
    tour.log(QStringLiteral("shown: ") + m_pathLabel->text());
    tour.log(QStringLiteral("table: ") + m_facts->text());
    tour.expect(m_model->rowCount() > 0, QStringLiteral("the table has rows"));
    tour.expect(m_messages->text().isEmpty(), QStringLiteral("nothing went wrong"));
    tour.takePicture();
}

void TableEditorPage::tourCancelledLoad(Tour& tour)
{
    const QString shown = m_pathLabel->text();
    openInTour(tour, QStringLiteral("broken.json"), false);
    m_loadBar->cancelButton().setFocus();
    m_loadBar->cancelButton().click();
    tour.expect(window()->focusWidget() == m_openButton,
                QStringLiteral("the keyboard is where another table can be opened"));
    tour.expect(!m_loader->isLoading(), QStringLiteral("Cancel ends loading"));
    tour.expect(m_pathLabel->text() == shown, QStringLiteral("the table stays when loading is cancelled"));
    tour.log(QStringLiteral("cancelled loading: ") + m_loadingPath);
}

void TableEditorPage::tourBrokenTable(Tour& tour)
{
    const QString shown = m_pathLabel->text();
    openInTour(tour, QStringLiteral("broken.json"), false);
    tour.waitUntil(QStringLiteral("loading has failed"), [this] { return !m_loader->isLoading(); });
    tour.log(QStringLiteral("message: ") + m_messages->text());
    tour.expect(m_messages->text().contains(QStringLiteral("broken.json")), QStringLiteral("the error is shown"));
    tour.expect(m_pathLabel->text() == shown, QStringLiteral("the table stays when another cannot be read"));
    tour.takePicture(QStringLiteral("message"));
}

} // namespace gallery
