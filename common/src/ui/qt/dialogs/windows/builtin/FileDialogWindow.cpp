#include "ui/qt/dialogs/windows/builtin/FileDialogWindow_p.h"

#include "ui/qt/dialogs/qtdialog/FileDialogWidgets_p.h"
#include "ui/qt/dialogs/qtdialog/closeWithQuestions_p.h"
#include "ui/qt/dialogs/qtdialog/handleTypedNames_p.h"
#include "ui/qt/dialogs/qtdialog/mnemonics_p.h"
#include "ui/qt/dialogs/qtdialog/typedName_p.h"
#include "ui/qt/dialogs/rules/quotedNames_p.h"
#include "ui/qt/dialogs/windows/builtin/AcceptMenu_p.h"
#include "ui/qt/dialogs/windows/builtin/ControlBar_p.h"
#include "ui/qt/dialogs/windows/builtin/FileDialogListener_p.h"
#include "ui/qt/dialogs/windows/builtin/acceptMenuName_p.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QEventLoop>
#include <QFileInfo>
#include <QFileSystemModel>
#include <QGridLayout>
#include <QItemSelectionModel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTimer>

namespace zelmar::internal {

namespace {

/// The cells that a widget occupies in a grid layout.
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
    // QDialog::exec() would wait until the desktop's dialog closes. It would not return after closeAtOnce(), and would
    // return even if the listener has refused the chosen files.
    QEventLoop loop;
    connect(this, &QDialog::finished, &loop, &QEventLoop::quit);
    m_open = true;
    setWindowModality(Qt::ApplicationModal);
    showSilently();
    // Reports the first folder once the dialog is open and its event loop runs.
    QTimer::singleShot(0, this, [this] { reportFolder(); });
    if (m_open)
        loop.exec(QEventLoop::DialogExec);
    if (m_open) // The application quits.
        closeAtOnce();
    return m_accepted;
}

void FileDialogWindow::closeAtOnce()
{
    closeQuestions(*this);
    done(Rejected);
}

/// Closes the dialog and removes it from the children of its owner, which is being destroyed. The owner would delete
/// the dialog although functions of the dialog may still be running.
void FileDialogWindow::outliveOwner()
{
    closeAtOnce();
    setParent(nullptr, windowFlags());
}

void FileDialogWindow::setVisible(bool visible)
{
    QFileDialog::setVisible(visible);
    // If the desktop refuses to show a dialog, Qt creates its own widgets only now.
    if (visible && !isDrawnByQt() && FileDialogWidgets::existIn(*this)) {
        attachToWidgets();
        updateLabels();
        showTypes();
    }
}

void FileDialogWindow::accept()
{
    unselectShownFolder(*this);
    // The desktop may have closed its dialog without a chosen file. QFileDialog would ignore that and keep waiting.
    if (!isDrawnByQt() && selectedUrls().isEmpty())
        showAgainLater();
    else if (!filterByTypedPattern() && !acceptTypedName(*this))
        QFileDialog::accept();
}

void FileDialogWindow::done(int result)
{
    if (!m_open)
        return;
    const bool accepted = result == Accepted;
    if (accepted && !mayAccept()) {
        if (!isDrawnByQt())
            showAgainLater();
        return;
    }
    m_open = false;
    m_accepted = accepted;
    if (m_acceptMenu)
        m_acceptMenu->close();
    QFileDialog::done(result);
}

/// Asks the listener. Returns false if it refuses, or if the dialog was closed meanwhile.
bool FileDialogWindow::mayAccept()
{
    selectAcceptItem();
    return m_open && m_listener.mayAccept(chosenFiles(*this)) && m_open;
}

/// Shows the dialog again after the desktop's current callback has returned.
void FileDialogWindow::showAgainLater()
{
    QTimer::singleShot(0, this, [this] { showAgain(); });
}

/// Shows the dialog again if the desktop has closed it before the listener could refuse the chosen files.
void FileDialogWindow::showAgain()
{
    if (!m_open)
        return;
    hide();
    showSilently();
}

/// Shows the dialog with its signals blocked, because a desktop's dialog may select and report other file types before
/// it selects the requested one.
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
    // If the name is that of a folder, the dialog has entered the folder and is still open. Forgets the item then.
    m_pickedItem.reset();
}

/// Selects the picked item, or the first item if the user has pressed the button itself. An item that was selected in
/// an earlier run is ignored.
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

// Widgets of a dialog that Qt draws

void FileDialogWindow::attachToWidgets()
{
    if (!FileDialogWidgets::existIn(*this))
        return;
    const FileDialogWidgets widgets(*this);
    m_fileNameEdit = &widgets.fileNameEdit();
    m_fileTypeCombo = &widgets.fileTypeCombo();
    m_model = &widgets.model();
    m_selection = &widgets.selection();
    m_buttonBox = &widgets.buttonBox();
    m_acceptButton = &widgets.acceptButton();
    widgets.relateLabels();
    m_plainAcceptText = m_acceptButton->text();
    m_plainFileNameLabel = labelText(FileName);

    handleTypedNames(*this);
    // This class selects types by their indexes. QFileDialog would look them up by their texts, and would also replace
    // the suffix of the name.
    widgets.leaveFileTypesToCaller();
    // Unlike directoryEntered(), this signal also reports a folder that the user has typed.
    connect(m_model, &QFileSystemModel::rootPathChanged, this, [this] { reportFolder(); });
    placeControlBar();
    m_acceptMenu =
        new AcceptMenu(*m_acceptButton, acceptMenuName(m_request.kind), [this](DWORD item) { acceptWith(item); });
}

