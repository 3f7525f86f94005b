#pragma once

#include "internal_export_p.h"

#include <QString>
#include <QStringList>

#include <string>
#include <vector>

namespace zelmar::internal {

/// Joins `names` (UTF-8) to the text that selects several files in a file dialog: each name is in double quotes, and a
/// blank follows each one including the last. Skips empty names.
COMMON_UI_QT_INTERNAL_EXPORT std::string quotedNames(const std::vector<std::string>& names);

/// Returns whether the text of a file-name box starts with a quoted name, that is, starts with a double quote and
/// contains another one. Otherwise the double quotes are part of a name.
COMMON_UI_QT_INTERNAL_EXPORT bool startsWithQuotedName(const QString& text);

/// Returns the names that quotedNames() has joined to `text`, also if they contain double quotes. Returns an empty list
/// if `text` does not have that form.
COMMON_UI_QT_INTERNAL_EXPORT QStringList namesOfQuotedText(const QString& text);

/// Returns the content of a file-name box for `names`: a single name unchanged, several names quoted and separated by
/// blanks.
COMMON_UI_QT_SEAM_EXPORT QString fileNameText(const QStringList& names);

/// Returns the names in the content of a file-name box: the quoted names if it begins with one, or else the whole
/// content as one name.
COMMON_UI_QT_INTERNAL_EXPORT QStringList namesIn(const QString& fileNameText);

} // namespace zelmar::internal
