#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Holds every command of the command line against what a command brings along.

    tests/cli/complete_commands.py TARVOKOL_CLI SOURCE

A command has one file in cli/commands, a schema of its own or another's that the list of schemas names, a row in a help topic, an
entry in the man page and in the completions for bash, zsh and fish, which are made of its help, a run in schemas.py, and a test. A
command that does not exist lacks all of it, which shows that this test looks.
"""
import pathlib
import re
import subprocess
import sys
import tempfile

UNKNOWN = "nonesuch"


def commands_of(cli):
    listing = subprocess.run([cli, "--help"], capture_output=True, text=True, check=True).stdout
    return re.findall(r"^  ([a-z-]+) {2,}", listing.split("Subcommands:")[1], re.MULTILINE)


def made_documents(cli, source, folder):
    """Man page and completions as the build makes them, the page without its head and tail."""
    man = folder / "man"
    man.mkdir()
    for part in ["head", "tail"]:
        (man / f"tarvokol-cli.1.{part}").write_text("")
    subprocess.run([source / "packaging/cli/make_documents.sh", cli, man, folder / "made"], check=True)
    return {name: (folder / "made" / name).read_text()
            for name in ["tarvokol-cli.1", "tarvokol-cli", "_tarvokol-cli", "tarvokol-cli.fish"]}


class Brought:
    """What the sources and the documents made of the help hold."""

    def __init__(self, cli, source):
        self.source = source
        self.topics = "".join(path.read_text() for path in (source / "resources/help").glob("*.htm"))
        self.tests = "".join(path.read_text() for path in (source / "tests/cli").glob("*_test.cpp"))
        self.runs = (source / "tests/cli/schemas.py").read_text()
        self.schemas = (source / "docs/schema/README.md").read_text()
        with tempfile.TemporaryDirectory() as name:
            self.made = made_documents(cli, source, pathlib.Path(name))

    def looks(self, name):
        """What is asked for, and whether the command has it."""
        yield "file in cli/commands", (self.source / f"cli/commands/{name}_command.cpp").exists()
        row = next((row for row in self.schemas.splitlines() if row.startswith("|") and f"`{name}`" in row), "")
        schemas = re.findall(r"`([a-z]+\.schema\.json)`", row)
        yield "row in docs/schema/README.md", row
        yield "schema", schemas and all((self.source / "docs/schema" / schema).exists() for schema in schemas)
        yield "row in a help topic", re.search(rf"<t[dh]><code>{name}\b|<td>(\w+, )*{name}\b", self.topics)
        yield "entry in the man page", f".SS {name}\n" in self.made["tarvokol-cli.1"]
        yield "completion for bash", re.search(rf'1\*\) words="[^"]*\b{name}\b', self.made["tarvokol-cli"])
        yield "completion for zsh", re.search(rf"^        {name}\)$", self.made["_tarvokol-cli"], re.MULTILINE)
        yield "completion for fish", f"-a {name} -d" in self.made["tarvokol-cli.fish"]
        yield "run in tests/cli/schemas.py", f'commands.run("{name}"' in self.runs
        yield "test in tests/cli", f'{{"{name}"' in self.tests

    def missing(self, name):
        return [what for what, found in self.looks(name) if not found]


def main():
    cli, source = pathlib.Path(sys.argv[1]).resolve(), pathlib.Path(sys.argv[2]).resolve()
    brought, names = Brought(cli, source), commands_of(cli)
    faults = [f"{name}: no {what}" for name in names for what in brought.missing(name)]
    files = {path.name.removesuffix("_command.cpp") for path in (source / "cli/commands").glob("*_command.cpp")}
    faults += [f"cli/commands/{name}_command.cpp: no command of --help" for name in sorted(files - set(names))]
    if len(brought.missing(UNKNOWN)) != len(list(brought.looks(UNKNOWN))):
        faults.append("this test does not see what a command lacks")
    for fault in faults:
        print(fault)
    print(f"{len(names)} commands, {len(faults)} faults")
    return 1 if faults or not names else 0


if __name__ == "__main__":
    sys.exit(main())
