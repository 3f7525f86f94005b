#include "FileDialogActions.h"

#include "Keyboard.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QLineEdit>
#include <QTest>

QLineEdit& fileNameEdit(QFileDialog& dialog)
{
    return *dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
}

QComboBox& fileTypeCombo(QFileDialog& dialog)
{
    return *dialog.findChild<QComboBox*>(QStringLiteral("fileTypeCombo"));
}

void typeName(QFileDialog& dialog, const QString& name)
{
    QLineEdit& edit = fileNameEdit(dialog);
    takeKeyboardFocus(edit);
    edit.selectAll();
    QTest::keyClick(&edit, Qt::Key_Delete);
    for (const QChar character : name) // not keyClicks(), which supports only Latin-1
        QTest::sendKeyEvent(QTest::Click, &edit, Qt::Key_unknown, QString(character), Qt::NoModifier);
}

void pressReturn(QFileDialog& dialog)
{
    QTest::keyClick(&fileNameEdit(dialog), Qt::Key_Return);
}

void acceptName(QFileDialog& dialog, const QString& name)
{
    typeName(dialog, name);
    pressReturn(dialog);
}

void pickFilter(QFileDialog& dialog, int index)
{
    QComboBox& combo = fileTypeCombo(dialog);
    combo.showPopup();
    combo.view()->setCurrentIndex(combo.model()->index(index, combo.modelColumn()));
    QTest::keyClick(combo.view(), Qt::Key_Return);
}

void cancel(QFileDialog& dialog)
{
    QTest::keyClick(&dialog, Qt::Key_Escape);
}
