#include "makeActionButton.h"

#include <QAction>
#include <QPushButton>

namespace gallery {

namespace {

void showAction(QPushButton& button, const QAction& action)
{
    button.setText(action.iconText());
    button.setToolTip(
        QPushButton::tr("%1 (%2)").arg(action.toolTip(), action.shortcut().toString(QKeySequence::NativeText)));
    button.setEnabled(action.isEnabled());
}

} // namespace

QPushButton* makeActionButton(QAction& action)
{
    auto* button = new QPushButton;
    button->setFocusPolicy(Qt::TabFocus); // A click takes nothing from a cell that is being edited.
    showAction(*button, action);
    QObject::connect(&action, &QAction::changed, button, [button, &action] { showAction(*button, action); });
    QObject::connect(button, &QPushButton::clicked, &action, &QAction::trigger);
    return button;
}

} // namespace gallery
