#include "ui/qt/dialogs/windows/substitute/texts.h"

namespace {

const QLatin1Char quote('"');
const QLatin1Char ampersand('&');

QString withoutMnemonic(const QString& label)
{
    QString result;
    for (int i = 0; i < label.size(); ++i) {
        const bool literal = label.midRef(i, 2) == QLatin1String("&&");
        if (literal)
            result += label[i++];
        if (literal || label[i] != ampersand)
            result += label[i];
    }
    return result;
}

} // namespace

QString fileNameText(const QStringList& names)
{
    if (names.size() < 2)
        return names.value(0);
    return quote + names.join(QStringLiteral("\" \"")) + quote;
}

QStringList namesIn(const QString& fileNameText)
{
    // One quote alone is a letter of a name.
    if (!fileNameText.startsWith(quote) || fileNameText.count(quote) < 2)
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
