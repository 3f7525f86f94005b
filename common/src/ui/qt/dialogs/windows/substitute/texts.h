#pragma once

#include "internal_export.h"
#include "ui/qt/dialogs/windows/substitute/types.h"

#include <QKeySequence>
#include <QSet>
#include <QString>
#include <QStringList>

/// `text`, and an empty one for null.
inline QString textOf(LPCWSTR text)
{
    return text ? QString::fromWCharArray(text) : QString();
}

/// What a file-name box shows for `names`: one as it is, several in quotes with a blank between them.
COMMON_UI_QT_INTERNAL_EXPORT QString fileNameText(const QStringList& names);

/// The names that the text of a file-name box stands for: those in quotes, or all of it.
COMMON_UI_QT_INTERNAL_EXPORT QStringList namesIn(const QString& fileNameText);

/// `label` as it may be shown beside labels that use the mnemonics `taken`: without its own where that is one of them.
/// Otherwise its own is taken from then on.
COMMON_UI_QT_INTERNAL_EXPORT QString withFreeMnemonic(const QString& label, QSet<QKeySequence>& taken);
