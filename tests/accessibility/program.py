"""Starts a Qt program and reads and drives it over AT-SPI."""

import os
import subprocess
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

from controls import Control  # noqa: E402

# Of an X server, as evdev numbers the keys; the left Alt key.
ALT_KEY_CODE = 64
KEY_CODES = {"Escape": 9, "F2": 68, "Right": 114}
ITEM_VIEWS = {"list", "table", "tree", "tree table"}


class Failure(Exception):
    """The program did not do what it was told, so that the walk cannot go on."""


def wait_until(what, condition, seconds=45):
    """Returns the first result of `condition` that is true. Fails if there is none in time."""
    end = time.monotonic() + seconds
    while True:
        while GLib.MainContext.default().iteration(False):  # Delivers the events that listeners wait for.
            pass
        result = condition()
        if result:
            return result
        if time.monotonic() > end:
            raise Failure(f"not in {seconds} s: {what}")
        time.sleep(0.02)


def connect():
    """Connects to the bus of assistive technology, which must be there, and starts its registry."""
    Atspi.init()
    Atspi.set_timeout(10000, 15000)
    desktop = Atspi.get_desktop(0)
    # Every question is asked anew. The library's cache follows signals, which may be late.
    desktop.set_cache_mask(Atspi.Cache.NONE)
    desktop.clear_cache()
    if desktop.get_child_count() != 0:
        raise Failure("the bus of assistive technology is not the test's own")
    return desktop


class Program:
    """A running program."""

    def __init__(self, desktop, command, environment, folder):
        self.process, self.remote = start(desktop, command, environment, folder)
        self.remote.set_cache_mask(Atspi.Cache.NONE)
        self.focus_listener = Atspi.EventListener.new(self.on_focus)
        self.latest_focus = None

    def follow_focus(self, on):
        """Makes focused() follow the keyboard focus, or no longer."""
        register = self.focus_listener.register if on else self.focus_listener.deregister
        register("object:state-changed:focused")

    def on_focus(self, event):
        if event.detail1:
            self.latest_focus = event.source

    def focused(self):
        """Returns the control that got the keyboard focus last, or None. Unlike a tree of a window, this finds the editors
        of cells, which Qt does not count among the children of a table."""
        return tree_if_there(Control("", remote=self.latest_focus)) if self.latest_focus else None

    def windows(self):
        """Returns the windows that are shown, each without what is in it."""
        windows = []
        for remote in children_of(self.remote):
            try:
                windows.append(read(remote, {}, deep=False))
            except GLib.GError:  # The window has closed meanwhile.
                continue
        return [window for window in windows if window.is_shown()]

    def active_window(self):
        """Returns the window that is active, or None while there is none."""
        return next((window for window in self.windows() if "active" in window.states), None)

    def wait(self):
        """Waits for the end of the program and returns its exit code."""
        return self.process.wait(30)

    def end(self):
        """Ends the program if it still runs."""
        if self.process.poll() is None:
            self.process.kill()
            self.process.wait()


def start(desktop, command, environment, folder):
    """Starts the program until it appears on the bus, and returns its process and its root.

    Qt 5 sometimes uses its connection to the bus before the connection is there, and does not try again: the program
    then runs, but can never be found. About every second start fails in this way."""
    for _ in range(40):
        process = subprocess.Popen(command, env=environment, cwd=folder)
        try:
            return process, wait_until("the program is on the bus", lambda: application(desktop), seconds=1.5)
        except Failure:
            if process.poll() is not None:
                raise Failure(f"the program has ended with {process.returncode}") from None
            process.kill()
            process.wait()
    raise Failure("the program never appeared on the bus of assistive technology")


def application(desktop):
    return next((remote for remote in children_of(desktop) if remote.get_child_count() > 0), None)


def children_of(remote):
    children = [remote.get_child_at_index(i) for i in range(remote.get_child_count())]
    return [child for child in children if child is not None]


def tree(window):
    """Returns the window with the controls in it that are shown, and with their relations."""
    known = {}
    root = read(window.remote, known)
    for control in list(known.values()):
        for relation in control.remote.get_relation_set():
            targets = [relation.get_target(i) for i in range(relation.get_n_targets())]
            control.relations.setdefault(relation.get_relation_type().value_nick, []).extend(
                known.get(target) or read(target, {}, deep=False) for target in targets)
    return root


def tree_if_there(window):
    """Returns the tree of the window, or None if something in it goes meanwhile."""
    try:
        return tree(window)
    except GLib.GError:
        return None


def states_of(remote):
    return frozenset(state.value_nick for state in remote.get_state_set().get_states())


def read(remote, known, deep=True):
    """Returns the control, and enters it and the controls in it in `known`."""
    states = states_of(remote)
    interfaces = remote.get_interfaces()
    control = Control(remote.get_role_name(), remote.get_name() or "", remote=remote, states=states,
                      text=text_of(remote) if "Text" in interfaces else None,
                      actions=actions_of(remote) if "Action" in interfaces else {})
    known[remote] = control
    # Thousands of items would take a long time, and Qt alone is responsible for them.
    if deep and "showing" in states and control.role not in ITEM_VIEWS:
        control.children = [read(child, known) for child in children_of(remote)]
        for child in control.children:
            child.parent = control
    return control


def text_of(remote):
    return Atspi.Text.get_text(remote, 0, Atspi.Text.get_character_count(remote))


def actions_of(remote):
    """Returns the names of the actions with their keys."""
    return {Atspi.Action.get_action_name(remote, i): Atspi.Action.get_key_binding(remote, i) or ""
            for i in range(Atspi.Action.get_n_actions(remote))}


def act(control, action):
    """Lets the control do what `action` names."""
    names = list(actions_of(control.remote))
    if action not in names:
        raise Failure(f"{control.path()}: cannot {action}, only {names}")
    Atspi.Action.do_action(control.remote, names.index(action))


def has_state(control, state):
    return state in states_of(control.remote)


def type_text(control, text):
    """Replaces the text of a field."""
    if not Atspi.EditableText.set_text_contents(control.remote, text):
        raise Failure(f"{control.path()}: takes no text")


def press_mnemonic(key):
    """Presses and releases the letter of `key`, which is "Alt+" and a letter, with the Alt key."""
    Atspi.generate_keyboard_event(ALT_KEY_CODE, None, Atspi.KeySynthType.PRESS)
    Atspi.generate_keyboard_event(ord(key[-1].lower()), None, Atspi.KeySynthType.SYM)
    Atspi.generate_keyboard_event(ALT_KEY_CODE, None, Atspi.KeySynthType.RELEASE)


def press_key(name):
    """Presses and releases a key by its name in KEY_CODES."""
    Atspi.generate_keyboard_event(KEY_CODES[name], None, Atspi.KeySynthType.PRESSRELEASE)


def own_environment(folder):
    """Returns an environment with a home of its own in `folder`."""
    environment = dict(os.environ, HOME=folder, LC_ALL="C.UTF-8", QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1")
    for variable, name in (("CONFIG", "config"), ("CACHE", "cache"), ("DATA", "data")):
        environment[f"XDG_{variable}_HOME"] = os.path.join(folder, name)
    environment.pop("QT_QPA_PLATFORMTHEME", None)
    return environment
