#pragma once

#include <QString>
#include <QStringList>

#include <windows.h>

/// Whether Windows is played by Wine, whose dialog differs in places.
bool isWine();

QString windowText(HWND window);
QString windowClass(HWND window);

/// The system's file dialog as it stands on the screen: what a user sees of it, and does with it. Buttons and check
/// boxes are found by their labels, with the `&` of the mnemonic.
///
/// What is done is done when the dialog gets to it, so that it may open a window of its own: look at the effect in a
/// later step. Knows where Wine's dialog has its fields; Windows itself lays some of them out in another way.
class SystemDialog
{
public:
    explicit SystemDialog(HWND window);

    HWND window() const { return m_window; }
    HWND owner() const;
    QString title() const;

    QString fileName() const;
    void typeName(const QString& name) const;

    QStringList fileTypes() const;
    int fileType() const; ///< from 0; -1 for none
    void pickFileType(int index) const;

    /// The names of files and folders in the list.
    QStringList shownFiles() const;

    /// Whether a button or a check box is there at all, and how.
    bool has(const QString& label) const;
    bool isShown(const QString& label) const;
    bool isEnabled(const QString& label) const;
    bool isChecked(const QString& label) const;
    void click(const QString& label) const;

    QString acceptLabel() const;
    void accept() const;
    void acceptName(const QString& name) const;
    bool hasAcceptMenu() const;
    void openAcceptMenu() const;
    void cancel() const;

private:
    HWND field(int id) const;
    HWND button(const QString& label) const;

    HWND m_window;
};

/// A message box of the system's dialog.
class SystemQuestion
{
public:
    explicit SystemQuestion(HWND window);

    QString text() const;
    /// `button`: IDYES, IDNO, IDOK, ...
    void answer(int button) const;

private:
    HWND m_window;
};

/// The menu of the accept button, while it is open.
class SystemMenu
{
public:
    explicit SystemMenu(HWND window);

    QStringList items() const;
    bool isEnabled(int index) const;
    /// Picks an item as the keyboard does.
    void pick(int index) const;
    void close() const;

private:
    HMENU m_menu;
};
