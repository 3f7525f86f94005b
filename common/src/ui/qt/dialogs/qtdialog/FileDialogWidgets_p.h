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

/// Access to the inside of a file dialog that Qt draws: to its child widgets, and to the reactions of QFileDialog to
/// them. Qt documents neither, and no other code of the library depends on the names of the widgets and slots.
///
/// Another version of Qt may lack a part. The class then logs a warning that names the part and the version, once for
/// each part in a program, and the dialogs work without the part: a missing widget is replaced by a hidden one of the
/// same class, which the user cannot reach and which QFileDialog does not know.
class COMMON_UI_QT_INTERNAL_EXPORT FileDialogWidgets
{
public:
    /// Returns whether Qt draws `dialog`. A dialog that the desktop draws has no widgets.
    static bool existIn(const QFileDialog& dialog);

    /// Keeps a reference to `dialog`, which Qt must draw.
    explicit FileDialogWidgets(const QFileDialog& dialog);

    QLineEdit& fileNameEdit() const;
    QComboBox& fileTypeCombo() const;
    QDialogButtonBox& buttonBox() const;
    /// Returns the Open or Save button. QFileDialog::setAcceptMode() replaces it.
    QPushButton& acceptButton() const;
    QFileSystemModel& model() const;
    /// Returns the folder that the list shows, as a model index of the list's model.
    QModelIndex shownFolder() const;
    /// Returns the selection in the list, whose model is QFileDialog::proxyModel() or model().
    QItemSelectionModel& selection() const;

    /// Relates the labels of the two combo boxes to their boxes, as QFileDialog does for the file-name box only.
    /// Without that, assistive technology knows the boxes by their values alone.
    void relateLabels() const;

    /// Returns the label of the accept button for a typed name that is the name of a folder.
    static QString openLabel();

    /// Calls `select` with each new text of the file-name box. QFileDialog selects the typed files in the list only if
    /// `select` returns false.
    void selectTypedFilesBy(std::function<bool(const QString& text)> select) const;

    /// Makes QFileDialog update the state and the label of the accept button for the typed name. To this end, the
    /// file-name box emits textChanged() again. The selection in the list does not change if selectTypedFilesBy() was
    /// called before.
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