void FileDialogWindow::placeControlBar()
{
    m_controlBar = new ControlBar(m_controls, m_listener, *m_buttonBox, this);
    auto* grid = qobject_cast<QGridLayout*>(layout());
    if (!grid) {
        layout()->addWidget(m_controlBar);
        return;
    }
    // The bar gets its own row below the file types, beside the buttons.
    const GridPlace types = placeIn(*grid, m_fileTypeCombo);
    grid->addWidget(m_controlBar, types.row + 1, types.column, 1, types.columns);
    m_buttonRows = placeIn(*grid, m_buttonBox).rows;
}

/// Extends the button box down to the row of controls while any control is shown. Otherwise the spacing of an empty row
/// would remain.
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
    const QString name = m_request.fileNameLabel.isEmpty() ? m_plainFileNameLabel : m_request.fileNameLabel;
    if (name != labelText(FileName))
        setLabelText(FileName, name);
    updateControls();
}

void FileDialogWindow::updateControls()
{
    if (!isDrawnByQt())
        return;
    showAcceptText();
    m_acceptMenu->update(m_controls.acceptMenu());
    const auto isAdded = [this](const QAbstractButton& button) { return m_controlBar->contains(button); };
    m_controlBar->update(mnemonicsBeside(isAdded, *this));
    fitButtonBox();
    updateTabOrder();
}

void FileDialogWindow::showAcceptText()
{
    const QString text = acceptText();
    if (!text.isEmpty() && text != labelText(Accept))
        setLabelText(Accept, text);
}

/// Returns the text of the menu's first item, or else the requested label, or else QFileDialog's own text.
QString FileDialogWindow::acceptText() const
{
    const Control* menu = m_controls.acceptMenu();
    const ControlItem* first = menu && isShown(menu->state) ? firstItem(*menu) : nullptr;
    if (first && isShown(first->state))
        return first->text;
    return m_request.acceptLabel.isEmpty() ? m_plainAcceptText : m_request.acceptLabel;
}

void FileDialogWindow::updateTabOrder()
{
    // The button box precedes the file types in the focus chain, and its focus proxy is its first button. Tab would go
    // from the box to that button and skip the types.
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
    // The root path of the model is empty while the dialog shows the list of all drives, which is not a folder.
    if (isDrawnByQt())
        return m_model->rootPath().isEmpty() ? QDir::rootPath() : m_model->rootPath();
    return directory().absolutePath();
}

void FileDialogWindow::setFolder(const QString& folder)
{
    setDirectory(folder);
    reportFolder(); // Not every desktop reports a folder that the program has set.
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
    // A desktop's dialog may report only existing files, or no files until the user accepts.
    return names.isEmpty() ? m_request.fileName : fileNameText(names);
}

void FileDialogWindow::setFileName(const QString& text)
{
    const QFileInfo info(text);
    const bool otherFolder = info.isAbsolute() && info.dir().exists();
    if (otherFolder)
        setFolder(info.path());
    const QString shown = otherFolder ? info.fileName() : text;
    if (isDrawnByQt()) {
        // QFileDialog would append the files that are selected in the list to the text.
        m_selection->clear();
        m_fileNameEdit->setText(shown);
        return;
    }
    for (const QString& name : namesIn(shown))
        selectFile(QDir(folder()).filePath(name)); // A relative name would refer to the initial folder.
}

/// Filters the list by a pattern that the user typed as the name. The pattern applies until a file type is picked or
/// set; the selected type does not change. Returns false if the name is not a pattern.
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

// File types

int FileDialogWindow::fileType() const
{
    if (m_request.types.isEmpty())
        return m_request.type;
    if (isDrawnByQt())
        return m_request.types.validIndex(m_fileTypeCombo->currentIndex());
    return m_request.types.indexOfFilter(selectedNameFilter(), m_reportedType);
}

void FileDialogWindow::setFileType(int type)
{
    m_request.type = type;
    showTypes();
}

/// Selects the requested type without reporting it. The system's dialog does report the type when it opens, upon which
/// an application that replaces the extension would change a name that the user has not edited.
void FileDialogWindow::showTypes()
{
    if (m_request.types.isEmpty())
        return;
    m_reportedType = m_request.types.validIndex(m_request.type);
    if (!isDrawnByQt()) {
        selectNameFilter(nameFilters().value(m_reportedType));
        return;
    }
    m_fileTypeCombo->setCurrentIndex(m_reportedType);
    useFileType();
}

/// Filters the list by the patterns of the selected type.
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

} // namespace zelmar::internal
