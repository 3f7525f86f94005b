#pragma once

class QWidget;

/// Returns whether `window` receives key presses. If it does not, asks the window manager to activate it, as a click by
/// the user would, because the window manager may activate any window of the program after a dialog has closed.
///
/// Also activates the window in Qt if it was hidden and shown again before another window became active. The window
/// system then sees no change of the keyboard focus and sends no activation event.
bool hasKeyboard(QWidget& window);

/// Gives the keyboard focus to `widget` and waits until the window manager has activated its window. Logs a warning,
/// which fails the test, if that does not happen in time.
void takeKeyboardFocus(QWidget& widget);
