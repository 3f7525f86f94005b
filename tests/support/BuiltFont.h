#pragma once

#include <QByteArray>
#include <QString>

/// A small TrueType font that is made here, so that no test depends on what a system has, or ships a font: the letters
/// A to Z, each a filled square of 800 of the 1000 units of an em, and an advance of 1000.
///
/// `family` is the name by which QFont finds it; any text.
QByteArray builtFont(const QString& family);
