#pragma once

#include "GalleryPage.h"

#include "tableDialogs.h"

#include <QAbstractItemView>
#include <QKeySequence>
#include <QList>

#include <functional>
#include <memory>

class ElidedTextLabel;
class QAction;
class QLabel;
class QPushButton;
class QStackedWidget;

namespace gallery {

class FileDrop;
class LoadBar;
class MessageArea;
class TableModel;
class TableView;
class TableWorker;

/// A page with a small real application: it opens a table of any size with a file dialog, reads it in the background,
/// shows it for editing, and saves it with the save flow, with one writer per file format. The current table stays
/// until the next one is complete, and edits are never lost without a question. What the user asks for while the table
/// is being saved, such as closing the window, happens when it is saved, and does not if that fails.
class TableEditorPage : public GalleryPage
{
    Q_OBJECT

public:
    TableEditorPage();
    ~TableEditorPage() override;

    bool mayLeave() override;

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    /// An action that follows once the table is saved or the edits are discarded, and its announcement while saving.
    struct Next
    {
        QString announcement;
        std::function<void()> go;
    };

    QAction* addAction(const QString& text, const QString& toolTip, const QList<QKeySequence>& shortcuts);
    void addWidgets();
    void connectWidgets();
    void openTable();
    void openFile(const QString& path);
    bool mayReplaceTable(const Next& next);
    void startLoading(const QString& path);
    void onLoaded(const TableResult& result);
    void cancelLoading();
    void hideLoadBar();
    void showTable(const std::shared_ptr<TableDocument>& document);
    void showFacts();
    void reportProblem(const QString& path, const QString& problem);
    void undo();
    void redo();
    void clearCells();
    void showRefusal(const QString& text);
    void saveTable();
    void saveTableAs();
    void startSaving(const TableTarget& target);
    void onSaved(const QString& path, const QString& error);
    void setTarget(const TableTarget& target);
    void updateActions();

    QAction* m_openAction;
    QAction* m_saveAction;
    QAction* m_saveAsAction;
    QAction* m_undoAction;
    QAction* m_redoAction;
    QAction* m_clearAction; ///< of the table, which has its key
    QPushButton* m_openButton;
    ElidedTextLabel* m_pathLabel;
    TableView* m_view;
    const QAbstractItemView::EditTriggers m_editTriggers; ///< the triggers of the view unless a table is loading
    TableModel* m_model;
    TableWorker* m_worker;
    QLabel* m_refusal;            ///< tells which text was not taken, until one is
    QStackedWidget* m_statusLine; ///< shows facts of the table, or the bar while a table is loading
    QLabel* m_facts;
    LoadBar* m_loadBar;
    MessageArea* m_messages;
    FileDrop* m_fileDrop;
    QString m_loadingPath;      ///< the path of the running or the last load
    TableTarget m_target;       ///< the file of the shown table, into which it is saved; empty if there is no table
    TableTarget m_savingTarget; ///< the file of the running or the last save
    Next m_whenSaved;           ///< follows the running save if it succeeds; empty for nothing
    int m_savingState = 0;      ///< the state of the table when the running or the last save began
};

} // namespace gallery
