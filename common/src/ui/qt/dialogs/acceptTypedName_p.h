#pragma once

class QFileDialog;

/// Accepts the file that typedNameWithQuotes() returns for a Qt-drawn dialog, with the checks of QFileDialog::accept():
/// enters a folder unless the dialog chooses folders, refuses a missing file if it must exist, and asks before an
/// existing file is replaced. Returns true if it has handled the name. Returns false if there is no such name; the
/// caller then calls QFileDialog::accept().
///
/// The dialog may have been deleted when this function returns true.
bool acceptTypedName(QFileDialog& dialog);
