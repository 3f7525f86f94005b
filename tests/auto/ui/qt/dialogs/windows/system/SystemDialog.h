#pragma once

#include <QString>
#include <QStringList>

#include <windows.h>

/// Returns whether the test runs under Wine, whose dialog differs in some details from that of Windows.
bool isWine();

QString windowText(HWND window);
QString windowClass(HWND window);

/// The open file dialog of the system, with functions for what a user sees in it and does with it. Buttons and check
/// boxes are identified by their labels, including the `&` of the mnemonic.
///
/// Actions are posted to the dialog, because they may open another window: check their effect in a later step. The
/// class knows the control ids of Wine's dialog; some of them differ on Windows itself.
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
    int fileType() const; ///< index from 0, or -1 when no type is selected
    void pickFileType(int index) const;

    /// Returns the names of the files and folders in the list.
    QStringList shownFiles() const;

    /// Return whether a button or a check box exists, and its state.
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

/// A message box that the system's dialog has opened.
class SystemQuestion
{
public:
    explicit SystemQuestion(HWND window);

    QString text() const;
    /// Presses `button`: IDYES, IDNO, IDOK, ...
    void answer(int button) const;

private:
    HWND m_window;
};

/// The open menu of the accept button.
class SystemMenu
{
public:
    explicit SystemMenu(HWND window);

    QStringList items() const;
    bool isEnabled(int index) const;
    /// Picks the item at `index` (from 0) with keys.
    void pick(int index) const;
    void close() const;

private:
    HMENU m_menu;
};
