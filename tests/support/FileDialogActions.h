#pragma once

#include <QFileDialog>
#include <QString>

class QComboBox;
class QLineEdit;

/// What a user does in a file dialog drawn by Qt, with the keyboard.

QLineEdit& fileNameEdit(QFileDialog& dialog);
QComboBox& fileTypeCombo(QFileDialog& dialog);

/// Puts the focus into the file-name box and types `name` over what is there. Without the focus, a selection in the
/// list would write over it.
void typeName(QFileDialog& dialog, const QString& name);

/// Presses Return in the file-name box.
void pressReturn(QFileDialog& dialog);

/// Types `name` and presses Return.
void acceptName(QFileDialog& dialog, const QString& name);

/// Picks the filter at `index` (from 0) in the list of the file-type box.
void pickFilter(QFileDialog& dialog, int index);

/// Presses Escape.
void cancel(QFileDialog& dialog);
