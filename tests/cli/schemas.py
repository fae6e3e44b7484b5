#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Holds the JSON of every command against docs/schema.

    tests/cli/schemas.py TARVOKOL_CLI SOURCE

Every command runs over all examples and over projects that are refused, torn, empty or missing. Each schema is taken alone, as a
user's validator takes it; keys may be added to objects, but here one that its schema does not know is a fault, and so is a key of a
schema that no object has.
"""
import json
import pathlib
import subprocess
import sys
import tempfile

from jsonschema import Draft202012Validator

from bundle_schemas import COMMON, bundled

CURVES = ["sf-height", "sf-depth", "sf-hole", "web", "barrier"]
BOXES = {"length": "ft", "load": "lbsF", "load-grad": "lbsF/ft", "stress": "psf", "stress-grad": "psi/ft"}
SETTINGS = b"[FileMenu]\r\nMaxLastFiles=4\r\nLastFile1=a\r\nLastFile2=b\r\nLastFile3=c\r\nLastFile4=d\r\n"


# Every key of these is a caption or a setting.
CLOSED = ["units", "settings"]


def strict(schema):
    """The schema without room for keys that it does not name; a condition names only what it asks for."""
    if isinstance(schema, list):
        return [strict(part) for part in schema]
    if not isinstance(schema, dict):
        return schema
    closed = {key: part if key in ("if", "then", "else") else strict(part) for key, part in schema.items()}
    if schema.get("type") == "object" and "properties" in schema:
        closed.setdefault("additionalProperties", False)
    return closed


class Schemas:
    def __init__(self, folder):
        self.schemas = {path.name.split(".")[0]: json.loads(path.read_text()) for path in folder.glob("*.schema.json")}
        self.seen = {name: set() for name in self.schemas}
        self.faults = []
        self.objects = 0
        definitions = self.schemas[COMMON.split(".")[0]]["$defs"]
        for name, schema in self.schemas.items():
            Draft202012Validator.check_schema(schema)
            if f"{name}.schema.json" != COMMON and json.loads(bundled(schema, definitions)) != schema:
                self.faults.append(f"{name}.schema.json: its $defs are not those of {COMMON}; run "
                                   "tests/cli/bundle_schemas.py docs/schema")
        self.validators = {name: (Draft202012Validator(schema), Draft202012Validator(strict(schema)))
                           for name, schema in self.schemas.items()}

    def check(self, command, line, arguments):
        item = json.loads(line)
        self.seen[command].update(item)
        self.objects += 1
        plain, closed = self.validators[command]
        for error in closed.iter_errors(item):
            where = "/".join(map(str, error.absolute_path))
            self.faults.append(f"{' '.join(arguments)}\n  {where}: {error.message:.300}")
        if command not in CLOSED and not plain.is_valid(item | {"AddedLater": 1}):
            self.faults.append(f"{' '.join(arguments)}: the schema refuses a key that a later version adds")
        if command not in CLOSED and closed.is_valid(item | {"AddedLater": 1}):
            self.faults.append(f"{' '.join(arguments)}: this test would not see a key that the schema lacks")

    def unused(self):
        for name, schema in self.schemas.items():
            for key in sorted(set(schema.get("properties", {})) - self.seen[name]):
                yield f"{name}.schema.json: no object has {key}"


class Commands:
    def __init__(self, cli, schemas, folder):
        self.cli, self.schemas, self.folder = cli, schemas, folder

    def run(self, *arguments, objects, schema=None):
        """By its own schema, or by that of another command whose objects it prints."""
        done = subprocess.run([self.cli, *arguments], cwd=self.folder, capture_output=True, stdin=subprocess.DEVNULL)
        lines = done.stdout.splitlines()
        if len(lines) != objects:
            self.schemas.faults.append(f"{' '.join(arguments)}: {len(lines)} objects, expected {objects}: "
                                       f"{done.stderr.decode():.300}")
        for line in lines:
            self.schemas.check(schema or arguments[0], line, arguments)


def refused_projects(folder, example):
    """Projects that the check refuses, that end early, that are of another format, and that are not there."""
    lines = example.read_bytes().split(b"\r\n")
    end = lines.index(b"##EndDesc##")
    broken = {"height.TKL": (1, b"0"), "angle.TKL": (7, b"60"), "odd.TKL": (4, b"1E300"), "holes.TKL": (6, b" 99 ")}
    for name, (offset, value) in broken.items():
        changed = list(lines)
        changed[end + offset] = value
        (folder / name).write_bytes(b"\r\n".join(changed))
    (folder / "torn.TKL").write_bytes(b"\r\n".join(lines[:end]))
    (folder / "other.TKL").write_bytes(b"something else\r\n")
    (folder / "empty.TKL").write_bytes(b"")
    return [*broken, "torn.TKL", "other.TKL", "empty.TKL", "missing.TKL"]


def run_all(commands, folder, examples):
    sound = [str(path) for path in examples]
    names = sound + refused_projects(folder, examples[0])
    (folder / "s.ini").write_bytes(SETTINGS)
    (folder / "rows.csv").write_text("ok,units,Hole,DepthCover,row,Hole,Height,Overall\n"
                                     "1,2,A,150,3,4,5,6\n1,2,B,200,3,4,,6\n1,2,C,90,3,4,0,6\n")
    commands.run("results", "--json", *names, objects=len(names))
    commands.run("size", "--json", *names, objects=len(names))
    for kind in CURVES:
        commands.run("curve", kind, "--json", *names, objects=len(names))
    for mode in ["dimensions", "strength", "capacity"]:
        for view in ["window", "preview"]:
            commands.run("plan", "--mode", mode, "--view", view, "--json", *names, objects=len(names))
    commands.run("save", "--json", "-o", "saved/", *names, objects=len(names))
    for system in ["english", "metric"]:
        commands.run("convert", "--to", system, "--json", "-o", system + "/", *names, objects=len(names))
    for quantity, unit in BOXES.items():
        commands.run("units", "--json", quantity, unit, "2.5", objects=1)
    commands.run("units", "--json", "length", "m", "1E308", objects=1)
    commands.run("settings", "--json", objects=1)
    commands.run("settings", "--json", "s.ini", objects=1)
    for project in sound:
        varied = [word for field in FIELDS for word in ("--vary", f"{field}=0,5")]
        commands.run("sweep", project, "--json", *varied[:8], objects=16)
        commands.run("sweep", project, "--json", "--size", *varied[8:], objects=2 ** 7)
        commands.run("table", project, "rows.csv", "--json", "--size", objects=3)
        drawn = ["--random", "UnitWeight=normal:100%:5%", "--samples", "50"]
        commands.run("table", project, "rows.csv", "--json", *drawn, objects=3)
        commands.run("sweep", project, "--json", "--vary", "NumberHoles=5,6", *drawn, objects=2)
        commands.run("risk", project, "--json", "--samples", "100", "--random", "Height=uniform:1:12", "--random",
                     "DepthCover=normal:100%:10%", "--below", "WebsOnly=1.3", "--sobol", "--tornado", objects=1)
    commands.run("table", sound[0], every_field(folder), "--json", objects=1)
    commands.run("risk", sound[0], "--json", "--samples", "50", "--random", "Height=uniform:-2:-1", objects=1)
    for project in ["torn.TKL", "other.TKL", "empty.TKL", "missing.TKL"]:
        commands.run("sweep", project, "--json", "--vary", "Height=5", objects=1)
        commands.run("table", project, "rows.csv", "--json", objects=1)
        commands.run("risk", project, "--json", "--random", "Height=uniform:1:2", objects=1)
        commands.run("design", project, "--json", "--random", "CoalStrength=normal:100%:15%", "--find", "WebThickness",
                     "--until", "WebsOnly<1.6", "--probability", "5%", objects=1)
    commands.run("design", sound[0], "--json", "--samples", "1000", "--random", "CoalStrength=normal:100%:15%", "--find",
                 "WebThickness", "--until", "WebsOnly<1.6", "--find", "BarrierPillarWidth", "--until", "BarrierPillar<2",
                 "--probability", "5%", "--step", "0.25", objects=1)
    commands.run("design", sound[0], "--json", "--samples", "1000", "--random", "Height=uniform:1:12", "--find",
                 "WebThickness", "--until", "WebsOnly<1.6", "--probability", "5%", "--between", "WebThickness=1:2",
                 objects=1)
    commands.run("table", sound[0], "missing.csv", "--json", objects=1)
    (folder / "strengths.csv").write_text("Strength (psi)\n900\n850\n\n1000\n700\n")
    for column in ["Strength", "Other"]:
        commands.run("fit", "strengths.csv", "--column", column, "--json", objects=1)
    commands.run("table", sound[0], sound[0], "--json", objects=1)
    run_kept_study(commands, folder, pathlib.Path(sound[0]).parent)


def run_kept_study(commands, folder, examples):
    """The pages of a study but the map, whose 58,081 objects are those of `sweep`."""
    kept = examples.parent / "tests/fuzz/corpus/fuzz_kept_study/whole"
    (folder / "kept.TKS").write_bytes(kept.read_bytes())
    for page, schema in [("risk", "risk"), ("table", "table"), ("compare", "table"), ("width", "design")]:
        commands.run("study", "kept.TKS", "--page", page, "--json", objects=1, schema=schema)
        commands.run("study", "missing.TKS", "--page", page, "--json", objects=1, schema=schema)


FIELDS = ["Height", "DepthCover", "HoleWidth", "WebThickness", "BarrierPillarWidth", "NumberHoles", "CoalStrength",
          "UnitWeight", "AbutmentAngle", "SFWeb", "SFBarrier"]


def every_field(folder):
    (folder / "fields.csv").write_text(",".join(FIELDS) + "\n" + ",".join(["6"] * len(FIELDS)) + "\n")
    return "fields.csv"


def main():
    cli, source = pathlib.Path(sys.argv[1]).resolve(), pathlib.Path(sys.argv[2]).resolve()
    schemas = Schemas(source / "docs" / "schema")
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        run_all(Commands(cli, schemas, folder), folder, sorted((source / "examples").glob("*.TKL")))
    faults = schemas.faults + list(schemas.unused())
    for fault in faults[:20]:
        print(fault)
    print(f"{schemas.objects} objects, {len(faults)} faults")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
