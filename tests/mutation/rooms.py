# SPDX-License-Identifier: GPL-3.0-or-later
"""The rooms whose code is changed, and the tests that should notice it."""
import re
from dataclasses import dataclass
from pathlib import Path


@dataclass(frozen=True)
class Room:
    name: str  # its folder
    tests: str  # a pattern of names of CTest
    house: str = "core"

    def sources(self, tree):
        folder = tree / self.name
        files = [file for ending in ("*.cpp", "*.h", "*.ui") for file in folder.glob(ending)]
        return sorted(str(file.relative_to(tree)) for file in files)


_CORE = {
    "runtime": "unit_runtime",
    "statistics": "unit_statistics|unit_studies",
    "engine": "unit_engine|unit_project",
    "files": "unit_files|unit_project",
    "messages": "unit_messages",
    "settings": "unit_settings",
    "project": "unit_project",
    "studies": "unit_studies|unit_engine_threads",
    "report": "unit_report",
    "graphics": "unit_graphics",
    "program": "unit_program",
}


def _gui_tests(tree, folder):
    names = sorted(file.stem for file in (tree / "tests/gui" / folder).glob("*_test.cpp"))
    return "|".join("gui_" + re.escape(name) for name in names)


def rooms_of(tree):
    """All rooms, in the order of the floors."""
    tree = Path(tree)
    rooms = [Room("core/" + name, f"^({tests})$") for name, tests in _CORE.items()]
    for name in ("cli", "cli/line", "cli/output", "cli/commands"):
        rooms.append(Room(name, "^(cli_commands|cli_parts)$", "cli"))
    for folder in sorted(path.name for path in (tree / "qt").iterdir() if path.is_dir()):
        rooms.append(Room("qt/" + folder, f"^({_gui_tests(tree, 'qt')})$", "qt"))
    for folder in sorted(path.name for path in (tree / "desktop").iterdir() if path.is_dir()):
        tests = _gui_tests(tree, folder)
        if tests:
            rooms.append(Room("desktop/" + folder, f"^({tests})$", "desktop"))
    return rooms
