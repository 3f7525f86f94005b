#pragma once

#include "internal_export_p.h"

#include <QKeySequence>
#include <QSet>
#include <QString>

#include <functional>

class QAbstractButton;
class QFileDialog;

namespace zelmar::internal {

/// Returns `label` without the ampersand of its mnemonic. A doubled ampersand stays.
QString withoutMnemonic(const QString& label);

/// Returns `label` without its mnemonic if `taken` contains the mnemonic, and unchanged otherwise.
COMMON_UI_QT_INTERNAL_EXPORT QString withoutTakenMnemonic(const QString& label, const QSet<QKeySequence>& taken);

/// Returns `label` with a mnemonic that is not in `taken`: with its own mnemonic if that is free, otherwise with its
/// first letter or digit that is free, and without a mnemonic if all are taken.
COMMON_UI_QT_INTERNAL_EXPORT QString withAnyFreeMnemonic(const QString& label, const QSet<QKeySequence>& taken);

/// Returns the mnemonics that the excepted buttons of a Qt-drawn dialog must not have: those of the labels, those of
/// the other buttons in the button box, and that of the label that the accept button may get while a name is typed.
QSet<QKeySequence> mnemonicsBeside(const std::function<bool(const QAbstractButton&)>& isExcepted,
                                   const QFileDialog& dialog);

} // namespace zelmar::internal
