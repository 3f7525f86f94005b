#include "SystemDialog.h"

#include <array>
#include <vector>

#include <commctrl.h>
#include <dlgs.h>

#ifndef MN_GETHMENU
#define MN_GETHMENU 0x01E1
#endif

bool isWine()
{
    return GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr;
}

QString windowText(HWND window)
{
    std::vector<wchar_t> text(std::size_t(GetWindowTextLengthW(window)) + 1);
    GetWindowTextW(window, text.data(), int(text.size()));
    return QString::fromWCharArray(text.data());
}

QString windowClass(HWND window)
{
    std::array<wchar_t, 256> name{};
    GetClassNameW(window, name.data(), int(name.size()));
    return QString::fromWCharArray(name.data());
}

namespace {

/// Returns all descendants of `window` with the window class `name`.
std::vector<HWND> childrenOfClass(HWND window, const QString& name)
{
    struct Search
    {
        QString name;
        std::vector<HWND> found;
    } search{name, {}};
    EnumChildWindows(
        window,
        [](HWND child, LPARAM parameter) -> BOOL {
            auto& search = *reinterpret_cast<Search*>(parameter);
            if (windowClass(child) == search.name)
                search.found.push_back(child);
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&search));
    return search.found;
}

/// Posts a click on `button`. Does nothing when a user could not click it, because it is hidden or disabled.
void clickLater(HWND button)
{
    if (IsWindowVisible(button) && IsWindowEnabled(button))
        PostMessageW(button, BM_CLICK, 0, 0);
}

void pressKey(WPARAM key)
{
    PostThreadMessageW(GetCurrentThreadId(), WM_KEYDOWN, key, 0);
}

} // namespace

SystemDialog::SystemDialog(HWND window)
    : m_window(window)
{
}

HWND SystemDialog::owner() const
{
    return GetWindow(m_window, GW_OWNER);
}

QString SystemDialog::title() const
{
    return windowText(m_window);
}

QString SystemDialog::fileName() const
{
    return windowText(field(edt1));
}

void SystemDialog::typeName(const QString& name) const
{
    SetWindowTextW(field(edt1), name.toStdWString().c_str());
}

QStringList SystemDialog::fileTypes() const
{
    QStringList types;
    const LRESULT count = SendMessageW(field(cmb1), CB_GETCOUNT, 0, 0);
    for (LRESULT i = 0; i < count; ++i) {
        std::vector<wchar_t> text(std::size_t(SendMessageW(field(cmb1), CB_GETLBTEXTLEN, WPARAM(i), 0)) + 1);
        SendMessageW(field(cmb1), CB_GETLBTEXT, WPARAM(i), reinterpret_cast<LPARAM>(text.data()));
        types += QString::fromWCharArray(text.data());
    }
    return types;
}

int SystemDialog::fileType() const
{
    return int(SendMessageW(field(cmb1), CB_GETCURSEL, 0, 0));
}

void SystemDialog::pickFileType(int index) const
{
    SendMessageW(field(cmb1), CB_SETCURSEL, WPARAM(index), 0);
    PostMessageW(GetParent(field(cmb1)), WM_COMMAND, MAKEWPARAM(cmb1, CBN_SELCHANGE),
                 reinterpret_cast<LPARAM>(field(cmb1)));
}

QStringList SystemDialog::shownFiles() const
{
    QStringList names;
    for (HWND list : childrenOfClass(m_window, QStringLiteral("SysListView32"))) {
        const LRESULT count = SendMessageW(list, LVM_GETITEMCOUNT, 0, 0);
        for (LRESULT i = 0; i < count; ++i) {
            std::array<wchar_t, MAX_PATH> text{};
            LVITEMW item = {};
            item.pszText = text.data();
            item.cchTextMax = int(text.size());
            SendMessageW(list, LVM_GETITEMTEXTW, WPARAM(i), reinterpret_cast<LPARAM>(&item));
            names += QString::fromWCharArray(text.data());
        }
    }
    names.sort();
    return names;
}

bool SystemDialog::has(const QString& label) const
{
    return button(label) != nullptr;
}

bool SystemDialog::isShown(const QString& label) const
{
    return IsWindowVisible(button(label)) != FALSE;
}

bool SystemDialog::isEnabled(const QString& label) const
{
    return IsWindowEnabled(button(label)) != FALSE;
}

bool SystemDialog::isChecked(const QString& label) const
{
    return SendMessageW(button(label), BM_GETCHECK, 0, 0) == BST_CHECKED;
}

void SystemDialog::click(const QString& label) const
{
    clickLater(button(label));
}

QString SystemDialog::acceptLabel() const
{
    return windowText(field(IDOK));
}

void SystemDialog::accept() const
{
    clickLater(field(IDOK));
}

void SystemDialog::acceptName(const QString& name) const
{
    typeName(name);
    accept();
}

bool SystemDialog::hasAcceptMenu() const
{
    return IsWindowVisible(field(psh1)) != FALSE;
}

void SystemDialog::openAcceptMenu() const
{
    clickLater(field(psh1));
}

void SystemDialog::cancel() const
{
    clickLater(field(IDCANCEL));
}

HWND SystemDialog::field(int id) const
{
    return GetDlgItem(m_window, id);
}

/// Returns the button with this label, or null. Prefers a visible one, because the dialog has hidden buttons of its
/// own.
HWND SystemDialog::button(const QString& label) const
{
    HWND found = nullptr;
    for (HWND candidate : childrenOfClass(m_window, QStringLiteral("Button"))) {
        if (windowText(candidate) == label && (!found || IsWindowVisible(candidate)))
            found = candidate;
    }
    return found;
}

SystemQuestion::SystemQuestion(HWND window)
    : m_window(window)
{
}

QString SystemQuestion::text() const
{
    QString text;
    for (HWND part : childrenOfClass(m_window, QStringLiteral("Static")))
        text += windowText(part);
    return text;
}

void SystemQuestion::answer(int button) const
{
    clickLater(GetDlgItem(m_window, button));
}

SystemMenu::SystemMenu(HWND window)
    : m_menu(reinterpret_cast<HMENU>(SendMessageW(window, MN_GETHMENU, 0, 0)))
{
}

QStringList SystemMenu::items() const
{
    QStringList labels;
    for (int i = 0; i < GetMenuItemCount(m_menu); ++i) {
        std::array<wchar_t, 256> text{};
        GetMenuStringW(m_menu, UINT(i), text.data(), int(text.size()), MF_BYPOSITION);
        labels += QString::fromWCharArray(text.data());
    }
    return labels;
}

bool SystemMenu::isEnabled(int index) const
{
    return (GetMenuState(m_menu, UINT(index), MF_BYPOSITION) & (MF_DISABLED | MF_GRAYED)) == 0;
}

void SystemMenu::pick(int index) const
{
    for (int i = 0; i <= index; ++i)
        pressKey(VK_DOWN);
    pressKey(VK_RETURN);
}

void SystemMenu::close() const
{
    EndMenu();
}
