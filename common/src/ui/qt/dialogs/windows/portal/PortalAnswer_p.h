#pragma once

#include "internal_export_p.h"

#include <QMap>
#include <QString>
#include <QStringList>
#include <QVariantMap>

#include <optional>

namespace zelmar::internal {

struct PortalQuestion;

/// The user's choices in a portal's dialog.
struct PortalAnswer
{
    QStringList files;              ///< at least one; absolute paths
    int filter = -1;                ///< an index into the filters of the question, or -1 if the portal names none
    QMap<QString, QString> choices; ///< the values of the question's choices that the portal names
};

/// Reads the results of a portal's dialog that the user has accepted. Ignores choices that were not asked for and
/// values that they do not have. If several filters are equal, prefers the one that was selected in the question.
/// Returns nothing unless every chosen location is a local file with an absolute path.
COMMON_UI_QT_INTERNAL_EXPORT std::optional<PortalAnswer> portalAnswer(const QVariantMap& results,
                                                                      const PortalQuestion& question);

} // namespace zelmar::internal
