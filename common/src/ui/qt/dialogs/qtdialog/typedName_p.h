#pragma once

#include "internal_export_p.h"

#include <QString>
#include <QStringList>

#include <optional>

class QFileDialog;

namespace zelmar::internal {

// QFileDialog splits the text of its file-name box at double quotes even if it accepts a single name only: it would
// save `run 12" pipe` as ` pipe`. These functions read the box of a Qt-drawn dialog like QFileDialog, except that a
// double quote is part of the name if the text is a single name. The text is a single name
//
// - always if a file is saved;
// - if several files may be chosen: if the text does not start with a quoted name, and either has an odd number of
//   double quotes or is the name of an existing file;
// - otherwise: if the text does not start with a quoted name, or if a file exists whose name is the whole text.

/// Returns the absolute path of the file whose name is the text of the box, including its double quotes. Returns
/// nothing if QFileDialog reads the text correctly, or uses the selection in the list instead of the text.
COMMON_UI_QT_INTERNAL_EXPORT std::optional<QString> typedNameWithQuotes(const QFileDialog& dialog);

/// Returns the same for `text`, regardless of the selection in the list.
std::optional<QString> nameWithQuotesIn(const QFileDialog& dialog, const QString& text);

/// Returns what QFileDialog::selectedFiles() would return if it read the text like these functions. May also be called
/// for a dialog that the desktop draws.
COMMON_UI_QT_INTERNAL_EXPORT QStringList chosenFiles(const QFileDialog& dialog);

} // namespace zelmar::internal
