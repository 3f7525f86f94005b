#pragma once

class QAction;
class QPushButton;

namespace gallery {

/// Creates a button that triggers the action and follows its state. The button shows the icon text of the action, and
/// its tool tip also tells the first shortcut.
QPushButton* makeActionButton(QAction& action);

} // namespace gallery
