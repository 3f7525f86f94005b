#include "ui/qt/dialogs/windows/substitute/FileDialogWindow.h"

#include "ui/qt/dialogs/letAcceptButtonFollowFolder.h"
#include "ui/qt/dialogs/unselectShownFolder.h"
#include "ui/qt/dialogs/windows/substitute/AcceptMenu.h"
#include "ui/qt/dialogs/windows/substitute/ControlBar.h"
#include "ui/qt/dialogs/windows/substitute/FileDialogListener.h"
#include "ui/qt/dialogs/windows/substitute/texts.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QDir>
#include <QEventLoop>
#include <QFileInfo>
#include <QFileSystemModel>
#include <QGridLayout>
#include <QItemSelectionModel>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMessageBox>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTimer>

namespace {

struct GridPlace
{
    int row = 0;
    int column = 0;
    int rows = 0;
    int columns = 0;
};

GridPlace placeIn(const QGridLayout& grid, QWidget* widget)
{
    GridPlace place;
    grid.getItemPosition(grid.indexOf(widget), &place.row, &place.column, &place.rows, &place.columns);
    return place;
}

} // namespace

FileDialogWindow::FileDialogWindow(QWidget* owner, FileDialogRequest& request, ControlModel& controls,
                                   FileDialogListener& listener)
    : QFileDialog(owner, request.title, request.folder.isEmpty() ? request.defaultFolder : request.folder)
    , m_request(request)
    , m_controls(controls)
    , m_listener(listener)
{
    setAcceptMode(request.kind == DialogKind::Save ? AcceptSave : AcceptOpen);
    setFileMode(fileModeOf(request.options));
    setOptions(dialogOptionsOf(request.options));
    setOption(DontUseNativeDialog, controls.hasControls());
    setDefaultSuffix(request.defaultExtension);
    if (!request.types.isEmpty())
        setNameFilters(request.types.nameFilters());
    attachToWidgets();
    updateLabels();
    showTypes();
    setFileName(request.fileName);

    connect(this, &QFileDialog::directoryEntered, this, [this] { reportFolder(); });
    connect(this, &QFileDialog::filterSelected, this, [this] { reportType(); });
    m_controls.setListener([this] { updateControls(); });
    if (owner)
        connect(owner, &QObject::destroyed, this, [this] { outliveOwner(); });
}

FileDialogWindow::~FileDialogWindow()
{
    m_controls.setListener({});
    m_request.folder = folder();
    m_request.type = fileType();
    m_request.fileName = fileName();
}

// Running

bool FileDialogWindow::run()
{
    // Not QDialog::exec(): with a dialog of the desktop that one waits for the desktop's answer, and would go on
    // waiting after closeAtOnce(), or end with an answer that was refused.
    QEventLoop loop;
    connect(this, &QDialog::finished, &loop, &QEventLoop::quit);
    m_open = true;
    setWindowModality(Qt::ApplicationModal);
    showSilently();
    // The first folder is reported when the dialog is there to be worked with.
    QTimer::singleShot(0, this, [this] { reportFolder(); });
    if (m_open)
        loop.exec(QEventLoop::DialogExec);
    return m_accepted;
}

void FileDialogWindow::closeAtOnce()
{
    for (QDialog* question : findChildren<QDialog*>())
        question->reject();
    done(Rejected);
}

/// Qt would destroy the dialog with its owner, at a time when functions of the dialog may be running.
void FileDialogWindow::outliveOwner()
{
    closeAtOnce();
    setParent(nullptr, windowFlags());
}

void FileDialogWindow::setVisible(bool visible)
{
    QFileDialog::setVisible(visible);
    // A desktop that turns out to have no dialog leaves it to Qt at the last moment.
    if (visible && !isDrawnByQt() && findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))) {
        attachToWidgets();
        updateLabels();
        showTypes();
    }
}

void FileDialogWindow::accept()
{
    unselectShownFolder(*this);
    if (!filterByTypedPattern() && !acceptNameWithQuote())
        QFileDialog::accept();
}

