#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Runs the recipes of docs/recipes.md and compares what they print.

    tests/cli/recipes.py TARVOKOL_CLI SOURCE

Each recipe runs by itself, in bash, in the folder that the page's first command makes of the example projects, `tarvokol-cli` being
the program given. It must end with status 0, say nothing on standard error and print what stands below it.
"""
import os
import pathlib
import re
import shlex
import subprocess
import sys
import tempfile

RECIPE = re.compile(r"^## (\d+\. [^\n]+)\n.*?^```sh\n(.*?)^```\n\n```text\n(.*?)^```$", re.MULTILINE | re.DOTALL)
FOLDER = re.compile(r"^```sh\n(cp [^\n]+)\n```$", re.MULTILINE)
INSTALLED = "/usr/share/doc/tarvokol/examples"
COUNT = 10


def run(commands, cli):
    with tempfile.TemporaryDirectory() as folder:
        path = f"{cli.parent}{os.pathsep}{os.environ['PATH']}"
        return subprocess.run(["bash", "-euo", "pipefail", "-c", commands], cwd=folder, capture_output=True, text=True,
                              stdin=subprocess.DEVNULL, env={**os.environ, "PATH": path, "LC_ALL": "C.UTF-8"})


def main():
    cli, source = pathlib.Path(sys.argv[1]).resolve(), pathlib.Path(sys.argv[2]).resolve()
    page = (source / "docs" / "recipes.md").read_text()
    recipes = RECIPE.findall(page)
    folder = FOLDER.search(page)[1]
    if INSTALLED not in folder:
        sys.exit(f"the first command is to copy {INSTALLED}")
    folder = folder.replace(INSTALLED, shlex.quote(str(source / "examples")))
    faults = 0
    for title, commands, expected in recipes:
        done = run(f"{folder}\n{commands}", cli)
        if done.returncode == 0 and done.stderr == "" and done.stdout == expected:
            continue
        faults += 1
        print(f"== {title}: status {done.returncode}\n{done.stderr}-- expected\n{expected}-- printed\n{done.stdout}")
    print(f"{len(recipes)} recipes, {faults} faults")
    return 0 if faults == 0 and len(recipes) == COUNT else 1


if __name__ == "__main__":
    sys.exit(main())
