# SPDX-License-Identifier: GPL-3.0-or-later
"""What a screen reader finds of a program: a line for each object that shows, of role, name, description, value and text, set
apart by tabs. Line ends within one of them become blanks.

With --places a line has role, name, and the place on the screen: left, top, width, height.

accessible_tree.py PROGRAM [--places]
"""

import sys

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402


# What an interface tells is asked of the interface by name: a node's own get_text has another meaning in each release.
def in_a_line(text):
    return " ".join((text or "").split())


def value_of(node):
    if "Value" not in node.get_interfaces():
        return ""
    current, least, most = (
        ask(node) for ask in (Atspi.Value.get_current_value, Atspi.Value.get_minimum_value, Atspi.Value.get_maximum_value)
    )
    return f"{current:g} of {least:g} to {most:g}"


def text_of(node):
    if "Text" not in node.get_interfaces():
        return ""
    return Atspi.Text.get_text(node, 0, Atspi.Text.get_character_count(node))


def role_of(node):
    """The name of the role, in the words of Debian 12; later releases call a push button a button."""
    return "push button" if node.get_role() == Atspi.Role.PUSH_BUTTON else node.get_role_name()


def told_of(node):
    return [node.get_description(), value_of(node), text_of(node)]


def place_of(node):
    if "Component" not in node.get_interfaces():
        return []
    place = Atspi.Component.get_extents(node, Atspi.CoordType.SCREEN)
    return [str(part) for part in (place.x, place.y, place.width, place.height)]


def tell(node, more):
    if node.get_state_set().contains(Atspi.StateType.SHOWING):
        parts = [role_of(node), node.get_name()] + more(node)
        print("\t".join(in_a_line(part) for part in parts))
    for at in range(node.get_child_count()):
        child = node.get_child_at_index(at)
        if child is not None:
            tell(child, more)


def main():
    more = place_of if "--places" in sys.argv else told_of
    desktop = Atspi.get_desktop(0)
    for at in range(desktop.get_child_count()):
        program = desktop.get_child_at_index(at)
        if program is None or program.get_name() != sys.argv[1]:
            continue
        for window in range(program.get_child_count()):
            try:
                tell(program.get_child_at_index(window), more)
            except GLib.Error as gone:  # a window that closes meanwhile
                print(f"gone\t{gone.message}")


if __name__ == "__main__":
    main()
