"""The rules for the controls of a window, and the exceptions for which Qt's own classes are the reason.

Each rule takes the root of a tree of controls and yields a pair for each fault: the control and what is wrong with it.
"""

# The roles of the controls that a user operates.
OPERATED = {
    "check box", "check menu item", "combo box", "list", "menu item", "push button", "push button menu", "radio button",
    "slider", "spin button", "table", "text", "toggle button", "tree", "tree table",
}
# Those of them that show a value of the user's, which must not be their name.
FIELDS = {"combo box", "spin button", "text"}
ITEM_VIEWS = {"list", "table", "tree", "tree table"}


def is_popup_list(control):
    """Returns whether the control is the drop-down list of a combo box, which the box names."""
    return control.role in ITEM_VIEWS and control.parent is not None and control.parent.role == "combo box"


def is_named_by_its_value_in_qt(control):
    """Exception: Qt 5 and Qt 6 name a QComboBox on X11 by its current text, whatever name the application has set. The
    relation to the label says what it is. The box with a field of its own is the library's, which is named."""
    return control.role == "combo box" and not any(child.role == "text" for child in control.children)


def keeps_its_label_to_itself_in_qt(control):
    """Exception: Qt's item views report no relations at all, although the label reports its one. They have names."""
    return control.role in ITEM_VIEWS


def is_operated(control):
    return control.is_shown() and control.role in OPERATED and not is_popup_list(control)


def has_name(root):
    """Each control has a name that says what it is, not what its value is."""
    for control in filter(is_operated, root.walk()):
        if not control.name.strip():
            yield control, "has no name"
        elif (control.role in FIELDS and control.name == control.value()
              and not is_named_by_its_value_in_qt(control)):
            yield control, "is named by its value"


def has_fitting_role(root):
    """A control that takes the keyboard focus or has a name tells with its role how it is operated."""
    for control in root.walk():
        mute = control.role in {"unknown", "invalid", "filler", "panel", "layered pane"}
        if not control.is_shown() or not mute:
            continue
        if "focusable" in control.states:
            yield control, "takes the keyboard focus, but its role does not tell how it is operated"
        elif control.role in {"unknown", "invalid"} and (control.name or control.actions):
            yield control, "has no role"


def has_its_label(root):
    """A label and the field beside it know one another."""
    shown = [control for control in root.walk() if control.is_shown()]
    for control in shown:
        if is_operated(control) and control.role in FIELDS - {"text"} and "labelled-by" not in control.relations \
                and is_named_by_its_value_in_qt(control):
            yield control, "is named by its value, and no label says what it is"
        if control.role == "label" and control.name.endswith(":") and "label-for" not in control.relations:
            yield control, "is a label for nothing"
    for label in shown:
        for target in label.relations.get("label-for", []):
            back = target.relations.get("labelled-by", [])
            if label not in back and not keeps_its_label_to_itself_in_qt(target):
                yield target, f'does not know its label "{label.name}"'
        same = [control for control in shown if control.role in FIELDS and control.name == label.name]
        if label.role == "label" and same and "label-for" not in label.relations:
            yield label, "is not related to the field of the same name"


def tells_its_text(root, empty=()):
    """A text beside a label is told as it is, not only by the label. `empty` has the labels of the texts that are empty,
    which Qt names by their labels."""
    for control in root.walk():
        if control.role != "label" or not control.is_shown():
            continue
        for label in control.relations.get("labelled-by", []):
            if label.role == "label" and control.name == label.name and label.name not in empty:
                yield control, "has only the text of its label"


def has_mnemonic_of_its_own(root):
    """No two controls that can be reached at the same time have the same mnemonic."""
    owners = {}
    for control in root.walk():
        if not is_operated(control) or not control.is_usable() or is_in_menu(control):
            continue
        for letter in control.mnemonics() - group_mnemonics(control):
            other = owners.setdefault(letter, control)
            if other is not control:
                yield control, f"shares {letter} with {other.path()}"


def is_in_menu(control):
    """Returns whether the control is an entry of a menu, whose mnemonics count only while the menu is open."""
    return control.parent is not None and control.parent.role in {"popup menu", "menu item"}


def group_mnemonics(control):
    """Returns the mnemonics that Qt reports for each control in a group box without a mnemonic of its own: that of the
    box, which focuses the first of them."""
    group = control.parent
    if group is None or group.role != "panel" or not group.name:
        return set()
    shared = [child.mnemonics() for child in group.children if is_operated(child)]
    return set.intersection(*shared) if len(shared) > 1 else set()


RULES = (has_name, has_fitting_role, has_its_label, tells_its_text, has_mnemonic_of_its_own)


def faults(root, empty=()):
    """Returns what is wrong in the tree, a line for each fault."""
    found = []
    for rule in RULES:
        hits = rule(root, empty) if rule is tells_its_text else rule(root)
        found += [f"{control.path()}: {fault}" for control, fault in hits]
    return found
