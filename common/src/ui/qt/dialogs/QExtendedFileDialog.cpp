#include "ui/qt/dialogs/QExtendedFileDialog.h"

#include "platform/ApplicationSettings.h"
#include "platform/HelpLauncher.h"
#include "ui/qt/dialogs/ScriptedUser_p.h"
#include "ui/qt/dialogs/qtdialog/FileDialogWidgets_p.h"
#include "ui/qt/dialogs/qtdialog/FolderReadTracker_p.h"
#include "ui/qt/dialogs/qtdialog/addDefaultSidebarPlaces_p.h"
#include "ui/qt/dialogs/qtdialog/closeWithQuestions_p.h"
#include "ui/qt/dialogs/qtdialog/handleTypedNames_p.h"
#include "ui/qt/dialogs/qtdialog/mnemonics_p.h"
#include "ui/qt/dialogs/qtdialog/typedName_p.h"
#include "ui/qt/dialogs/rules/temporaryNameFilter_p.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileInfo>
#include <QFileSystemModel>
#include <QGuiApplication>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QScopeGuard>
#include <QSignalBlocker>
#include <QThread>
#include <QTimer>
#include <QUrl>

#include <optional>
#include <utility>

using zelmar::ApplicationSettings;
using zelmar::HelpLauncher;
using namespace zelmar::internal;

namespace {

/// An arrow on top of the override cursor stack as long as this object exists.
class ArrowCursor
{
public:
    ArrowCursor() { QGuiApplication::setOverrideCursor(Qt::ArrowCursor); }
    ~ArrowCursor() { QGuiApplication::restoreOverrideCursor(); }
    Q_DISABLE_COPY(ArrowCursor)
};

} // namespace

QExtendedFileDialog::QExtendedFileDialog(QWidget& parent, QFileDialog::AcceptMode mode)
    : QFileDialog(&parent, QString(), QString(), QString())
{
    init(mode);
}

QExtendedFileDialog::QExtendedFileDialog(QWidget& parent, const std::string& caption, const std::string& directory,
                                         const std::string& filter, const std::string& helpTopic,
                                         QFileDialog::AcceptMode mode)
    : QExtendedFileDialog(&parent, caption, directory, filter, helpTopic, mode)
{
}

QExtendedFileDialog::QExtendedFileDialog(QWidget* parent, const std::string& caption, const std::string& directory,
                                         const std::string& filter, const std::string& helpTopic,
                                         QFileDialog::AcceptMode mode)
    : QFileDialog(parent, QString::fromStdString(caption), QString::fromStdString(directory),
                  QString::fromStdString(filter))
    , m_helpTopic(helpTopic)
    , m_geometryPersistenceKey("QExtendedFileDialog/Geometry")
{
    init(mode);
    if (!m_helpTopic.empty())
        setHelpAction();
}

QExtendedFileDialog::~QExtendedFileDialog()
{
    releaseQuestions(*this);
    releaseFileNameEdit();
    restoreCursor();
}

/// Lets the file-name box outlive the dialog until control returns to the event loop. The dialog may be deleted by what
/// the Return key in the box has led to, and QLineEdit continues with the key afterwards.
void QExtendedFileDialog::releaseFileNameEdit()
{
    if (QThread::currentThread()->loopLevel() == 0)
        return;
    m_fileNameEdit->setParent(nullptr);
    m_fileNameEdit->deleteLater();
}

