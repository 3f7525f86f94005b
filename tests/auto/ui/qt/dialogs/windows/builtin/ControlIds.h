#pragma once

#include "BuiltInDialog.h"

/// The ids of the controls and menu items that the tests add to a dialog.

const DWORD button = 1;
const DWORD box = 2;
const DWORD menu = 3;
const DWORD unknown = 99;

enum Item : DWORD { PlainItem = 10, ReadOnlyItem, CopyItem };

/// Adds a menu with three items to the accept button.
inline void addItems(const BuiltInDialog& dialog)
{
    dialog.controls().EnableOpenDropDown(menu);
    dialog.controls().AddControlItem(menu, PlainItem, L"&Open");
    dialog.controls().AddControlItem(menu, ReadOnlyItem, L"Open &read-only");
    dialog.controls().AddControlItem(menu, CopyItem, L"Open a &copy");
}
