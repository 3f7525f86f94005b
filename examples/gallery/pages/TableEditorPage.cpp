#include "TableEditorPage.h"

#include "FileDrop.h"
#include "LoadBar.h"
#include "MessageArea.h"
#include "NumberDelegate.h"
#include "RowField.h"
#include "TableView.h"
#include "makeActionButton.h"
#include "tableDialogs.h"

#include "TableModel.h"
#include "TableWorker.h"

#include "ui/qt/controls/ElidedTextLabel.h"
#include "ui/qt/controls/OverrideCursor.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QPointer>
#include <QPushButton>
#include <QSet>
#include <QStackedWidget>
#include <QStringListModel>

#include <utility>

namespace gallery {

namespace {

// This number of rows is enough for suggestions, and is searched quickly.
const int rowsLookedAt = 100000;
const int longestName = 200;
// Each cleared cell takes memory until another table is opened.
const int maxCellsCleared = 100000;

/// Returns the platform's keys, and `common` if it is not among them.
QList<QKeySequence> keys(QKeySequence::StandardKey standard, const char* common = "")
{
    QList<QKeySequence> all = QKeySequence::keyBindings(standard);
    const QKeySequence other(QString::fromLatin1(common));
    if (!other.isEmpty() && !all.contains(other))
        all += other;
    return all;
}

/// Returns suggestions for a cell of a text column: the texts of the other cells in the column.
QAbstractItemModel* otherTexts(const TableModel& model, const QModelIndex& index, QObject* editor)
{
    if (model.document()->columnKind(index.column()) != ColumnKind::Text)
        return nullptr;
    QSet<QString> texts;
    const int rows = qMin(model.rowCount(), rowsLookedAt);
    for (int row = 0; row < rows; ++row) {
        const QString text = model.index(row, index.column()).data(Qt::EditRole).toString();
        if (!text.isEmpty() && text.size() <= longestName)
            texts.insert(text);
    }
    QStringList names(texts.cbegin(), texts.cend());
    names.sort(Qt::CaseInsensitive);
    return new QStringListModel(names, editor);
}

QString rowsText(int count)
{
    return count == 1 ? TableEditorPage::tr("1 row") : TableEditorPage::tr("%1 rows").arg(QLocale().toString(count));
}

QString columnsText(int count)
{
    return count == 1 ? TableEditorPage::tr("1 column")
                      : TableEditorPage::tr("%1 columns").arg(QLocale().toString(count));
}

} // namespace

TableEditorPage::TableEditorPage()
    : GalleryPage(tr("Table editor"),
                  tr("Opens a table of any size, shows it to be edited, and saves it. Reading goes on in "
                     "the background and can be cancelled."))
    , m_openAction(addAction(tr("&Open…"), tr("Open a table"), keys(QKeySequence::Open)))
    , m_saveAction(addAction(tr("&Save"), tr("Save the table in its file"), keys(QKeySequence::Save)))
    , m_saveAsAction(
          addAction(tr("Save &as…"), tr("Save the table in another file"), keys(QKeySequence::SaveAs, "Ctrl+Shift+S")))
    , m_undoAction(addAction(tr("U&ndo"), tr("Undo"), keys(QKeySequence::Undo)))
    , m_redoAction(addAction(tr("Re&do"), tr("Redo"), keys(QKeySequence::Redo, "Ctrl+Shift+Z")))
    , m_clearAction(new QAction(tr("C&lear cells"), this))
    , m_openButton(makeActionButton(*m_openAction))
    , m_pathLabel(new ElidedTextLabel)
    , m_view(new TableView)
    , m_editTriggers(m_view->editTriggers())
    , m_model(new TableModel(this))
    , m_worker(new TableWorker(this))
    , m_refusal(new QLabel)
    , m_statusLine(new QStackedWidget)
    , m_facts(new QLabel)
    , m_loadBar(new LoadBar)
    , m_messages(new MessageArea)
    , m_fileDrop(new FileDrop(this))
{
    m_view->setModel(m_model);
    const auto names = [this](const QModelIndex& index, QObject* editor) {
        return otherTexts(*m_model, index, editor);
    };
    const auto isNumber = [this](const QModelIndex& index) {
        return m_model->document()->columnKind(index.column()) == ColumnKind::Number;
    };
    auto* delegate = new NumberDelegate(isNumber, names, m_view);
    m_view->setCellDelegate(*delegate);
    connect(delegate, &TableDelegate::textTaken, m_refusal, &QLabel::hide);
    connect(delegate, &TableDelegate::textRefused, this, &TableEditorPage::showRefusal);
    connect(m_model, &TableModel::dataChanged, m_refusal, &QLabel::hide);
    addWidgets();
    connectWidgets();
    updateActions();
}

TableEditorPage::~TableEditorPage() = default;

/// Adds an action with a shortcut that works while the page is shown, whichever widget has the keyboard.
QAction* TableEditorPage::addAction(const QString& text, const QString& toolTip, const QList<QKeySequence>& shortcuts)
{
    auto* action = new QAction(text, this);
    action->setIconText(text);
    action->setToolTip(toolTip);
    action->setShortcuts(shortcuts);
    QWidget::addAction(action);
    return action;
}

void TableEditorPage::addWidgets()
{
    m_pathLabel->setText(tr("No table is open."));
    m_view->setAccessibleName(tr("Table"));
    m_clearAction->setShortcut(QKeySequence(Qt::Key_Delete));
    m_clearAction->setShortcutContext(Qt::WidgetShortcut); // and not in the editor of a cell
    m_view->addActions({m_clearAction, m_undoAction, m_redoAction});
    m_refusal->setTextFormat(Qt::PlainText);
    m_refusal->hide();
    m_facts->setObjectName(QStringLiteral("facts"));
    m_facts->setTextFormat(Qt::PlainText);
    m_statusLine->addWidget(m_facts);
    m_statusLine->addWidget(m_loadBar);
    m_statusLine->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);