void FileDialogWindow::done(int result)
{
    if (!m_open)
        return;
    const bool accepted = result == Accepted;
    if (accepted && !mayAccept()) {
        if (!isDrawnByQt())
            QTimer::singleShot(0, this, [this] { showAgain(); });
        return;
    }
    m_open = false;
    m_accepted = accepted;
    if (m_acceptMenu)
        m_acceptMenu->close();
    QFileDialog::done(result);
}

/// False, too, when the dialog was closed meanwhile.
bool FileDialogWindow::mayAccept()
{
    selectAcceptItem();
    const QStringList files = m_nameWithQuote.isEmpty() ? selectedFiles() : QStringList(m_nameWithQuote);
    return m_open && m_listener.mayAccept(files) && m_open;
}

/// Some desktops take their dialog away before anybody was asked.
void FileDialogWindow::showAgain()
{
    if (!m_open)
        return;
    hide();
    showSilently();
}

/// A desktop's dialog may tell of each file type on the way to the one that it is to show.
void FileDialogWindow::showSilently()
{
    const QSignalBlocker blocker(this);
    show();
}

// The accept button's menu

void FileDialogWindow::acceptWith(DWORD item)
{
    if (!m_open || !m_acceptButton->isEnabled())
        return;
    m_pickedItem = item;
    accept();
    // What was accepted may have been a folder to go to: then nothing has come of the item.
    m_pickedItem.reset();
}

/// The button itself stands for the first item, whatever was picked in a run before.
void FileDialogWindow::selectAcceptItem()
{
    const Control* menu = m_controls.acceptMenu();
    const ControlItem* first = menu ? firstItem(*menu) : nullptr;
    if (!first)
        return;
    const DWORD menuId = menu->id;
    const std::optional<DWORD> picked = m_pickedItem;
    m_controls.selectItem(menuId, picked.value_or(first->id));
    if (picked)
        m_listener.itemSelected(menuId, *picked);
}

// Parts of a dialog that Qt draws

void FileDialogWindow::attachToWidgets()
{
    m_fileNameEdit = findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    if (!isDrawnByQt())
        return;
    m_fileTypeCombo = findChild<QComboBox*>(QStringLiteral("fileTypeCombo"));
    m_model = findChild<QFileSystemModel*>(QStringLiteral("qt_filesystem_model"));
    m_selection = findChild<QListView*>(QStringLiteral("listView"))->selectionModel();
    m_buttonBox = findChild<QDialogButtonBox*>(QStringLiteral("buttonBox"));
    m_acceptButton = m_buttonBox->button(acceptMode() == AcceptSave ? QDialogButtonBox::Save : QDialogButtonBox::Open);
    m_plainAcceptText = m_acceptButton->text();

    letAcceptButtonFollowFolder(*this);
    // Types are used by their place. QFileDialog would go by text, and change the name's suffix, too.
    disconnect(m_fileTypeCombo, SIGNAL(activated(int)), this, nullptr);
    // More than directoryEntered() tells: also of a folder that was typed.
    connect(m_model, &QFileSystemModel::rootPathChanged, this, [this] { reportFolder(); });
    placeControlBar();
    const bool saving = m_request.kind == DialogKind::Save;
    m_acceptMenu = new AcceptMenu(*m_acceptButton,
                                  saving ? QCoreApplication::translate("FileDialogWindow", "More ways to save")
                                         : QCoreApplication::translate("FileDialogWindow", "More ways to open"),
                                  [this](DWORD item) { acceptWith(item); });
}

void FileDialogWindow::placeControlBar()
{
    m_controlBar = new ControlBar(m_controls, m_listener, *m_buttonBox, this);
    auto* grid = qobject_cast<QGridLayout*>(layout());
    if (!grid) {
        layout()->addWidget(m_controlBar);
        return;
    }
    // A row of its own below the file types, beside the buttons.
    const GridPlace types = placeIn(*grid, m_fileTypeCombo);
    grid->addWidget(m_controlBar, types.row + 1, types.column, 1, types.columns);
    m_buttonRows = placeIn(*grid, m_buttonBox).rows;
}

