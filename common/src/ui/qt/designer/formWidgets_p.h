#pragma once

class QWidget;

namespace zelmar::internal {

// Each function returns a new widget of a class that is derived from a public class without a meta-object of its own.
// The meta-object of the widget has the name of the public class. Qt Designer saves a widget under this name.

QWidget* createCommandLinkButton(QWidget* parent);
QWidget* createIntegralSpinBox(QWidget* parent);
/// The property "decimals" of the widget calls QScientificSpinBox::setDecimals().
QWidget* createScientificSpinBox(QWidget* parent);

} // namespace zelmar::internal
