#include "FileDialogActions.h"

#include "Keyboard.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QToolButton>
#include <QTreeView>

QLineEdit& fileNameEdit(QFileDialog& dialog)
{
    return *dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
}

QComboBox& fileTypeCombo(QFileDialog& dialog)
{
    return *dialog.findChild<QComboBox*>(QStringLiteral("fileTypeCombo"));
}

QPushButton& acceptButton(QFileDialog& dialog)
{
    const auto kind = dialog.acceptMode() == QFileDialog::AcceptSave ? QDialogButtonBox::Save : QDialogButtonBox::Open;
    return *dialog.findChild<QDialogButtonBox*>(QStringLiteral("buttonBox"))->button(kind);
}

QToolButton& acceptMenuArrow(QFileDialog& dialog)
{
    return *dialog.findChild<QToolButton*>(QStringLiteral("acceptMenuArrow"));
}

QAbstractButton* buttonNamed(QFileDialog& dialog, const QString& text)
{
    for (auto* button : dialog.findChildren<QAbstractButton*>()) {
        if (button->text() == text)
            return button;
    }
    return nullptr;
}

QStringList listedNamesInOrder(const QFileDialog& dialog)
{
    const auto* list = dialog.findChild<QListView*>(QStringLiteral("listView"));
    QStringList names;
    for (int row = 0; row < list->model()->rowCount(list->rootIndex()); ++row)
        names += list->model()->index(row, 0, list->rootIndex()).data().toString();
    return names;
}

QStringList listedNames(const QFileDialog& dialog)
{
    QStringList names = listedNamesInOrder(dialog);
    names.sort();
    return names;
}

void selectInList(QFileDialog& dialog, const QString& name)
{
    auto* tree = dialog.findChild<QTreeView*>(QStringLiteral("treeView"));
    takeKeyboardFocus(*tree);
    QTest::keyClicks(tree, name);
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

void whenMenuIsOpen(const std::function<void(QMenu&)>& action)
{
    QTimer::singleShot(0, [action] {
        auto* open = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        if (open && open->isVisible())
            action(*open);
        else
            whenMenuIsOpen(action);
    });
}

void pickFromMenu(int row)
{
    whenMenuIsOpen([row](QMenu& open) {
        open.setActiveAction(nullptr);
        for (int i = 0; i <= row; ++i)
            QTest::keyClick(&open, Qt::Key_Down);
        QTest::keyClick(&open, Qt::Key_Return);
    });
}
