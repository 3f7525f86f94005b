#include "darkPalette.h"

namespace gallery {

QPalette darkPalette()
{
    const QColor ground(45, 45, 48);
    const QColor field(30, 30, 32);
    const QColor text(230, 230, 230);
    const QColor faint(130, 130, 130);
    const QColor accent(75, 140, 215);

    // This constructor derives the other shades of buttons and frames from the background.
    QPalette palette(ground);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText}) {
        palette.setColor(role, text);
        palette.setColor(QPalette::Disabled, role, faint);
    }
    palette.setColor(QPalette::Base, field);
    palette.setColor(QPalette::AlternateBase, ground);
    palette.setColor(QPalette::ToolTipBase, field);
    palette.setColor(QPalette::PlaceholderText, faint);
    palette.setColor(QPalette::BrightText, Qt::white);
    palette.setColor(QPalette::Highlight, accent.darker(130));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, accent.lighter(130));
    palette.setColor(QPalette::LinkVisited, accent.lighter(110));
    return palette;
}

} // namespace gallery
