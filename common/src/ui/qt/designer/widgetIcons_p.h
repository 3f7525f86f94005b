#pragma once

class QIcon;
class QPainter;
class QPalette;

namespace zelmar::internal {

/// Draws an icon in a square of 22 by 22 units, with the colours of `palette`.
using DrawIcon = void (*)(QPainter& painter, const QPalette& palette);

void drawElidedText(QPainter& painter, const QPalette& palette);
void drawFilteredChoice(QPainter& painter, const QPalette& palette);
void drawCommandLink(QPainter& painter, const QPalette& palette);
void drawInteger(QPainter& painter, const QPalette& palette);
void drawScientificNumber(QPainter& painter, const QPalette& palette);

/// Returns the icon in the usual sizes, in the colours of the application's palette.
QIcon drawnIcon(DrawIcon draw);

} // namespace zelmar::internal
