#include "ui/qt/dialogs/windows/builtin/texts_p.h"

#include "ui/qt/dialogs/qtdialog/mnemonics_p.h"
#include "ui/qt/dialogs/rules/quotedNames_p.h"

namespace zelmar::internal {

namespace {

const QLatin1Char quote('"');

} // namespace

QString fileNameText(const QStringList& names)
{
    if (names.size() < 2)
        return names.value(0);
    return quote + names.join(QStringLiteral("\" \"")) + quote;
}

QStringList namesIn(const QString& fileNameText)
{
    // A single quote character is part of a name.
    if (!startsWithQuotedName(fileNameText))
        return fileNameText.isEmpty() ? QStringList() : QStringList(fileNameText);
    QStringList names;
    const QStringList parts = fileNameText.split(quote);
    for (int i = 1; i < parts.size(); i += 2)
        names += parts[i];
    names.removeAll(QString());
    return names;
}

QString withFreeMnemonic(const QString& label, QSet<QKeySequence>& taken)
{
    const QKeySequence mnemonic = QKeySequence::mnemonic(label);
    if (mnemonic.isEmpty())
        return label;
    if (taken.contains(mnemonic))
        return withoutMnemonic(label);
    taken.insert(mnemonic);
    return label;
}

} // namespace zelmar::internal
