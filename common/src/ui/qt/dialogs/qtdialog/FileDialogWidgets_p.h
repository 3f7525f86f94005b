#pragma once

#include "internal_export_p.h"

#include <QModelIndex>
#include <QString>

#include <functional>

class QComboBox;
class QDialogButtonBox;
class QFileDialog;
class QFileSystemModel;
class QItemSelectionModel;
class QLineEdit;
class QListView;
class QPushButton;

namespace zelmar::internal {

/// The inside of a file dialog that Qt draws: its widgets, and how QFileDialog reacts to them. Qt does not document
/// either, and no other code depends on the names.
///
/// Another version of Qt may lack a part. The class then logs a warning that names the part and the version, once for
/// each part in a program, and the dialogs work without it: a missing widget is replaced by a hidden one of the same
/// class, which the user cannot reach and QFileDialog does not know.
class COMMON_UI_QT_INTERNAL_EXPORT FileDialogWidgets
{
public:
    /// Returns whether Qt draws `dialog`. A dialog that the desktop draws has no widgets.
    static bool existIn(const QFileDialog& dialog);

    /// Borrows `dialog`, which Qt must draw.
    explicit FileDialogWidgets(const QFileDialog& dialog);

    QLineEdit& fileNameEdit() const;
    QComboBox& fileTypeCombo() const;
    QDialogButtonBox& buttonBox() const;
    /// Returns the Open or Save button. QFileDialog::setAcceptMode() replaces it.
    QPushButton& acceptButton() const;
    QFileSystemModel& model() const;
    /// Returns the folder that the list shows as an index of the list's model.
    QModelIndex shownFolder() const;
    /// Returns the selection in the list, whose model is QFileDialog::proxyModel() or model().
    QItemSelectionModel& selection() const;

    /// Returns the label of the accept button for a typed name that is the name of a folder.
    static QString openLabel();

    /// Calls `select` with each new text of the file-name box. QFileDialog selects the typed files in the list only if
    /// `select` returns false.
    void selectTypedFilesBy(std::function<bool(const QString& text)> select) const;

    /// Makes QFileDialog decide again whether the accept button is enabled for the typed name, and label it. The box
    /// emits textChanged() again for this. The selection in the list stays as it is if selectTypedFilesBy() was called.
    void updateAcceptButton() const;

    /// Stops QFileDialog from applying the file type that the user picks. It emits filterSelected() as before.
    void leaveFileTypesToCaller() const;

private:
    template <typename Part>
    Part& part(const char* name) const;
    QListView& listView() const;

    QFileDialog& m_dialog;
};

} // namespace zelmar::internal