    auto* files = new QHBoxLayout;
    files->addWidget(m_openButton);
    files->addWidget(makeActionButton(*m_saveAction));
    files->addWidget(makeActionButton(*m_saveAsAction));
    files->addWidget(m_pathLabel, 1, Qt::AlignVCenter);
    contents().addLayout(files);

    auto* rowLabel = new QLabel(tr("Go to &row"));
    auto* rowField = new RowField(*m_view);
    rowLabel->setBuddy(rowField);
    auto* edits = new QHBoxLayout;
    edits->addWidget(makeActionButton(*m_undoAction));
    edits->addWidget(makeActionButton(*m_redoAction));
    edits->addStretch();
    edits->addWidget(rowLabel);
    edits->addWidget(rowField);
    contents().addLayout(edits);
    contents().addWidget(m_view, 1);
    contents().addWidget(m_refusal);
    contents().addWidget(m_statusLine);
    contents().addWidget(m_messages);
}

void TableEditorPage::connectWidgets()
{
    connect(m_openAction, &QAction::triggered, this, &TableEditorPage::openTable);
    connect(m_saveAction, &QAction::triggered, this, &TableEditorPage::saveTable);
    connect(m_saveAsAction, &QAction::triggered, this, &TableEditorPage::saveTableAs);
    connect(m_undoAction, &QAction::triggered, this, &TableEditorPage::undo);
    connect(m_redoAction, &QAction::triggered, this, &TableEditorPage::redo);
    connect(m_clearAction, &QAction::triggered, this, &TableEditorPage::clearCells);
    connect(&m_model->edits(), &QUndoStack::indexChanged, this, &TableEditorPage::updateActions);
    connect(m_fileDrop, &FileDrop::dropped, this, &TableEditorPage::openFile);
    connect(m_worker, &TableWorker::saved, this, &TableEditorPage::onSaved);
    connect(m_model, &TableModel::modifiedChanged, this, &TableEditorPage::showFacts);
    connect(m_loadBar, &LoadBar::cancelled, this, &TableEditorPage::cancelLoading);
    connect(m_worker, &TableWorker::progressChanged, m_loadBar, &LoadBar::setPercent);
    connect(m_worker, &TableWorker::loaded, this, &TableEditorPage::onLoaded);
}

// Opening

