#pragma once

#include <QFileDialog>
#include <QString>

class QComboBox;
class QLineEdit;

/// Keyboard actions of a user in a Qt-drawn file dialog.

QLineEdit& fileNameEdit(QFileDialog& dialog);
QComboBox& fileTypeCombo(QFileDialog& dialog);

/// Sets the focus to the file name edit and replaces its text by `name`. Without the focus, a selection in the list
/// would overwrite the text.
void typeName(QFileDialog& dialog, const QString& name);

/// Presses Return in the file name edit.
void pressReturn(QFileDialog& dialog);

/// Types `name` and presses Return.
void acceptName(QFileDialog& dialog, const QString& name);

/// Selects the name filter with the 0-based `index` in the file type combo box.
void pickFilter(QFileDialog& dialog, int index);

/// Presses Escape.
void cancel(QFileDialog& dialog);
