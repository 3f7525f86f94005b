#include "ui/qt/dialogs/qtdialog/mnemonics_p.h"

#include "ui/qt/dialogs/qtdialog/FileDialogWidgets_p.h"

#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLabel>
#include <QPushButton>

namespace zelmar::internal {

namespace {
const QLatin1Char ampersand('&');
}

QString withoutMnemonic(const QString& label)
{
    QString result;
    for (int i = 0; i < label.size(); ++i) {
        const bool literal = label.mid(i, 2) == QLatin1String("&&");
        if (literal)
            result += label[i++];
        if (literal || label[i] != ampersand)
            result += label[i];
    }
    return result;
}

QString withoutTakenMnemonic(const QString& label, const QSet<QKeySequence>& taken)
{
    return taken.contains(QKeySequence::mnemonic(label)) ? withoutMnemonic(label) : label;
}

QString withAnyFreeMnemonic(const QString& label, const QSet<QKeySequence>& taken)
{
    const QKeySequence own = QKeySequence::mnemonic(label);
    if (!own.isEmpty() && !taken.contains(own))
        return label;
    QString bare = withoutMnemonic(label);
    for (int i = 0; i < bare.size(); ++i) {
        QString candidate = QString(bare).insert(i, ampersand);
        if (bare.at(i).isLetterOrNumber() && !taken.contains(QKeySequence::mnemonic(candidate)))
            return candidate;
    }
    return bare;
}

QSet<QKeySequence> mnemonicsBeside(const std::function<bool(const QAbstractButton&)>& isExcepted,
                                   const QFileDialog& dialog)
{
    QSet<QKeySequence> taken;
    for (const QLabel* label : dialog.findChildren<QLabel*>())
        taken.insert(QKeySequence::mnemonic(label->text()));
    for (const QAbstractButton* button : FileDialogWidgets(dialog).buttonBox().buttons()) {
        if (!isExcepted(*button))
            taken.insert(QKeySequence::mnemonic(button->text()));
    }
    if (dialog.acceptMode() == QFileDialog::AcceptSave) // The Save button becomes "Open" for the name of a folder.
        taken.insert(QKeySequence::mnemonic(FileDialogWidgets::openLabel()));
    taken.remove(QKeySequence());
    return taken;
}

} // namespace zelmar::internal
