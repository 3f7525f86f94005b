#pragma once

#include "GalleryPage.h"

#include "TableFormat.h"

#include <QAbstractItemView>

#include <memory>

class ElidedTextLabel;
class QLabel;
class QPushButton;
class QStackedWidget;

namespace zelmar::ui {
class QtSignalConnectionCollection;
} // namespace zelmar::ui

namespace gallery {

class LoadBar;
class MessageArea;
class TableLoader;
class TableModel;
class TableSaver;
class TableView;
class Tour;

/// A page with a small real application: it opens a table of any size with a file dialog, reads it in the background,
/// shows it for editing, and saves it with the save flow, with one writer per file format. The current table stays
/// until the next one is complete, and edits are never lost without a question. If the user closes
/// the window while a table is being saved, it closes when the table is saved, and stays if that fails.
class TableEditorPage : public GalleryPage
{
    Q_OBJECT

public:
    TableEditorPage();
    ~TableEditorPage() override;

    bool mayLeave() override;
    /// Acts as a user of this page.
    void tour(Tour& tour);

private:
    void addWidgets();
    void connectWidgets();
    void openTable();
    QString askForPath();
    void startLoading(const QString& path);
    void onLoaded(const TableResult& result);
    void cancelLoading();
    void hideLoadBar();
    void showTable(const std::shared_ptr<TableDocument>& document);
    void showFacts();
    void reportProblem(const QString& path, const QString& problem);
    void saveTable();
    void onSaved(const QString& path, const QString& error);
    void showPath(const QString& path);

    void tourCancelledDialogs(Tour& tour);
    void openInTour(Tour& tour, const QString& name, const QString& picture = {});
    void tourGoodTable(Tour& tour);
    void tourCopiedCells(Tour& tour);
    void tourSavedTables(Tour& tour);
    void tourEditWhileSaving(Tour& tour);
    void tourUnsavedEdits(Tour& tour);
    void saveInTour(Tour& tour, const QString& name, int format);
    void tourBrokenTable(Tour& tour);
    void tourCancelledLoad(Tour& tour);

    QPushButton* m_openButton;
    QPushButton* m_saveButton;
    ElidedTextLabel* m_pathLabel;
    TableView* m_view;
    const QAbstractItemView::EditTriggers m_editTriggers; ///< the triggers of the view unless a table is loading
    TableModel* m_model;
    TableLoader* m_loader;
    TableSaver* m_saver;
    QStackedWidget* m_statusLine; ///< shows facts of the table, or the bar while a table is loading
    QLabel* m_facts;
    LoadBar* m_loadBar;
    MessageArea* m_messages;
    QString m_loadingPath; ///< the path of the running or the last load
    QString m_path;        ///< the path of the shown table; empty if there is none
    std::unique_ptr<zelmar::ui::QtSignalConnectionCollection> m_whileSaving; ///< null unless a table is being saved
    QString m_savingName;            ///< the file name of the running or the last save
    bool m_closeWhenSaved = false;   ///< the user has closed the window while the table is being saved
    bool m_editedWhileSaved = false; ///< the saved table is older than the shown one
};

} // namespace gallery
