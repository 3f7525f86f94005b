#pragma once

#include "platform/ApplicationSettings.h"
#include "platform/HelpLauncher.h"
#include "platform/installTranslations.h"
#include "property/Property.h"
#include "ui/qt/controls/ComboBoxAutoFilter.h"
#include "ui/qt/controls/CopyHandlerAbstract.h"
#include "ui/qt/controls/OverrideCursor.h"
#include "ui/qt/controls/OverrideCursorRestorer.h"
#include "ui/qt/controls/QtSignalConnectionCollection.h"
#include "ui/qt/dialogs/TranslatedSaveFileMessageHandler.h"

#include <QtTest>
#include <QtWidgets>

#include <memory>
#include <string>
#include <vector>

// The application of which the examples are a part. It exists only for the compiler.

using Model = QAbstractItemModel;

class Database
{
public:
    QByteArray read(const std::string& key) const;
    void write(const std::string& key, const QByteArray& value);
};

class OurStore : public zelmar::ApplicationSettings::MemoryStore
{
};

class Preview
{
public:
    void setRows(int count);
    void setCompressed(bool on);
};

class HelpWindow
{
public:
    void show(const QString& topic);
};

class Writer
{
public:
    void write(const std::string& path);
};

class NameDelegate : public QStyledItemDelegate
{
public:
    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem&, const QModelIndex&) const override;
    bool eventFilter(QObject*, QEvent*) override;

private:
    Model* m_names = nullptr;
};

class Editor : public QMainWindow
{
public:
    void noteEdit();
};

class Application : public Editor
{
public:
    void open(const QStringList& files);
    void open(const std::string& file, int format = 0);
    void load(const QStringList& files);
    void load(const QString& file);
    void import(const QStringList& files, int option = 0);
    void import(const std::vector<std::string>& files, int option = 0);
    void chooseColumns();
    void openTable();
    void saveRun();
    void readLargeFile();
    int nextRunAfter(int run) const;
    int lastRunBefore(int run) const;

    QMainWindow window;
    QWidget* parent = nullptr;
    QTableView* view = nullptr;
    QListView* list = nullptr;
    QLineEdit* edit = nullptr;
    Model* model = nullptr;
    QStringListModel names;
    QStatusBar status;
    Preview preview;
    HelpWindow helpWindow;
    QDialog dialog;
    int argc = 0;
    char** argv = nullptr;
    zelmar::HelpLauncher& help = zelmar::HelpLauncher::getInstance();
    boost::shared_ptr<zelmar::Property<bool>> hasPreview;
    std::string folder;
    std::string lastFile;
    std::vector<Writer*> writers;
    std::unique_ptr<zelmar::ui::QtSignalConnectionCollection> m_whileSaving;
};
