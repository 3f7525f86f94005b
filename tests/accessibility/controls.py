"""What the rules see of a program: a tree of controls, read over AT-SPI or written down by hand."""

from dataclasses import dataclass, field


@dataclass(eq=False)
class Control:
    """A control as assistive technology knows it. The roles, states and relations have the names that AT-SPI gives them."""

    role: str
    name: str = ""
    text: str | None = None
    states: frozenset = frozenset()
    relations: dict = field(default_factory=dict)
    actions: dict = field(default_factory=dict)
    children: list = field(default_factory=list)
    parent: "Control | None" = None
    remote: object = None

    def __post_init__(self):
        for child in self.children:
            child.parent = self

    def path(self):
        """Returns where the control is, from its window on."""
        own = f'{self.role} "{self.name}"'
        parents = self.parent
        while parents and not parents.name:
            parents = parents.parent
        return f"{parents.path()} / {own}" if parents else own

    def walk(self):
        yield self
        for child in self.children:
            yield from child.walk()

    def is_shown(self):
        return "showing" in self.states

    def is_usable(self):
        return self.is_shown() and "sensitive" in self.states

    def value(self):
        """Returns the text that the user edits or selects, or None if the control has no such text."""
        if self.text is not None:
            return self.text
        fields = [child.text for child in self.children if child.role == "text"]
        return fields[0] if self.role == "combo box" and fields else None

    def mnemonics(self):
        """Returns the letters that reach the control together with Alt."""
        keys = {key.upper() for key in self.actions.values()}
        return {key for key in keys if len(key) == 5 and key.startswith("ALT+")}
