#include "ui/qt/dialogs/QExtendedFileDialog.h"

#include "platform/ApplicationSettings.h"
#include "platform/HelpLauncher.h"
#include "ui/qt/dialogs/FolderReadTracker.h"
#include "ui/qt/dialogs/addDefaultSidebarPlaces.h"
#include "ui/qt/dialogs/letAcceptButtonFollowFolder.h"
#include "ui/qt/dialogs/rules/temporaryNameFilter.h"
#include "ui/qt/dialogs/unselectShownFolder.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileInfo>
#include <QFileSystemModel>
#include <QGuiApplication>
#include <QLineEdit>
#include <QListView>
#include <QPointer>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTimer>

#include <utility>

using zelmar::ApplicationSettings;
using zelmar::HelpLauncher;

namespace {

/// An arrow above whatever cursor the program has set.
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
    restoreCursor();
}

void QExtendedFileDialog::init(QFileDialog::AcceptMode mode)
{
    setAcceptMode(mode);
    setFileMode(mode == QFileDialog::AcceptOpen ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
    // The children looked up below are there only when Qt draws the dialog.
    setOption(QFileDialog::DontUseNativeDialog, true);

    m_fileTypeCombo = findChild<QComboBox*>(QStringLiteral("fileTypeCombo"));
    m_fileNameEdit = findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    const auto* listView = findChild<QListView*>(QStringLiteral("listView"));
    auto* model = qobject_cast<QFileSystemModel*>(listView->model());

    // Before the dialog's own connections: its slots ask the tracker.
    m_folderReadTracker = new FolderReadTracker(*model);
    connect(model, SIGNAL(directoryLoaded(const QString&)), SLOT(onDirectoryLoaded(const QString&)));
    connect(model, SIGNAL(rootPathChanged(const QString&)), SLOT(onRootPathChanged(const QString&)));
    letAcceptButtonFollowFolder(*this);
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
    prepareToRun();
    QWidget::show();
    saveSizeAndPosition();
}

int QExtendedFileDialog::exec()
{
    prepareToRun();

    // A folder that is being read already has its wait cursor above the arrow, or the end of reading would take the
    // arrow away and leave the wait cursor over an idle dialog.
    const bool reading = m_waitCursorShown;
    restoreCursor();
    const ArrowCursor arrow;
    if (reading)
        showWaitCursor();

    const QPointer<QExtendedFileDialog> self(this);
    const int result = QDialog::exec();
    // Whoever deletes a running dialog gets its result; the destructor has taken back the wait cursor.
    if (self) {
        restoreCursor();
        saveSizeAndPosition();
    }
    return result;
}

void QExtendedFileDialog::prepareToRun()
{
    restoreSizeAndPosition();
    restoreFilters();
    addSidebarUrls();
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
    // A kept geometry tells that the user has met this dialog before, and may have tidied the sidebar since.
    const bool shownBefore = !ApplicationSettings::getInstance().getByteArrayValue(m_geometryPersistenceKey).isEmpty();
    if (!shownBefore)
        addDefaultSidebarPlaces(*this, QStandardPaths::standardLocations);
}

// Typed patterns

void QExtendedFileDialog::accept()
{
    const QString name = m_fileNameEdit->text();
    unselectShownFolder(*this);
    if (name.contains(QLatin1Char('*')))
        applyTypedPattern(name);
    else if (m_performSelectedFileValidation)
        QFileDialog::accept();
    else
        QDialog::accept(); // NOLINT(bugprone-parent-virtual-call): past QFileDialog's checks
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
    connect(m_fileTypeCombo, SIGNAL(activated(QString)), SLOT(revertModifiedFilterAndSelect(QString)));
}

void QExtendedFileDialog::revertModifiedFilterAndSelect(QString filter) // NOLINT(performance-unnecessary-value-param)
{
    if (m_modifiedNameFilter.isEmpty() || isTemporaryFilter(filter))
        return;
    // Once for all connections that patterns typed one after the other have made.
    disconnect(m_fileTypeCombo, SIGNAL(activated(QString)), this, SLOT(revertModifiedFilterAndSelect(QString)));
    restoreFilters();
}

void QExtendedFileDialog::restoreFilters()
{
    if (temporaryFilterInForce())
        replaceNameFilters(m_originalNameFilters, currentNameFilter());
    m_originalNameFilters.clear();
    m_modifiedNameFilter.clear();
}

/// False also when the caller has set filters of its own since: those are not to be replaced by older ones.
bool QExtendedFileDialog::temporaryFilterInForce() const
{
    return !m_modifiedNameFilter.isEmpty() && nameFilters().contains(m_modifiedNameFilter);
}

bool QExtendedFileDialog::isTemporaryFilter(const QString& filter) const
{
    // The box of a dialog that hides its patterns shows the bare description, which the replaced filter has too.
    return filter == m_modifiedNameFilter
           || (testOption(QFileDialog::HideNameFilterDetails) && currentNameFilter() == m_modifiedNameFilter);
}

/// The selected filter as it is in nameFilters(). selectedNameFilter() is the bare description in a dialog that hides
/// its patterns.
QString QExtendedFileDialog::currentNameFilter() const
{
    return nameFilters().value(m_fileTypeCombo->currentIndex());
}

/// Replaces the filters and selects `selected`, or the first one if it is not among them. In save mode QFileDialog
/// gives the typed name the suffix of each filter that is selected on the way; here the name stays as it is.
void QExtendedFileDialog::replaceNameFilters(const QStringList& filters, const QString& selected)
{
    const QString name = m_fileNameEdit->text();
    setNameFilters(filters);
    if (filters.isEmpty()) // QFileDialog would leave the last filter active in the list
        findChild<QFileSystemModel*>(QStringLiteral("qt_filesystem_model"))->setNameFilters({});
    selectNameFilter(selected);
    if (m_fileNameEdit->text() != name)
        m_fileNameEdit->setText(name);
}

// Help

void QExtendedFileDialog::setHelpAction()
{
    auto* buttonBox = findChild<QDialogButtonBox*>(QStringLiteral("buttonBox"));
    if (buttonBox->button(QDialogButtonBox::Help))
        return;
    buttonBox->addButton(QDialogButtonBox::Help);
    connect(buttonBox, SIGNAL(helpRequested()), this, SLOT(launchHelp()), Qt::UniqueConnection);
}

void QExtendedFileDialog::launchHelp()
{
    HelpLauncher::getInstance().showHelp(m_helpTopic);
}

// Cursor

void QExtendedFileDialog::onDirectoryLoaded(const QString& /*path*/)
{
    restoreCursor();
}

void QExtendedFileDialog::onRootPathChanged(const QString& newPath)
{
    if (!QFileInfo(newPath).isDir())
        return;
    if (!m_waitCursorShown)
        showWaitCursor();
    // A folder that the model knows already is shown without being read, and nothing will tell of its end.
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