/// The buttons reach down beside the row of controls: as long as there is one, or it would take room.
void FileDialogWindow::fitButtonBox()
{
    auto* grid = qobject_cast<QGridLayout*>(layout());
    if (!grid)
        return;
    const GridPlace place = placeIn(*grid, m_buttonBox);
    const int rows = m_controlBar->isAnyShown() ? m_buttonRows + 1 : m_buttonRows;
    if (place.rows == rows)
        return;
    grid->removeWidget(m_buttonBox);
    grid->addWidget(m_buttonBox, place.row, place.column, rows, place.columns);
}

void FileDialogWindow::updateLabels()
{
    showAcceptText();
    if (!m_request.fileNameLabel.isEmpty())
        setLabelText(FileName, m_request.fileNameLabel);
    updateControls();
}

void FileDialogWindow::updateControls()
{
    if (!isDrawnByQt())
        return;
    showAcceptText();
    m_acceptMenu->update(m_controls.acceptMenu());
    m_controlBar->update(takenMnemonics());
    fitButtonBox();
    updateTabOrder();
}

void FileDialogWindow::showAcceptText()
{
    const QString text = acceptText();
    if (!text.isEmpty() && text != labelText(Accept))
        setLabelText(Accept, text);
}

/// The menu's first item, the text that was asked for, or QFileDialog's own.
QString FileDialogWindow::acceptText() const
{
    const Control* menu = m_controls.acceptMenu();
    const ControlItem* first = menu && isShown(menu->state) ? firstItem(*menu) : nullptr;
    if (first && isShown(first->state))
        return first->text;
    return m_request.acceptLabel.isEmpty() ? m_plainAcceptText : m_request.acceptLabel;
}

QSet<QKeySequence> FileDialogWindow::takenMnemonics() const
{
    QSet<QKeySequence> taken;
    for (const QLabel* label : findChildren<QLabel*>())
        taken.insert(QKeySequence::mnemonic(label->text()));
    for (const QAbstractButton* button : m_buttonBox->buttons()) {
        if (!m_controlBar->contains(button))
            taken.insert(QKeySequence::mnemonic(button->text()));
    }
    taken.remove(QKeySequence());
    return taken;
}

void FileDialogWindow::updateTabOrder()
{
    // The box stands for its first button, and before the file types: Tab would go there and pass over the types.
    m_buttonBox->setFocusProxy(nullptr);
    QWidget* previous = m_fileTypeCombo;
    const auto append = [&previous](QWidget* next) {
        setTabOrder(previous, next);
        previous = next;
    };
    const std::vector<QWidget*> added = m_controlBar->inOrder();
    const auto isInBar = [this](const QWidget* widget) { return widget->parentWidget() == m_controlBar; };
    for (QWidget* widget : added) {
        if (isInBar(widget))
            append(widget);
    }
    append(m_acceptButton);
    append(m_acceptMenu->arrow());
    append(m_buttonBox->button(QDialogButtonBox::Cancel));
    for (QWidget* widget : added) {
        if (!isInBar(widget))
            append(widget);
    }
}

// Folder

QString FileDialogWindow::folder() const
{
    // All drives together are no folder; what they hang on is one.
    if (isDrawnByQt())
        return m_model->rootPath().isEmpty() ? QDir::rootPath() : m_model->rootPath();
    return directory().absolutePath();
}

void FileDialogWindow::setFolder(const QString& folder)
{
    setDirectory(folder);
}

void FileDialogWindow::reportFolder()
{
    if (!m_open || folder() == m_reportedFolder)
        return;
    m_reportedFolder = folder();
    m_listener.folderChanged();
}

// File name

QString FileDialogWindow::fileName() const
{
    if (isDrawnByQt())
        return m_fileNameEdit->text();
    QStringList names;
    for (const QString& file : selectedFiles())
        names += QFileInfo(file).fileName();
    // A desktop's dialog tells of what exists, or only of what was accepted.
    return names.isEmpty() ? m_request.fileName : fileNameText(names);
}

