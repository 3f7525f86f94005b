#pragma once

#include <QFileDialog>
#include <QString>
#include <QStringList>

#include <functional>

class QAbstractButton;
class QComboBox;
class QLineEdit;
class QMenu;
class QPushButton;
class QToolButton;

/// The parts of a Qt-drawn file dialog that a user sees, and the actions of the user at the keyboard.

QLineEdit& fileNameEdit(QFileDialog& dialog);
QComboBox& fileTypeCombo(QFileDialog& dialog);

/// Returns the Open or Save button.
QPushButton& acceptButton(QFileDialog& dialog);

/// Returns the button that opens the menu of the accept button.
QToolButton& acceptMenuArrow(QFileDialog& dialog);

/// Returns the first button with the label `text`, or null if there is none.
QAbstractButton* buttonNamed(QFileDialog& dialog, const QString& text);

/// Returns the names in the list in the order in which the user sees them.
QStringList listedNamesInOrder(const QFileDialog& dialog);

/// Returns the names in the list in alphabetical order.
QStringList listedNames(const QFileDialog& dialog);

/// Selects the file `name` in the list by typing its name there.
void selectInList(QFileDialog& dialog, const QString& name);

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

/// Calls `action` in the event loop of the menu that is about to open.
void whenMenuIsOpen(const std::function<void(QMenu&)>& action);

/// Picks the item at `row` (from 0) of the menu that is about to open, with the Down and Return keys.
void pickFromMenu(int row);
