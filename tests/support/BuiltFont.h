#pragma once

#include <QByteArray>
#include <QString>

/// Returns a small generated TrueType font, so that the tests neither depend on installed fonts nor ship one. It
/// contains the letters A to Z, each a filled square of 800 units with an advance of 1000 units, in an em of 1000
/// units.
///
/// `family` is the name by which QFont finds the font; any text is allowed.
QByteArray builtFont(const QString& family);