void FileDialogWindow::setFileName(const QString& text)
{
    const QFileInfo info(text);
    const bool otherFolder = info.isAbsolute() && info.dir().exists();
    if (otherFolder)
        setDirectory(info.path());
    const QString shown = otherFolder ? info.fileName() : text;
    if (isDrawnByQt()) {
        // What is selected in the list would be added to the text.
        m_selection->clear();
        m_fileNameEdit->setText(shown);
        return;
    }
    for (const QString& name : namesIn(shown))
        selectFile(QDir(folder()).filePath(name)); // by itself it would mean the first folder
}

/// A typed pattern filters the list, until a type is picked or another folder set up; the type stays the same.
bool FileDialogWindow::filterByTypedPattern()
{
    const QString typed = isDrawnByQt() ? m_fileNameEdit->text() : QString();
    if (!typed.contains(QLatin1Char('*')) || typed.contains(QLatin1Char('/'))
        || QFileInfo::exists(QDir(folder()).filePath(typed)))
        return false;
    QStringList patterns;
    for (const QString& pattern : typed.split(QLatin1Char(';'), Qt::SkipEmptyParts))
        patterns += pattern.trimmed();
    m_model->setNameFilters(patterns);
    m_fileNameEdit->selectAll();
    return true;
}

/// A name with a quote in it. QFileDialog would take what follows the quote for the name.
bool FileDialogWindow::acceptNameWithQuote()
{
    const QString typed = isDrawnByQt() ? m_fileNameEdit->text() : QString();
    if (!typed.contains(QLatin1Char('"')) || namesIn(typed) != QStringList(typed))
        return false;
    const QFileInfo file(QDir(folder()), typed);
    if (file.isDir() || (fileMode() != AnyFile && !file.exists()))
        return false;
    if (!mayReplace(file))
        return true;
    m_nameWithQuote = QDir::cleanPath(file.absoluteFilePath());
    QDialog::accept(); // NOLINT(bugprone-parent-virtual-call): past QFileDialog, which would read the name again
    m_nameWithQuote.clear();
    return true;
}

bool FileDialogWindow::mayReplace(const QFileInfo& file)
{
    if (acceptMode() != AcceptSave || testOption(DontConfirmOverwrite) || !file.exists())
        return true;
    const QString question =
        QCoreApplication::translate("FileDialogWindow", "%1 exists. Do you want to replace it?").arg(file.fileName());
    const auto answer =
        QMessageBox::warning(this, windowTitle(), question, QMessageBox::Yes | QMessageBox::No, QMessageBox::No);
    return m_open && answer == QMessageBox::Yes;
}

// File types

int FileDialogWindow::fileType() const
{
    if (m_request.types.isEmpty())
        return m_request.type;
    if (isDrawnByQt())
        return m_request.types.placeOf(m_fileTypeCombo->currentIndex());
    return m_request.types.placeOfFilter(selectedNameFilter(), m_reportedType);
}

void FileDialogWindow::setFileType(int place)
{
    m_request.type = place;
    showTypes();
}

/// Selects the request's type without telling of it: unlike the system's dialog also at opening, where a program that
/// answers with another extension would change a name that nobody has touched.
void FileDialogWindow::showTypes()
{
    if (m_request.types.isEmpty())
        return;
    m_reportedType = m_request.types.placeOf(m_request.type);
    if (!isDrawnByQt()) {
        selectNameFilter(nameFilters().value(m_reportedType));
        return;
    }
    m_fileTypeCombo->setCurrentIndex(m_reportedType);
    useFileType();
}

void FileDialogWindow::useFileType()
{
    m_model->setNameFilters(m_request.types.patterns(m_fileTypeCombo->currentIndex()));
}

void FileDialogWindow::reportType()
{
    if (m_request.types.isEmpty())
        return;
    if (isDrawnByQt())
        useFileType();
    const int type = fileType();
    if (!m_open || type == m_reportedType)
        return;
    m_reportedType = type;
    m_listener.typeChanged();
}
