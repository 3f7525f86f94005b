#pragma once

#include "internal_export_p.h"

#include <QString>

namespace zelmar::internal {

/// The reason why a file cannot be saved under a name, as far as the name alone determines it. Access rights and free
/// space are not checked.
struct NameProblem
{
    enum class Kind {
        None,
        TooLong,       ///< the last component of the path is longer than the file system allows
        MissingFolder, ///< a folder of the path does not exist
        NotAFolder,    ///< a component of the path that should be a folder is a file
    };

    Kind kind = Kind::None;
    QString folder; ///< for MissingFolder and NotAFolder: the first such component, as a path
    int limit = 0;  ///< for TooLong: the greatest allowed length in bytes; on Windows in UTF-16 code units
};

/// Returns the problem of saving to `path`, which must be absolute. Accesses the file system a few times.
COMMON_UI_QT_INTERNAL_EXPORT NameProblem problemOfSavingTo(const QString& path);

/// Returns a sentence in plain text that explains `problem` to the user. Empty for Kind::None.
COMMON_UI_QT_INTERNAL_EXPORT QString explanationOf(const NameProblem& problem);

} // namespace zelmar::internal
