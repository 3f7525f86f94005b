#include "ui/qt/dialogs/qtdialog/FileDialogWidgets_p.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFileSystemModel>
#include <QItemSelectionModel>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QScopeGuard>
#include <QSet>

#include <type_traits>
#include <utility>

namespace zelmar::internal {

namespace {

/// The file-name box whose textChanged() is being emitted although its text has not changed, or null.
const QLineEdit* editWithSameText = nullptr;

void warnOnce(const char* part)
{
    static QSet<QByteArray> missing;
    if (missing.contains(part))
        return;
    missing.insert(part);
    qWarning("QFileDialog of Qt %s has no %s. The file dialogs work without it.", qVersion(), part);
}

} // namespace

bool FileDialogWidgets::existIn(const QFileDialog& dialog)
{
    return dialog.layout();
}

FileDialogWidgets::FileDialogWidgets(const QFileDialog& dialog)
    : m_dialog(const_cast<QFileDialog&>(dialog)) // A substitute becomes a child of the dialog.
{
}

/// Returns the child with this name. Adds a substitute if there is none.
template <typename Part>
Part& FileDialogWidgets::part(const char* name) const
{
    if (auto* found = m_dialog.findChild<Part*>(QLatin1String(name)))
        return *found;
    warnOnce(name);
    auto* standIn = new Part(&m_dialog);
    standIn->setObjectName(QLatin1String(name));
    if constexpr (std::is_base_of_v<QDialogButtonBox, Part>)
        standIn->setStandardButtons(QDialogButtonBox::Cancel);
    if constexpr (std::is_base_of_v<QWidget, Part>)
        standIn->hide();
    return *standIn;
}

QLineEdit& FileDialogWidgets::fileNameEdit() const
{
    return part<QLineEdit>("fileNameEdit");
}

QComboBox& FileDialogWidgets::fileTypeCombo() const
{
    return part<QComboBox>("fileTypeCombo");
}

QDialogButtonBox& FileDialogWidgets::buttonBox() const
{
    return part<QDialogButtonBox>("buttonBox");
}

QPushButton& FileDialogWidgets::acceptButton() const
{
    const bool saving = m_dialog.acceptMode() == QFileDialog::AcceptSave;
    auto* button = buttonBox().button(saving ? QDialogButtonBox::Save : QDialogButtonBox::Open);
    return button ? *button : part<QPushButton>("acceptButton");
}

QFileSystemModel& FileDialogWidgets::model() const
{
    return part<QFileSystemModel>("qt_filesystem_model");
}

QListView& FileDialogWidgets::listView() const
{
    auto& view = part<QListView>("listView");
    if (!view.model()) // a substitute
        view.setModel(&model());
    return view;
}

QModelIndex FileDialogWidgets::shownFolder() const
{
    return listView().rootIndex();
}

QItemSelectionModel& FileDialogWidgets::selection() const
{
    return *listView().selectionModel();
}

void FileDialogWidgets::relateLabels() const
{
    part<QLabel>("lookInLabel").setBuddy(&part<QComboBox>("lookInCombo"));
    part<QLabel>("fileTypeLabel").setBuddy(&fileTypeCombo());
}

QString FileDialogWidgets::openLabel()
{
    return QFileDialog::tr("&Open");
}

void FileDialogWidgets::selectTypedFilesBy(std::function<bool(const QString& text)> select) const
{
    const QLineEdit& edit = fileNameEdit();
    if (!QObject::disconnect(&edit, SIGNAL(textChanged(QString)), &m_dialog, SLOT(_q_autoCompleteFileName(QString)))) {
        warnOnce("_q_autoCompleteFileName(QString)");
        return;
    }
    QObject::connect(&edit, &QLineEdit::textChanged, &m_dialog,
                     [&dialog = m_dialog, &edit, select = std::move(select)](const QString& text) {
                         if (editWithSameText != &edit && !select(text))
                             QMetaObject::invokeMethod(&dialog, "_q_autoCompleteFileName", Q_ARG(QString, text));
                     });
}

void FileDialogWidgets::updateAcceptButton() const
{
    QLineEdit& edit = fileNameEdit();
    editWithSameText = &edit;
    const auto end = qScopeGuard([] { editWithSameText = nullptr; });
    Q_EMIT edit.textChanged(edit.text());
}

void FileDialogWidgets::leaveFileTypesToCaller() const
{
    if (!QObject::disconnect(&fileTypeCombo(), qOverload<int>(&QComboBox::activated), &m_dialog, nullptr))
        warnOnce("reaction to a picked file type");
}

} // namespace zelmar::internal
