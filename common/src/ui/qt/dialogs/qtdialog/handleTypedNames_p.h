#pragma once

#include "internal_export_p.h"

#include <QStringList>

class QFileDialog;

// These functions extend how a Qt-drawn dialog handles the name in its file-name box. Double quotes in the name have
// the meaning that typedName_p.h describes.

namespace zelmar::internal {

/// Extends `dialog`, which Qt must draw. Call this function once for each dialog.
///
/// - The typed file is selected in the list as QFileDialog does it, but with this meaning of double quotes. QFileDialog
///   would select, and later choose, the files whose names are between the quotes.
/// - The accept button follows the name and the shown folder, see AcceptButtonGuide.
/// - The list of completions is hidden when another folder is shown or the dialog is hidden. It is a separate window,
///   which would stay open after Return is pressed in the box.
COMMON_UI_QT_INTERNAL_EXPORT void handleTypedNames(QFileDialog& dialog);

/// Deselects the folder that the dialog shows if there is a name in the file-name box. Call this function before the
/// dialog is accepted. Does nothing for a dialog that the desktop draws.
///
/// Qt selects the shown folder when the box is cleared. Depending on the order in which the dialog was set up, the
/// folder stays selected while a name is typed. QFileDialog would then ignore the name and stay open for the folder.
void unselectShownFolder(QFileDialog& dialog);

/// Handles a typed name that QFileDialog::accept() would handle wrongly. Does nothing if the name for a new file is too
/// long, see typedNameIsTooLong(). Accepts the file that typedNameWithQuotes() returns with the checks of
/// QFileDialog::accept(): enters a folder unless the dialog chooses folders, refuses a missing file if it must exist,
/// and asks before an existing file is replaced.
///
/// Returns true if it has handled the name; the dialog may have been deleted then. Otherwise the caller calls
/// QFileDialog::accept().
bool acceptTypedName(QFileDialog& dialog);

/// Emits the signals for the chosen files and accepts the dialog without a check. The dialog may have been deleted when
/// this function returns.
void acceptFiles(QFileDialog& dialog, const QStringList& files);

} // namespace zelmar::internal
