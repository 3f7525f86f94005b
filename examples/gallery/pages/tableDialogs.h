#pragma once

#include "TableFormat.h"

#include <QMessageBox>
#include <QString>

#include <optional>

class QWidget;

namespace gallery {

/// Asks which table to open, and returns its path, or an empty text if the user cancels. The dialog starts at
/// `shownPath`, which may be empty.
QString askForTable(const QString& shownPath);

/// A file and the format in which a table is written to it.
struct TableTarget
{
    QString path;
    const TableFormat* format = nullptr;
};

/// Asks with the save flow where to save the table that was loaded from or saved at `shownPath`. Returns nothing if
/// the user cancels.
std::optional<TableTarget> askWhereToSave(QWidget& window, const QString& shownPath);

/// Asks whether to save the table at `path`, which has edits, and returns Save, Discard or Cancel. Returns Cancel if
/// the window is destroyed meanwhile.
QMessageBox::StandardButton askWhetherToSave(QWidget& window, const QString& path);

} // namespace gallery
