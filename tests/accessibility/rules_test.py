#!/usr/bin/python3
"""Tests that each rule for controls finds what it is for, and nothing in a window as it should be."""

import contextlib
import io
import types
import unittest

import walk_gallery
from controls import Control
from program import Failure, wait_until
from rules import faults

SHOWN = frozenset({"showing", "sensitive", "enabled"})
FOCUSABLE = SHOWN | {"focusable"}


def label_and(field, text="File name:"):
    label = Control("label", text, states=SHOWN)
    label.relations["label-for"] = [field]
    field.relations["labelled-by"] = [label]
    return [label, field]


def line_edit(name="File name:", text="a.dat", key="Alt+N"):
    return Control("text", name, text, FOCUSABLE, actions={"SetFocus": key})


def button(name="Open", key="Alt+O", states=FOCUSABLE):
    return Control("push button", name, None, states, actions={"Press": key, "SetFocus": key})


def plain_box(value="Data (*.dat)"):
    """A QComboBox, which Qt names by its value."""
    return Control("combo box", value, None, FOCUSABLE, children=[Control("list", "", None, SHOWN)])


def filtering_box(name="Signal", value="Inlet"):
    return Control("combo box", name, None, FOCUSABLE, children=[Control("text", name, value, FOCUSABLE)])


def window(*controls):
    return Control("dialog", "Open", None, SHOWN, children=list(controls))


class Rules(unittest.TestCase):
    def expect(self, root, *expected):
        found = faults(root)
        self.assertEqual(len(found), len(expected), found)
        for fault, text in zip(found, expected):
            self.assertIn(text, fault)

    def test_window_as_it_should_be(self):
        files = Control("list", "Files", None, SHOWN)
        label = Control("label", "Files", states=SHOWN, relations={"label-for": [files]})
        text = Control("label", "/runs/17.dat", states=SHOWN)
        self.expect(window(*label_and(line_edit()), *label_and(plain_box(), "Files of type:"), *label_and(filtering_box(), "Signal"),
                           *label_and(text, "Path"), label, files, button(), button("Cancel", "Alt+C")))

    def test_name(self):
        self.expect(window(button("")), 'dialog "Open" / push button "": has no name')
        self.expect(window(button(" ")), "has no name")
        self.expect(window(line_edit(name="", text="")), "has no name")
        self.expect(window(Control("table", "", None, SHOWN)), "has no name")
        self.expect(window(line_edit(name="a.dat")), "is named by its value")
        self.expect(window(Control("spin button", "5", "5", FOCUSABLE)), "is named by its value")
        self.expect(window(filtering_box(name="Inlet")), "is named by its value", "is named by its value")
        self.expect(window(button("", states=frozenset({"focusable"}))))  # is not shown

    def test_role(self):
        self.expect(window(Control("filler", "More ways to open", None, FOCUSABLE)), "does not tell how it is operated")
        self.expect(window(Control("unknown", "Size", None, SHOWN)), "has no role")
        self.expect(window(Control("unknown", "", None, SHOWN, actions={"Press": ""})), "has no role")
        self.expect(window(Control("unknown", "", None, SHOWN)))  # a decoration

    def test_label(self):
        self.expect(window(plain_box()), "no label says what it is")
        self.expect(window(Control("label", "Look in:", None, SHOWN)), "is a label for nothing")
        forgetful = label_and(line_edit())
        forgetful[1].relations.clear()
        self.expect(window(*forgetful), 'does not know its label "File name:"')
        self.expect(window(Control("label", "Signal", None, SHOWN), filtering_box()),
                    "is not related to the field of the same name")

    def test_text(self):
        hidden = label_and(Control("label", "Path", None, SHOWN), "Path")
        self.expect(window(*hidden), "has only the text of its label")
        self.assertEqual(faults(window(*hidden), empty={"Path"}), [])

    def test_mnemonic(self):
        self.expect(window(button(), button("Options", "Alt+o")), 'shares ALT+O with dialog "Open" / push button "Open"')
        self.expect(window(button(), *label_and(line_edit(key="Alt+O"))), "shares ALT+O")
        self.expect(window(button(), button("Options", "Alt+O", states=frozenset({"showing"}))))  # is disabled
        self.expect(window(button(), button("Options", "Ctrl+O")))
        menu = Control("menu item", "Gallery", None, SHOWN, actions={"ShowMenu": "Alt+G"},
                       children=[Control("menu item", "Open", None, SHOWN, actions={"Press": "Alt+O"})])
        self.expect(window(Control("menu bar", "", None, SHOWN, children=[menu]), button()))
        self.expect(window(Control("menu bar", "", None, SHOWN, children=[menu]), button("Go", "Alt+G")), "shares ALT+G")

    def test_mnemonic_of_a_group(self):
        """Qt reports the mnemonic of a group box for each control in it."""
        group = Control("panel", "System", None, SHOWN, children=[button("A", "Alt+S"), button("B", "Alt+S")])
        self.expect(window(group))
        mixed = Control("panel", "System", None, SHOWN,
                        children=[button("A", "Alt+S"), button("B", "Alt+S"), button("C", "Alt+C")])
        self.expect(window(mixed), "shares ALT+S")


class StateSet:
    """What AT-SPI answers for a control with these states."""

    def __init__(self, *states):
        self.states = states

    def get_state_set(self):
        return self

    def get_states(self):
        return [types.SimpleNamespace(value_nick=state) for state in self.states]


class States(unittest.TestCase):
    def test_state_that_follows_or_not(self):
        walk_gallery.PATIENCE = 0.1
        walk = walk_gallery.Walk.__new__(walk_gallery.Walk)
        walk.found = []
        box = Control("check box", "Preview", remote=StateSet("showing", "checked"))
        walk.follows("Page", box, "Toggle", "checked", True)
        walk.follows("Page", box, "Toggle", "focused", False)
        self.assertEqual(walk.found, [])
        with contextlib.redirect_stdout(io.StringIO()):
            walk.follows("Page", box, "Toggle", "checked", False)
            walk.follows("Page", box, "Alt+P", "focused", True)
        self.assertEqual(walk.found, ['Page: check box "Preview": is still checked after Toggle',
                                      'Page: check box "Preview": is not focused after Alt+P'])

    def test_deadline(self):
        answers = iter([False, False, "yes"])
        self.assertEqual(wait_until("yes", lambda: next(answers)), "yes")
        with self.assertRaisesRegex(Failure, "not in 0.1 s: never"):
            wait_until("never", lambda: False, seconds=0.1)


if __name__ == "__main__":
    unittest.main()
