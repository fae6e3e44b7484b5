#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Gives every schema of docs/schema its own copy of the definitions that it uses, so that a validator takes it alone.

    tests/cli/bundle_schemas.py FOLDER

The definitions are written in common.schema.json; tests/cli/schemas.py fails where a copy differs from them.
"""
import json
import pathlib
import re
import sys

COMMON = "common.schema.json"
REFERENCE = re.compile(r'"(?:common\.schema\.json)?#/\$defs/(\w+)"')


def bundled(schema, definitions):
    """The schema with references to its own definitions, those of `definitions` that it needs."""
    own = {key: value for key, value in schema.get("$defs", {}).items() if key not in definitions}
    plain = {key: value for key, value in schema.items() if key != "$defs"}
    needed, open_names = {}, set(REFERENCE.findall(json.dumps([plain, own])))
    while open_names:
        name = open_names.pop()
        if name in own or name in needed:
            continue
        needed[name] = definitions[name]
        open_names |= set(REFERENCE.findall(json.dumps(definitions[name])))
    held = own | dict(sorted(needed.items()))
    text = json.dumps(plain | ({"$defs": held} if held else {}), ensure_ascii=False, indent=2)
    return text.replace(f'"{COMMON}#/', '"#/') + "\n"


def main():
    folder = pathlib.Path(sys.argv[1])
    definitions = json.loads((folder / COMMON).read_text().replace(f'"{COMMON}#/', '"#/'))["$defs"]
    for path in sorted(folder.glob("*.schema.json")):
        schema = json.loads(path.read_text())
        if path.name == COMMON:
            schema["$defs"] = definitions
            path.write_text(json.dumps(schema, ensure_ascii=False, indent=2) + "\n")
        else:
            path.write_text(bundled(schema, definitions))


if __name__ == "__main__":
    main()
