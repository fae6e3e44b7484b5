#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Runs every command that a document tells of.

    tests/cli/documented_commands.py TARVOKOL_CLI SOURCE

Commands stand in the indented lines of the Markdown pages, in the <pre> blocks of the help topics, in the examples of the man
page and in those of `tarvokol-cli COMMAND --help`. Those of the command line are run, in a folder with the example projects and the
files that the documents speak of; each must end with status 0. Of the others, which build or install, script and preset must be
there. Recipes have a test of their own.
"""
import html
import json
import os
import pathlib
import re
import shlex
import shutil
import subprocess
import sys
import tempfile

PLACEHOLDER = re.compile(r"\b(COMMAND|OPTIONS|FILE|PROJECT|FIELD|QUANTITY|VALUE|PATH)\b|\.\.\.")
PRE = re.compile(r"<pre[^>]*>(.*?)</pre>", re.DOTALL)
MAN_EXAMPLE = re.compile(r"^\.B (tarvokol\\-cli .*)$", re.MULTILINE)
LEAST = 30  # commands that the documents have; fewer mean that this test no longer finds them


def joined(lines):
    """Lines that are indented deeper than a command go on with it."""
    commands = []
    for line in lines:
        if line[:1].isspace() and commands:
            commands[-1] += " " + line.strip()
        elif line.strip():
            commands.append(line.rstrip())
    return commands


def in_markdown(path):
    return [line[4:].rstrip() for line in path.read_text().splitlines() if re.match(r" {4}\S", line)]


def in_help_topic(path):
    for block in PRE.findall(path.read_text()):
        yield from joined(html.unescape(block).splitlines())


def in_program(cli):
    listing = subprocess.run([cli, "--help"], capture_output=True, text=True, check=True).stdout
    for name in re.findall(r"^  ([a-z]+) {2,}", listing.split("Subcommands:")[1], re.MULTILINE):
        told = subprocess.run([cli, name, "--help"], capture_output=True, text=True, check=True).stdout
        examples = re.sub(r" \\\n +", " ", told.partition("Examples:")[2])
        yield from (line.strip() for line in examples.splitlines() if line.strip())


def all_commands(cli, source):
    pages = [*source.glob("*.md"), *source.glob("docs/*.md"), *source.glob("docs/schema/*.md"), source / "bench/README.md",
             source / "tests/validation/README.md"]
    for page in sorted(pages):
        if page.name != "recipes.md":
            yield from ((page.name, command) for command in in_markdown(page))
    for topic in sorted((source / "resources").rglob("*.htm")):
        yield from ((topic.name, command) for command in in_help_topic(topic))
    man = (source / "packaging/man/tarvokol-cli.1.tail.in").read_text()
    yield from (("man page", command.replace("\\-", "-")) for command in MAN_EXAMPLE.findall(man))
    yield from (("--help", command) for command in in_program(cli))


def prepare(folder, source):
    (folder / "examples").mkdir()
    for example in (source / "examples").iterdir():
        shutil.copy(example, folder)
        shutil.copy(example, folder / "examples")
    shutil.copy(source / "examples/Contour_Bench_Shallow.TKL", folder / "panel.TKL")
    shutil.copy(source / "examples/Tamsin_Ridge_Boreholes.csv", folder / "boreholes.csv")
    shutil.copy(source / "examples/Tamsin_Ridge_Strengths.csv", folder / "strengths.csv")
    shutil.copy(source / "tests/fuzz/corpus/fuzz_kept_study/whole", folder / "shallow.TKS")
    (folder / "survey.csv").write_text("Hole,DepthCover,Height,Note\nA,60,4.5,x\n")


def run(command, cli, source):
    """What is wrong with a command; nothing if it ends well."""
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        prepare(folder, source)
        if "results.jsonl" in command and ">" not in command:
            subprocess.run(f"'{cli}' results --json *.TKL > results.jsonl", shell=True, cwd=folder, check=True)
        path = f"{cli.parent}{os.pathsep}{os.environ['PATH']}"
        done = subprocess.run(["bash", "-eo", "pipefail", "-c", command], cwd=folder, capture_output=True, text=True,
                              stdin=subprocess.DEVNULL, env={**os.environ, "PATH": path})
        return f"status {done.returncode}: {done.stderr}" if done.returncode != 0 else ""


def missing(command, source):
    """The script or preset of a command that the sources do not have."""
    words = shlex.split(command, comments=True)
    program = words[0].removeprefix("./")
    if "/" in words[0] and not program.startswith("build/") and not os.access(source / program, os.X_OK):
        return f"no such program: {words[0]}"
    presets = json.loads((source / "CMakePresets.json").read_text())["configurePresets"]
    for option, value in zip(words, words[1:]):
        if option == "--preset" and value not in [preset["name"] for preset in presets]:
            return f"no such preset: {value}"
    return ""


def main():
    cli, source = pathlib.Path(sys.argv[1]).resolve(), pathlib.Path(sys.argv[2]).resolve()
    ran = faults = 0
    for page, command in all_commands(cli, source):
        fault = ""
        if re.search(r"(^|\| *)(tarvokol-cli|jq) ", command):
            if not PLACEHOLDER.search(command):
                fault = run(command, cli, source)
                ran += 1
        elif re.match(r"(sudo )?(\./|bench/|tests/|packaging/|cmake |ctest )", command):
            fault = missing(command.removeprefix("sudo "), source)
        if fault:
            faults += 1
            print(f"{page}: {command}\n  {fault}")
    print(f"{ran} commands ran, {faults} faults")
    return 0 if faults == 0 and ran >= LEAST else 1


if __name__ == "__main__":
    sys.exit(main())
