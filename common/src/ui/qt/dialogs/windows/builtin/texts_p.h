#pragma once

#include "internal_export_p.h"

#include <QKeySequence>
#include <QSet>
#include <QString>
#include <QStringList>

namespace zelmar::internal {

/// Returns the content of a file-name box for `names`: a single name unchanged, several names quoted and separated by
/// blanks.
COMMON_UI_QT_INTERNAL_EXPORT QString fileNameText(const QStringList& names);

/// Returns the names in the content of a file-name box: the quoted names if it begins with one, or else the whole
/// content as one name.
COMMON_UI_QT_INTERNAL_EXPORT QStringList namesIn(const QString& fileNameText);

/// Returns `label` without its mnemonic if `taken` contains the mnemonic. Otherwise returns `label` unchanged and adds
/// its mnemonic, if there is one, to `taken`.
COMMON_UI_QT_INTERNAL_EXPORT QString withFreeMnemonic(const QString& label, QSet<QKeySequence>& taken);

} // namespace zelmar::internal
