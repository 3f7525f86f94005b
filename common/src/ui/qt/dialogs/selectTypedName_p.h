#pragma once

class QFileDialog;

/// Makes a Qt-drawn dialog select the typed file in the list like QFileDialog, but with the meaning of double quotes
/// that typedName_p.h describes. QFileDialog would select, and then choose, the files whose names are between the
/// quotes. Call this function once for each dialog.
void selectTypedName(QFileDialog& dialog);
