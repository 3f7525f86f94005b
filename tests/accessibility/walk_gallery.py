#!/usr/bin/python3
"""walk_gallery.py GALLERY: walks through the gallery's pages and dialogs over AT-SPI and judges each control by rules.py.

Needs a screen with a window manager and a session bus of its own. Prints what is wrong, with the path of the control, and
ends with 1 if anything is.
"""

import os
import sys
import tempfile

from program import Failure, Program, act, connect, has_state, own_environment, press_key, press_mnemonic, tree_if_there, type_text, wait_until
from rules import faults, is_operated

MAIN_WINDOW = "Gallery of common_ui_qt"
# How long, in seconds, a state may take to follow.
PATIENCE = 3
# The texts on the pages that are empty until something happens.
EMPTY_AT_FIRST = {"Ended by", "Heard", "Its title is", "New families", "They were"}
# The buttons that open a dialog although no ellipsis says so.
OPENS_DIALOG = {"Work, and ask in between"}

EDITORS = {"combo box", "spin button", "text"}
FOCUSED_AT_WILL = {"check box", "push button", "spin button", "text"}
# Names that enable the accept button.
NAMES = {"Open one file": "run-1.dat", "Save a file": "new.dat", "Native dialog": "run-1.dat"}
# The table that the table editor opens, and a name and a number in its rows.
TABLE = "table.csv"
TABLE_CELLS = {"material": 0, "pressure": 1}


