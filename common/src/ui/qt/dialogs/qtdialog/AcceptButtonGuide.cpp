#include "ui/qt/dialogs/qtdialog/AcceptButtonGuide_p.h"

#include "ui/qt/dialogs/qtdialog/nameProblem_p.h"
#include "ui/qt/dialogs/qtdialog/typedName_p.h"

#include <QCoreApplication>
#include <QEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QFileSystemModel>
#include <QItemSelectionModel>
#include <QLineEdit>
#include <QPushButton>
#include <QTextDocument>

namespace zelmar::internal {

namespace {

/// Returns whether the typed name determines the file that the dialog would choose. This is not so if a file is
/// selected in the list or if the name is a pattern.
bool choosesByTypedName(const QFileDialog& dialog)
{
    if (!FileDialogWidgets::existIn(dialog))
        return false;
    const FileDialogWidgets widgets(dialog);
    const QString name = widgets.fileNameEdit().text();
    return !name.isEmpty() && !name.contains(QLatin1Char('*')) && widgets.selection().selectedRows().isEmpty();
}

/// Returns the problem of saving to the typed name. Returns no problem if this name does not determine a new file.
NameProblem problemOfNewName(const QFileDialog& dialog)
{
    if (dialog.fileMode() != QFileDialog::AnyFile || !choosesByTypedName(dialog))
        return {};
    const QString file = chosenFiles(dialog).value(0);
    return file.isEmpty() || QFileInfo::exists(file) ? NameProblem() : problemOfSavingTo(file);
}

/// Returns why a dialog that accepts only existing files refuses the typed name.
QString problemOfExistingName(const QFileDialog& dialog)
{
    for (const QString& file : chosenFiles(dialog)) {
        if (!QFileInfo::exists(file))
            return QCoreApplication::translate("common_ui_qt", "%1 does not exist.").arg(QFileInfo(file).fileName());
    }
    return {};
}

QString asToolTip(const QString& plainText)
{
    return Qt::mightBeRichText(plainText) ? QStringLiteral("<p>%1</p>").arg(plainText.toHtmlEscaped()) : plainText;
}

} // namespace

void WidgetNote::show(QWidget* widget, const QString& text)
{
    if (m_widget && m_widget == widget && m_widget->accessibleDescription() == text)
        return;
    end();
    if (!widget || text.isEmpty())
        return;
    m_widget = widget;
    m_ownToolTip = widget->toolTip();
    m_ownDescription = widget->accessibleDescription();
    m_shownToolTip = asToolTip(text);
    m_shownDescription = text;
    widget->setToolTip(m_shownToolTip);
    widget->setAccessibleDescription(m_shownDescription);
}

void WidgetNote::end()
{
    // Keeps texts that the application has set meanwhile.
    if (m_widget && m_widget->toolTip() == m_shownToolTip)
        m_widget->setToolTip(m_ownToolTip);
    if (m_widget && m_widget->accessibleDescription() == m_shownDescription)
        m_widget->setAccessibleDescription(m_ownDescription);
    m_widget.clear();
}

AcceptButtonGuide::AcceptButtonGuide(QFileDialog& dialog)
    : QObject(&dialog)
    , m_dialog(dialog)
    , m_widgets(dialog)
{
    connect(&m_widgets.fileNameEdit(), &QLineEdit::textChanged, this, &AcceptButtonGuide::update);
    const QItemSelectionModel& selection = m_widgets.selection();
    connect(&selection, &QItemSelectionModel::selectionChanged, this, &AcceptButtonGuide::update);
    connect(&selection, &QItemSelectionModel::currentChanged, this, &AcceptButtonGuide::update);
    const QFileSystemModel& model = m_widgets.model();
    connect(&model, &QFileSystemModel::rootPathChanged, this, &AcceptButtonGuide::update);
    connect(&model, &QFileSystemModel::directoryLoaded, this, &AcceptButtonGuide::followFolder);
    connect(&model, &QFileSystemModel::layoutChanged, this, &AcceptButtonGuide::followFolder);
    connect(&model, &QFileSystemModel::rowsInserted, this, &AcceptButtonGuide::followFolder);
    connect(&model, &QFileSystemModel::rowsRemoved, this, &AcceptButtonGuide::followFolder);
    dialog.installEventFilter(this);
}

bool AcceptButtonGuide::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == &m_dialog && event->type() == QEvent::Show)
        update(); // The caller may have changed the accept mode or the file mode.
    return QObject::eventFilter(watched, event);
}

void AcceptButtonGuide::followFolder()
{
    if (waitsForFile())
        m_widgets.updateAcceptButton(); // The file-name box emits textChanged(), and its slot calls update().
    else
        update();
}

/// Returns whether the Open button is disabled although the file-name box contains a name. In all other cases the
/// button is up to date, and another update of QFileDialog would replace its label.
bool AcceptButtonGuide::waitsForFile() const
{
    return m_dialog.acceptMode() == QFileDialog::AcceptOpen && !m_widgets.acceptButton().isEnabled()
           && !m_widgets.fileNameEdit().text().isEmpty();
}

void AcceptButtonGuide::update()
{
    QPushButton& button = m_widgets.acceptButton();
    enableForQuotedName(button);
    if (typedNameIsTooLong(m_dialog))
        button.setEnabled(false);
    const QString text = problem(button);
    m_buttonNote.show(&button, text);
    m_editNote.show(&m_widgets.fileNameEdit(), text);
}

void AcceptButtonGuide::enableForQuotedName(QPushButton& button)
{
    const std::optional<QString> name = typedNameWithQuotes(m_dialog);
    const bool wordedForFolder = button.text() == FileDialogWidgets::openLabel();
    if (!wordedForFolder)
        m_plainText = button.text();
    if (!name)
        return;
    const QFileInfo file(*name);
    button.setEnabled(file.exists() || m_dialog.fileMode() == QFileDialog::AnyFile);
    // QFileDialog has changed the label to "Open" if the text between the quotes is the name of a folder.
    if (wordedForFolder && m_dialog.acceptMode() == QFileDialog::AcceptSave && !file.isDir() && !m_plainText.isEmpty())
        button.setText(m_plainText);
}

QString AcceptButtonGuide::problem(const QPushButton& button) const
{
    if (m_dialog.fileMode() == QFileDialog::AnyFile)
        return explanationOf(problemOfNewName(m_dialog));
    return !button.isEnabled() && choosesByTypedName(m_dialog) ? problemOfExistingName(m_dialog) : QString();
}

bool typedNameIsTooLong(const QFileDialog& dialog)
{
    return problemOfNewName(dialog).kind == NameProblem::Kind::TooLong;
}

} // namespace zelmar::internal
