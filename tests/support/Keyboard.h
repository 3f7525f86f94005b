#pragma once

class QWidget;

/// Whether key presses go to `window`. If not, asks the window manager for it, as a user does with a click: when a
/// dialog closes, it is free to give the keyboard to any window of the program. Also lets Qt know when they do again: a
/// window that is shown anew before any other was active never lost the keyboard as far as the window system is
/// concerned, and so is not activated.
bool hasKeyboard(QWidget& window);

/// Gives the keyboard focus to `widget` and waits until it has it: activation is the window manager's to grant, and
/// comes later. A warning, and so a failed test, when it does not come.
void takeKeyboardFocus(QWidget& widget);