void TableEditorPage::openTable()
{
    if (!mayReplaceTable({tr("Another table can be opened when it is saved."), [this] { openTable(); }}))
        return;
    const QString path = askForTable(m_target.path);
    if (!path.isEmpty())
        startLoading(path);
}

void TableEditorPage::openFile(const QString& path)
{
    // A dialog that was opened meanwhile is about the table that is shown.
    if (!QApplication::activeModalWidget()
        && mayReplaceTable(
            {tr("%1 is opened when it is saved.").arg(QFileInfo(path).fileName()), [this, path] { openFile(path); }}))
        startLoading(path);
}

void TableEditorPage::showEvent(QShowEvent* event)
{
    GalleryPage::showEvent(event);
    m_fileDrop->setActive(*window(), true);
}

void TableEditorPage::hideEvent(QHideEvent* event)
{
    m_fileDrop->setActive(*window(), false);
    GalleryPage::hideEvent(event);
}

bool TableEditorPage::mayLeave()
{
    return mayReplaceTable({tr("The window closes when it is saved."), [this] { window()->close(); }});
}

/// Returns whether the table has no edits that would be lost now. If the user wants to save it, or it is being saved,
/// goes on with `next` when it is saved.
bool TableEditorPage::mayReplaceTable(const Next& next)
{
    if (!m_view->finishEditing())
        return false;
    if (!m_worker->isSaving()) {
        if (!m_model->isModified())
            return true;
        cancelLoading(); // otherwise another table could arrive below the question
        const QPointer<TableEditorPage> page = this;
        const QMessageBox::StandardButton answer = askWhetherToSave(*window(), m_target.path);
        if (!page || answer == QMessageBox::Discard)
            return page;
        if (answer == QMessageBox::Save)
            saveTable();
    }
    if (m_worker->isSaving())
        m_whenSaved = next;
    showFacts();
    return false;
}

void TableEditorPage::startLoading(const QString& path)
{
    m_loadingPath = path;
    m_refusal->hide();
    m_loadBar->start(QFileInfo(path).fileName());
    m_statusLine->setCurrentWidget(m_loadBar);
    // Sets no override cursor, because loading may end while a dialog has its own entry on the override cursor stack.
    m_view->setCursor(Qt::BusyCursor);
    m_view->setFocus(); // sets the focus now, because the user may be somewhere else when the table is loaded
    m_worker->load(path);
    updateActions();
}

void TableEditorPage::cancelLoading()
{
    if (!m_worker->isLoading())
        return;
    m_worker->cancelLoad();
    hideLoadBar();
}

void TableEditorPage::onLoaded(const TableResult& result)
{
    hideLoadBar();
    if (!result.document)
        reportProblem(m_loadingPath, result.error);
    else if (!m_view->canShow(result.document->rowCount(), result.document->columnCount()))
        reportProblem(m_loadingPath, tr("The table has more rows or columns than can be shown."));
    else
        showTable(result.document);
}

void TableEditorPage::hideLoadBar()
{
    // Keeps the keyboard focus in the page when the Cancel button is hidden.
    const bool hadFocus = m_loadBar->isAncestorOf(window()->focusWidget());
    m_statusLine->setCurrentWidget(m_facts);
    m_view->unsetCursor();
    updateActions();
    if (hadFocus)
        m_openButton->setFocus();
}

void TableEditorPage::showTable(const std::shared_ptr<TableDocument>& document)
{
    // The following steps block the GUI for a moment if there are a hundred columns.
    const zelmar::ui::OverrideCursor cursor(Qt::WaitCursor);
    m_model->setDocument(document);
    m_view->fitColumns();
    m_view->goTo(m_model->index(0, 0));
    m_view->scrollToTop();
    m_messages->clear();
    m_refusal->hide();
    setTarget({m_loadingPath, &tableFormatForPath(m_loadingPath)});
    showFacts();
}

void TableEditorPage::setTarget(const TableTarget& target)
{
    m_target = target;
    // Otherwise the label would treat the old path as a tool tip of the application.
    m_pathLabel->setToolTip(QString());
    m_pathLabel->setText(QDir::toNativeSeparators(target.path));
    updateActions();
}

