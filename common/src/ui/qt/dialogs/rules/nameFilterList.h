#pragma once

#include "internal_export.h"

#include <QString>
#include <QStringList>

#include <string>
#include <vector>

/// The filters of `joined`, which are separated by ";;", each without blanks around it. Nothing between two separators
/// is no filter; blanks between them are an empty one, because they are taken away last.
COMMON_UI_QT_INTERNAL_EXPORT QStringList splitNameFilters(const QString& joined);

/// `filters` (UTF-8) as one text, separated by ";;".
COMMON_UI_QT_INTERNAL_EXPORT std::string joinNameFilters(const std::vector<std::string>& filters);
