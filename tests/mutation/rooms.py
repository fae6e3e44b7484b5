# SPDX-License-Identifier: GPL-3.0-or-later
"""The rooms whose code, forms, topics and scripts are changed, and the tests that should notice it."""
import re
from dataclasses import dataclass
from pathlib import Path


# What a program writes and a test compares with it, to the letter.
_MADE = ("validation.htm",)


@dataclass(frozen=True)
class Room:
    name: str  # its folder
    tests: str  # a pattern of names of CTest
    house: str = "core"
    patterns: tuple = ("*.cpp", "*.h", "*.ui")  # of its files, below the folder
    targets: tuple = ()  # what the tests read beside their own programs

    def sources(self, tree):
        folder = tree / self.name
        files = [file for pattern in self.patterns for file in folder.glob(pattern)]
        return sorted(str(file.relative_to(tree)) for file in files if file.name not in _MADE)


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


_SCRIPT_TESTS = "package_lists|arguments|administrator|progress|fuzz_run|steps|runs"

# What is no code: read by people, desktops and shells.
_OTHERS = (
    Room("resources/help", "^(unit_program|gui_help_(file|window)_test|gui_qt_help_viewer_test|cli_documented_commands)$", "resources",
         ("*.htm", "*.qhp"), ("tarvokol_resources",)),
    Room("packaging", "^(packaging_.*|installation|cli_completions)$", "packaging",
         ("*.desktop", "*.xml", "debian/*.sh", "cli/*.sh"), ("all",)),
    Room(".", f"^packaging_({_SCRIPT_TESTS})$", "scripts",
         ("run", "test", "package", "packaging/*.sh", "tests/steps.sh", "tests/fuzz/run")),
)


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
    rooms.append(Room("studies/model", "^(studies_model|studies_figures)$", "studies"))
    for folder in ("pages", "window"):
        rooms.append(Room("studies/" + folder, "^studies_window$", "studies"))
    return rooms + list(_OTHERS)
