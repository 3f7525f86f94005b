#pragma once

#include "GalleryPage.h"

#include "TableFormat.h"

class QLabel;
class QPushButton;
class QStackedWidget;

namespace gallery {

class LoadBar;
class MessageArea;
class TableLoader;
class TableModel;
class TableView;

/// A small real application: opens a table of any size through a file dialog, reads it in the background and
/// shows it. The table that is shown stays until another one is complete.
class TableEditorPage : public GalleryPage
{
    Q_OBJECT

public:
    TableEditorPage();
    ~TableEditorPage() override;

    void tour(Tour& tour) override;

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
    void reportProblem(const QString& problem);

    void openInTour(Tour& tour, const QString& name, bool picture);
    void tourGoodTable(Tour& tour);
    void tourBrokenTable(Tour& tour);
    void tourCancelledLoad(Tour& tour);

    QPushButton* m_openButton;
    QLabel* m_pathLabel;
    TableView* m_view;
    TableModel* m_model;
    TableLoader* m_loader;
    QStackedWidget* m_statusLine; ///< the facts, or the bar while something is loading
    QLabel* m_facts;
    LoadBar* m_loadBar;
    MessageArea* m_messages;
    QString m_loadingPath; ///< of the load under way, or of the last one
};

} // namespace gallery