void TableEditorPage::updateActions()
{
    // A table that will be replaced is neither edited nor saved.
    const bool isShown = !m_worker->isLoading() && !m_target.path.isEmpty();
    m_view->setEditTriggers(m_worker->isLoading() ? QAbstractItemView::NoEditTriggers : m_editTriggers);
    m_openAction->setEnabled(!m_worker->isSaving()); // onSaved() assumes that the shown table is the saved one
    m_saveAction->setEnabled(isShown && !m_worker->isSaving());
    m_saveAsAction->setEnabled(isShown && !m_worker->isSaving());
    m_clearAction->setEnabled(isShown);
    const QUndoStack& edits = m_model->edits();
    m_undoAction->setEnabled(isShown && edits.canUndo());
    m_undoAction->setText(tr("U&ndo %1").arg(edits.undoText()));
    m_undoAction->setToolTip(tr("Undo %1").arg(edits.undoText()));
    m_redoAction->setEnabled(isShown && edits.canRedo());
    m_redoAction->setText(tr("Re&do %1").arg(edits.redoText()));
    m_redoAction->setToolTip(tr("Redo %1").arg(edits.redoText()));
}

void TableEditorPage::showFacts()
{
    const QString facts = QStringList{rowsText(m_model->rowCount()), columnsText(m_model->columnCount()),
                                      m_model->document()->encodingName()}
                              .join(QStringLiteral(", "));
    if (m_worker->isSaving()) {
        const QString saving = tr("Saving %1…").arg(QFileInfo(m_savingTarget.path).fileName());
        m_facts->setText(m_whenSaved.go ? saving + QLatin1Char(' ') + m_whenSaved.announcement : saving);
    } else {
        m_facts->setText(m_model->isModified() ? tr("%1, edited").arg(facts) : facts);
    }
}

void TableEditorPage::reportProblem(const QString& path, const QString& problem)
{
    m_messages->add(tr("%1: %2").arg(QDir::toNativeSeparators(path), problem));
}

// Editing

void TableEditorPage::undo()
{
    if (m_view->finishEditing())
        m_view->goTo(m_model->undo());
}

void TableEditorPage::redo()
{
    if (m_view->finishEditing()) // If a text was typed, there is nothing to redo any more.
        m_view->goTo(m_model->redo());
}

void TableEditorPage::clearCells()
{
    const QItemSelection selection = m_view->selectionModel()->selection();
    qint64 cells = 0;
    for (const QItemSelectionRange& range : selection)
        cells += qint64(range.width()) * range.height();
    if (cells > maxCellsCleared)
        m_messages->add(tr("No more than %1 cells are cleared at once.").arg(QLocale().toString(maxCellsCleared)));
    else
        m_model->clear(selection.indexes());
}

void TableEditorPage::showRefusal(const QString& text)
{
    const int width = fontMetrics().averageCharWidth() * 40;
    m_refusal->setText(tr("\"%1\" is no number.").arg(fontMetrics().elidedText(text, Qt::ElideMiddle, width)));
    m_refusal->show();
}

// Saving

void TableEditorPage::saveTable()
{
    if (m_view->finishEditing())
        startSaving(m_target);
}

void TableEditorPage::saveTableAs()
{
    if (!m_view->finishEditing())
        return;
    if (const auto target = askWhereToSave(*window(), m_target.path))
        startSaving(*target);
}

void TableEditorPage::startSaving(const TableTarget& target)
{
    m_savingTarget = target;
    m_savingState = m_model->state();
    m_refusal->hide();
    if (m_view->isVisible())
        m_view->setFocus(); // because the button that was pressed is disabled meanwhile
    m_worker->save(*m_model->document(), target.path, *target.format);
    updateActions();
    showFacts();
}

void TableEditorPage::onSaved(const QString& path, const QString& error)
{
    updateActions();
    const Next next = std::exchange(m_whenSaved, {});
    if (!error.isEmpty()) {
        reportProblem(path, error);
        showFacts();
        return;
    }
    m_messages->clear();
    setTarget(m_savingTarget);
    m_model->markSaved(m_savingState);
    showFacts();
    if (next.go && !QApplication::activeModalWidget()) // Otherwise the user has started something else meanwhile.
        next.go();
}

} // namespace gallery