class Walk:
    """A walk through the gallery."""

    def __init__(self, gallery, folder):
        self.found = []
        self.menu = {}
        self.pages = 0
        self.controls = 0
        self.dialogs = 0
        self.lists = 0
        self.program = Program(connect(), [gallery], own_environment(folder), os.path.join(folder, "Documents"))

    def blame(self, place, fault):
        line = f"{place}: {fault}"
        if line not in self.found:
            self.found.append(line)
            print(f"FAULT: {line}", flush=True)

    def titles(self):
        """Yields the title of each page when the page has been selected."""
        main = self.window(MAIN_WINDOW)
        self.menu = {entry.get_name(): entry for entry in menu_entries(main)}
        pages = next(control for control in main.walk() if control.role == "list" and control.name == "Pages")
        remotes = [pages.remote.get_child_at_index(i) for i in range(pages.remote.get_child_count())]
        for index, remote in enumerate(remotes):
            if index > 0:
                self.choose_in_menu("Next page")
            yield remote.get_name()

    def walk(self):
        for page in self.titles():
            self.walk_page(page)
            self.pages += 1
        self.search_pages()
        self.choose_in_menu("Quit")
        result = self.program.wait()
        if result != 0:
            self.blame("the gallery", f"has ended with {result}")

    def wait_for(self, name):
        """Waits until the window is active and returns it, without what is in it."""
        def found():
            active = self.program.active_window()
            return active if active is not None and active.name == name else None
        return wait_until(f"the window is active: {name}", found)

    def window(self, name):
        """Waits until the window is active and returns it."""
        return wait_until(f"what is in {name}", lambda: tree_if_there(self.wait_for(name)))

    def judge(self, place, name, visible=None):
        """Applies the rules to the active window and returns it. `visible` is the name of a control that it must show."""
        def found():
            root = self.window(name)
            return root if visible is None or find(root, None, visible) else None
        root = wait_until(f"{visible} is shown in {name}", found)
        for fault in faults(root, EMPTY_AT_FIRST):
            self.blame(place, fault)
        self.controls += sum(1 for control in root.walk() if is_operated(control))
        return root

    def follows(self, place, control, cause, state, expected):
        """Blames the control if the state does not become as expected."""
        try:
            wait_until(state, lambda: has_state(control, state) == expected, seconds=PATIENCE)
        except Failure:
            self.blame(place, f'{control.path()}: is {"not " if expected else "still "}{state} after {cause}')

    def choose_in_menu(self, name):
        """Triggers an entry of the gallery's menu, which need not be open."""
        if name not in self.menu:
            raise Failure(f"the menu has no {name}")
        self.menu[name].do_action(0)

    # The search for pages

    def search_pages(self):
        """Looks for a page that is found, and for one that is not, and shows all pages again."""
        root = self.judge("the search", MAIN_WINDOW)
        field = find(root, "text", "Look for a page")
        self.choose_in_menu("Find a page")
        self.follows("the search", field, "Find a page", "focused", True)
        type_text(field, "number fields")
        self.judge("the search, found", MAIN_WINDOW, "Number fields")
        type_text(field, "no such page")
        self.judge("the search, not found", MAIN_WINDOW, "No page matches")
        type_text(field, "")

    # Pages

    def walk_page(self, page):
        root = self.judge(page, MAIN_WINDOW, page)
        self.press_keys(page, root)
        self.toggle_boxes(page, root)
        self.open_code(page, root)
        if page == "Filtering combo box":
            self.edit_in_box(page, root)
        if page == "Labels and buttons":
            self.compare_labels(page, root)
        for button in opening_buttons(root):
            self.walk_dialog(page, button)
        if page == "Save with a writer":
            self.walk_question(page, root)
        if page == "Native dialog":
            self.walk_saving_dialog(page, root)
        if page == "Table editor":
            self.edit_table(page, root)

    def press_keys(self, place, root):
        """Presses the mnemonic of each field twice, which must get the keyboard focus each time. Qt gives it to each control
        with the mnemonic in turn, also to those that do not report theirs, such as lists."""
        for control in usable(root, {"combo box", "spin button", "text"}):
            elsewhere = next((other for other in usable(root, FOCUSED_AT_WILL)
                              if "SetFocus" in other.actions and other is not control), None)
            if elsewhere is None:
                continue
            for key in sorted(control.mnemonics()) * 2:
                act(elsewhere, "SetFocus")
                self.follows(place, elsewhere, "SetFocus", "focused", True)
                press_mnemonic(key)
                self.follows(place, control, key, "focused", True)

    def toggle_boxes(self, place, root):
        """Toggles each box by its action and by its mnemonic, and so leaves it as it was."""
        for box in usable(root, {"check box"}):
            checked = has_state(box, "checked")
            act(box, "Toggle")
            self.follows(place, box, "Toggle", "checked", not checked)
            for key in sorted(box.mnemonics()):
                press_mnemonic(key)
                self.follows(place, box, key, "checked", checked)
            if has_state(box, "checked") != checked:
                act(box, "Toggle")
                self.follows(place, box, "Toggle", "checked", checked)

    def open_code(self, page, root):
        """Shows and hides the code of the page."""
        button = find(root, None, "Source code")
        act(button, "Toggle")
        place = f"{page}, its code"
        code = find(self.judge(place, MAIN_WINDOW, "Code"), "text", "Code")
        self.follows(place, code, "its button", "focused", True)
        if not code.text.strip():
            self.blame(place, f"{code.path()}: is empty")
        act(button, "Toggle")
        self.follows(place, code, "its button", "showing", False)

    def open_lists(self, place, root):
        """Opens and closes each list and menu that a control tells about."""
        for control in usable(root, {"combo box", "push button"}):
            if "expandable" not in control.states:
                continue
            for expanded in (True, False):
                act(control, "ShowMenu")
                self.follows(place, control, "ShowMenu", "expanded", expanded)
            self.lists += 1

    def edit_in_box(self, page, root):
        """Opens the filtering combo box, opens and closes its list, and names it and its field."""
        act(find(root, "push button", "Inlet pressure 1"), "Press")
        box = wait_until("the box is shown", lambda: box_with_field(self.window(MAIN_WINDOW)))
        root = self.judge(f"{page}, editing", MAIN_WINDOW)
        self.open_lists(f"{page}, editing", root)
        for control in (box, *box.children):
            if control.role in {"combo box", "text"} and control.name != "Signal":
                self.blame(page, f'{control.path()}: is not named "Signal"')
        self.follows(page, box, "its button", "focused", True)

    def compare_labels(self, page, root):
        """Compares the labels that elide their texts with the field that has the whole text."""
        whole = find(root, "text", "Text").text
        labels = [control for control in root.walk() if control.role == "label" and control.name == whole]
        if len(labels) != 4:
            self.blame(page, f'{len(labels)} of 4 labels tell their whole text "{whole}"')

    def edit_table(self, page, root):
        """Opens a table and the editors of a name and of a number in it, each of which is named by its column."""
        self.accept_name(next(button for button in opening_buttons(root) if "Open" in button.name), TABLE)
        wait_until("the table is loaded, and has the keyboard", lambda: loaded_table(self.window(MAIN_WINDOW)))
        self.program.follow_focus(True)
        for column, index in TABLE_CELLS.items():
            for _ in range(index):
                press_key("Right")
            press_key("F2")
            editor = wait_until(f"the editor of {column} has the keyboard", lambda: self.focused_editor(column))
            for fault in faults(editor):
                self.blame(f"{page}, {column}", fault)
            self.controls += 1
            press_key("Escape")
            wait_until(f"the editor of {column} is closed", lambda: not self.focused_editor(column))
        self.program.follow_focus(False)

    def focused_editor(self, name):
        focused = self.program.focused()
        return focused if focused is not None and focused.role in EDITORS and focused.name == name else None

    # Dialogs

    def accept_name(self, button, name):
        """Opens the dialog of the button, types the name, and accepts it. Returns the dialog, which may still be open."""
        act(button, "Press")
        dialog = self.window(wait_until(f"a dialog of {button.path()}", self.dialog).name)
        type_text(find(dialog, "text", "File name:"), name)
        accept = default_button(dialog)
        wait_until(f"{name} can be accepted", lambda: has_state(accept, "enabled"))
        act(accept, "Press")
        return dialog

    def walk_question(self, page, root):
        """Saves under the name of a file that is there, and refuses to replace it."""
        dialog = self.accept_name(opening_buttons(root)[0], "run-1.dat")
        question = self.judge(f"{page}, question", dialog.name, "No")
        self.dialogs += 1
        press_mnemonic(next(iter(find(question, "push button", "No").mnemonics())))
        dialog = self.judge(page, dialog.name, "Cancel")
        act(find(dialog, "push button", "Cancel"), "Press")
        self.wait_for(MAIN_WINDOW)

    def walk_saving_dialog(self, page, root):
        """Walks through the native dialog once more, for saving."""
        box = find(root, "check box", "For saving")
        act(box, "Toggle")
        for button in opening_buttons(root):
            self.walk_dialog(f"{page} for saving", button)
        act(box, "Toggle")

    def walk_dialog(self, page, button):
        act(button, "Press")
        dialog = wait_until(f"a dialog of {button.path()}", self.dialog)
        place = f"{page}, {button.name}"
        self.dialogs += 1
        root = self.judge(place, dialog.name)
        self.press_keys(place, root)
        self.toggle_boxes(place, root)
        if page in NAMES:
            self.follow_name(place, root, NAMES[page])
        self.open_lists(place, self.window(root.name))
        help_button = find(root, "push button", "Help")
        if help_button:
            self.walk_help(place, root, help_button)
        close = next(filter(None, (find(root, "push button", name) for name in ("Cancel", "OK"))))
        act(close, "Press")
        self.wait_for(MAIN_WINDOW)

    def dialog(self):
        active = self.program.active_window()
        return active if active is not None and active.name != MAIN_WINDOW else None

    def walk_help(self, place, root, button):
        if not button.mnemonics():
            self.blame(place, f"{button.path()}: has no mnemonic")
        act(button, "Press")
        page = self.judge(f"{place}, Help", "Help")
        act(find(page, "push button", "Close"), "Press")
        self.wait_for(root.name)

    def follow_name(self, place, root, name):
        """Types a name, upon which the accept button and the arrow of its menu become enabled."""
        accept = default_button(root)
        buttons = list(filter(is_operated, accept.walk()))
        for state in ("sensitive", "enabled"):
            if any(state in button.states for button in buttons):
                self.blame(place, f"{accept.path()}: is {state} without a name")
        type_text(find(root, "text", "File name:"), name)
        for button in buttons:
            self.follows(place, button, f'the name "{name}"', "sensitive", True)
            self.follows(place, button, f'the name "{name}"', "enabled", True)


