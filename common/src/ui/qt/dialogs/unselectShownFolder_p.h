#pragma once

class QFileDialog;

/// Deselects the folder that a Qt-drawn dialog shows if there is a name in the file-name box. Call this function before
/// the dialog is accepted.
///
/// Qt selects the shown folder when the box is cleared, and in some orders of configuration it stays selected while a
/// name is typed. The name would then be ignored, and the dialog would stay open for the folder.
void unselectShownFolder(QFileDialog& dialog);