void QExtendedFileDialog::init(QFileDialog::AcceptMode mode)
{
    setAcceptMode(mode);
    setFileMode(mode == QFileDialog::AcceptOpen ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
    // The child widgets that are looked up below exist only if Qt draws the dialog.
    setOption(QFileDialog::DontUseNativeDialog, true);

    const FileDialogWidgets widgets(*this);
    m_fileTypeCombo = &widgets.fileTypeCombo();
    m_fileNameEdit = &widgets.fileNameEdit();
    QFileSystemModel& model = widgets.model();
    widgets.relateLabels();

    // The tracker must be connected before the dialog, whose slots use it.
    m_folderReadTracker = new FolderReadTracker(model);
    connect(&model, SIGNAL(directoryLoaded(const QString&)), SLOT(onDirectoryLoaded(const QString&)));
    connect(&model, SIGNAL(rootPathChanged(const QString&)), SLOT(onRootPathChanged(const QString&)));
    handleTypedNames(*this);
}

void QExtendedFileDialog::performSelectedFileValidation(bool on)
{
    m_performSelectedFileValidation = on;
}

void QExtendedFileDialog::setDefaultSize(QSize size)
{
    m_defaultSize = size;
}

void QExtendedFileDialog::setGeometryPersistenceKey(std::string key)
{
    m_geometryPersistenceKey = std::move(key);
}

void QExtendedFileDialog::setDontConfirmOverwrite(bool on)
{
    setOption(QFileDialog::DontConfirmOverwrite, on);
}

void QExtendedFileDialog::setShowDirectoriesOnly(bool on)
{
    setOption(QFileDialog::ShowDirsOnly, on);
}

// Running

void QExtendedFileDialog::show()
{
    prepareToBeSeen();
    prepareToRun();
    QWidget::show();
    saveSizeAndPosition();
}

int QExtendedFileDialog::exec()
{
    if (m_running)
        return Rejected;
    // A dialog that is not shown leaves the stored geometry and the sidebar alone, which belong to the user.
    ScriptedUser* const scriptedUser = ScriptedUser::current();
    if (!scriptedUser)
        prepareToBeSeen();
    prepareToRun();

    // The wait cursor of a folder that is being read already must be above the arrow. Otherwise the end of reading
    // would pop the arrow and leave the wait cursor over an idle dialog.
    const bool reading = m_waitCursorShown;
    restoreCursor();
    const ArrowCursor arrow;
    if (reading)
        showWaitCursor();

    const QPointer<QExtendedFileDialog> self(this);
    m_running = true;
    m_runCancelled = false;
    const auto end = qScopeGuard([self] { endRun(self); });
    const int result = scriptedUser ? scriptedUser->run(*this, *m_fileNameEdit) : QDialog::exec();
    if (!self) // The dialog was deleted, and its destructor has popped the wait cursor.
        return result;
    hide(); // If the application quits, the event loop ends while the window is still on the screen.
    restoreCursor();
    if (!scriptedUser)
        saveSizeAndPosition();
    return m_runCancelled ? int(Rejected) : result;
}

/// Ends exec(), also when an exception leaves it. `dialog` is null if the dialog was deleted meanwhile.
void QExtendedFileDialog::endRun(QExtendedFileDialog* dialog)
{
    if (!dialog)
        return;
    dialog->m_running = false;
    if (dialog->m_deleteAfterRun)
        delete dialog;
}

/// Makes a running exec() return QDialog::Rejected.
void QExtendedFileDialog::cancelRun()
{
    if (!m_running)
        return;
    m_runCancelled = true;
    closeWithQuestions(*this);
}

/// Ends the run of a dialog on the heap that has lost its owner, and deletes the dialog at the end of exec(). It cannot
/// be deleted here, because the caller may be a slot on a signal of QFileDialog, which accesses the dialog afterwards.
void QExtendedFileDialog::cancelRunAndDelete()
{
    m_deleteAfterRun = true;
    cancelRun();
}

/// Cancels the run when the parent is destroyed, and prevents the parent from deleting the dialog. With
/// Outlives::WhileRunning the parent owns the dialog, which must be on the heap: the dialog deletes itself at the end
/// of a run that is in progress, and its parent deletes it otherwise.
void QExtendedFileDialog::outliveParent(Outlives outlives)
{
    if (!parentWidget())
        return;
    connect(parentWidget(), &QObject::destroyed, this, [this, outlives] {
        if (outlives == Outlives::Always)
            cancelRun();
        else if (m_running)
            cancelRunAndDelete();
        else
            return;
        setParent(nullptr, windowFlags());
    });
}

void QExtendedFileDialog::prepareToBeSeen()
{
    restoreSizeAndPosition();
    addSidebarUrls();
}

void QExtendedFileDialog::prepareToRun()
{
    restoreFilters();
    if (!m_helpTopic.empty())
        setHelpAction();
}

// Geometry and sidebar

void QExtendedFileDialog::saveSizeAndPosition()
{
    ApplicationSettings::getInstance().depositValue(m_geometryPersistenceKey, saveGeometry());
}

void QExtendedFileDialog::restoreSizeAndPosition()
{
    const QByteArray geometry = ApplicationSettings::getInstance().getByteArrayValue(m_geometryPersistenceKey);
    if (!geometry.isEmpty())
        restoreGeometry(geometry);
    else if (m_defaultSize.width() >= 1 && m_defaultSize.height() >= 1)
        resize(m_defaultSize);
}

void QExtendedFileDialog::addSidebarUrls()
{
    // A stored geometry means that the dialog was shown before. The user may have edited the sidebar since.
    const bool shownBefore = !ApplicationSettings::getInstance().getByteArrayValue(m_geometryPersistenceKey).isEmpty();
    if (!shownBefore)
        addDefaultSidebarPlaces(*this, QStandardPaths::standardLocations);
}

// Typed patterns

void QExtendedFileDialog::accept()
{
    const QString name = m_fileNameEdit->text();
    const ScriptedUser* const scriptedUser = ScriptedUser::current();
    unselectShownFolder(*this);
    if (name.contains(QLatin1Char('*'))) // Compatibility: question-mark-is-no-pattern
        applyTypedPattern(name);
    else if (!m_performSelectedFileValidation)
        QDialog::accept(); // NOLINT(bugprone-parent-virtual-call): skips QFileDialog's checks
    else if (scriptedUser && scriptedUser->isRunning(*this))
        acceptFiles(*this, selectedFiles());
    else if (!acceptTypedName(*this))
        QFileDialog::accept();
}

QStringList QExtendedFileDialog::selectedFiles() const
{
    return chosenFiles(*this);
}

QList<QUrl> QExtendedFileDialog::selectedUrls() const
{
    const std::optional<QString> name = typedNameWithQuotes(*this);
    return name ? QList<QUrl>{QUrl::fromLocalFile(*name)} : QFileDialog::selectedUrls();
}

void QExtendedFileDialog::applyTypedPattern(const QString& pattern)
{
    QStringList filters = nameFilters();
    if (!temporaryFilterInForce())
        m_originalNameFilters = filters;

    const QString selected = currentNameFilter();
    m_modifiedNameFilter = temporaryNameFilter(selected, pattern);
    const int index = filters.indexOf(selected);
    if (index >= 0)
        filters[index] = m_modifiedNameFilter;
    else // there are no filters
        filters.append(m_modifiedNameFilter);

    {
        const QSignalBlocker blocker(m_fileTypeCombo);
        replaceNameFilters(filters, m_modifiedNameFilter);
    }
    listWhatMatches(pattern);
    // QFileDialog emits this signal after it has applied the filter that the user has picked.
    connect(this, &QFileDialog::filterSelected, this, &QExtendedFileDialog::revertModifiedFilterAndSelect);
}

/// Lists what matches `pattern`. QFileDialog recognises only some characters in the patterns of a name filter, among
/// them neither quotes nor umlauts.
void QExtendedFileDialog::listWhatMatches(const QString& pattern)
{
    FileDialogWidgets(*this).model().setNameFilters(pattern.split(QLatin1Char(' '), Qt::SkipEmptyParts));
}

void QExtendedFileDialog::revertModifiedFilterAndSelect(QString filter) // NOLINT(performance-unnecessary-value-param)
{
    if (m_modifiedNameFilter.isEmpty())
        return;
    if (isTemporaryFilter(filter)) {
        listWhatMatches(patternOf(m_modifiedNameFilter));
        return;
    }
    // Removes one connection for each pattern that was typed since the filters were last restored.
    disconnect(this, &QFileDialog::filterSelected, this, &QExtendedFileDialog::revertModifiedFilterAndSelect);
    restoreFilters();
}

void QExtendedFileDialog::restoreFilters()
{
    if (temporaryFilterInForce())
        replaceNameFilters(m_originalNameFilters, currentNameFilter());
    m_originalNameFilters.clear();
    m_modifiedNameFilter.clear();
}

/// Returns whether the name filters contain the temporary one. They do not if the caller has set new filters since,
/// which must not be replaced by older ones.
bool QExtendedFileDialog::temporaryFilterInForce() const
{
    return !m_modifiedNameFilter.isEmpty() && nameFilters().contains(m_modifiedNameFilter);
}

bool QExtendedFileDialog::isTemporaryFilter(const QString& filter) const
{
    // If the dialog hides the patterns, the file-type box shows only the description, which the replaced filter has,
    // too.
    return filter == m_modifiedNameFilter
           || (testOption(QFileDialog::HideNameFilterDetails) && currentNameFilter() == m_modifiedNameFilter);
}

/// Returns the selected filter as it is in nameFilters(). selectedNameFilter() returns only the description if the
/// dialog hides the patterns.
QString QExtendedFileDialog::currentNameFilter() const
{
    return nameFilters().value(m_fileTypeCombo->currentIndex());
}

/// Replaces the name filters and selects `selected`, or the first filter if `selected` is not among them. Restores the
/// typed name, because in save mode QFileDialog gives it the suffix of each filter that is selected on the way.
void QExtendedFileDialog::replaceNameFilters(const QStringList& filters, const QString& selected)
{
    const QString name = m_fileNameEdit->text();
    setNameFilters(filters);
    if (filters.isEmpty()) // QFileDialog would leave the last filter active in the model.
        FileDialogWidgets(*this).model().setNameFilters({});
    selectNameFilter(selected);
    if (m_fileNameEdit->text() != name)
        m_fileNameEdit->setText(name);
}

// Help

void QExtendedFileDialog::setHelpAction()
{
    QDialogButtonBox& buttonBox = FileDialogWidgets(*this).buttonBox();
    QPushButton* help = buttonBox.button(QDialogButtonBox::Help);
    if (!help) {
        help = buttonBox.addButton(QDialogButtonBox::Help);
        connect(&buttonBox, &QDialogButtonBox::helpRequested, this, &QExtendedFileDialog::launchHelp,
                Qt::UniqueConnection);
    }
    const auto isHelp = [help](const QAbstractButton& button) { return &button == help; };
    help->setText(withAnyFreeMnemonic(help->text(), mnemonicsBeside(isHelp, *this)));
}

void QExtendedFileDialog::launchHelp()
{
    const std::string topic = m_helpTopic; // The help handler may delete the dialog.
    HelpLauncher::getInstance().showHelp(topic);
}

// Cursor

void QExtendedFileDialog::onDirectoryLoaded(const QString& /*path*/)
{
    restoreCursor(); // Compatibility: any-folder-ends-the-wait
}

void QExtendedFileDialog::onRootPathChanged(const QString& newPath)
{
    if (!QFileInfo(newPath).isDir())
        return;
    if (!m_waitCursorShown)
        showWaitCursor();
    // A folder that the model has read before emits no directoryLoaded().
    QTimer::singleShot(0, this, [this] { restoreCursorUnlessReading(); });
}

void QExtendedFileDialog::showWaitCursor()
{
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    m_waitCursorShown = true;
}

void QExtendedFileDialog::restoreCursor()
{
    if (!m_waitCursorShown)
        return;
    m_waitCursorShown = false;
    QGuiApplication::restoreOverrideCursor();
}

void QExtendedFileDialog::restoreCursorUnlessReading()
{
    if (!m_folderReadTracker->rootIsBeingRead())
        restoreCursor();
}