def menu_entries(main):
    """Yields the entries of the menus, also of those that are closed."""
    for menu in (control for control in main.walk() if control.role == "menu item"):
        popup = menu.remote.get_child_at_index(0)
        for index in range(popup.get_child_count() if popup else 0):
            yield popup.get_child_at_index(index)


def find(root, role, name):
    """Returns the first control with this name, and with this role if it is given, or None."""
    return next((control for control in root.walk()
                 if control.name == name and control.role == (role or control.role) and control.is_shown()), None)


def default_button(root):
    return next(control for control in root.walk() if "is-default" in control.states)


def loaded_table(root):
    """Returns the table if it has cells, or None."""
    table = next((control for control in root.walk() if control.role == "table" and control.is_shown()), None)
    return table if table is not None and table.remote.get_child_count() > 0 else None


def usable(root, roles):
    return [control for control in root.walk() if control.role in roles and control.is_usable()]


def box_with_field(root):
    boxes = usable(root, {"combo box"})
    return next((box for box in boxes if any(child.role == "text" for child in box.children)), None)


def opening_buttons(root):
    return [button for button in usable(root, {"push button"})
            if button.name.endswith("…") or button.name in OPENS_DIALOG]


def make_files(folder):
    documents = os.path.join(folder, "Documents")
    os.mkdir(documents)
    contents = {"run-1.dat": "1 2 3\n", "notes.txt": "1 2 3\n", TABLE: "material,pressure\ncopper,1.2\niron,1.1\n"}
    for name, text in contents.items():
        with open(os.path.join(documents, name), "w", encoding="utf-8") as file:
            file.write(text)


def main():
    with tempfile.TemporaryDirectory() as folder:
        make_files(folder)
        walk = Walk(sys.argv[1], folder)
        try:
            walk.walk()
        except Failure as failure:
            walk.blame("the walk", str(failure))
        finally:
            walk.program.end()
    faults_found = f"{len(walk.found)} faults" if walk.found else "no faults"
    print(f"{walk.pages} pages, {walk.dialogs} dialogs, {walk.lists} lists and menus, {walk.controls} controls: {faults_found}")
    return 1 if walk.found else 0


if __name__ == "__main__":
    sys.exit(main())
