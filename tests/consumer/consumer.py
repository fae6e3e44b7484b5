#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Builds a program of somebody else's on the installed library, and looks at what the library shows.

    tests/consumer/consumer.py BUILD_FOLDER SOURCE TARVOKOL_CLI LIBRARY

The library is installed into a folder of its own and used from there by CMake and by pkg-config, by each of the compilers that
are installed. What the program prints is beside what the command line says of the same project. The names that other programs
may call are those of library/abi.symbols; its soname carries the version of the interface.
"""
import json
import os
import pathlib
import shlex
import shutil
import subprocess
import sys
import tempfile

COMPILERS = [name for name in ("g++", "clang++") if shutil.which(name)]
WARNINGS = ["-Wall", "-Wextra", "-Wpedantic", "-Wshadow", "-Werror"]


def run(words, **more):
    done = subprocess.run([str(word) for word in words], capture_output=True, text=True, **more)
    if done.returncode != 0:
        sys.exit(f"{shlex.join(map(str, words))}: status {done.returncode}\n{done.stdout}{done.stderr}")
    return done.stdout


def install(build, folder):
    for part in ("engine", "engine-dev"):
        run(["cmake", "--install", build, "--component", part, "--prefix", folder])
    return next(folder.rglob("libtarvokol-engine.so.1")).parent


def expected(cli, project):
    """What the consumer prints, from what the command line says."""
    def objects(*words):
        return [json.loads(line) for line in run([cli, *words, "--json", project]).splitlines()]

    results, sizes = objects("results")[0], objects("size")[0]
    depth, web = objects("curve", "sf-depth")[0], objects("curve", "web")[0]
    rows = objects("sweep", "--quiet", "--vary", "DepthCover=100:200:50")
    risk = objects("risk", "--quiet", "--samples", "1000", "--random", "CoalStrength=lognormal:100%:15%")[0]
    return [
        ("project:", [results["project"]["ProjectTitle"]]),
        ("factors:", results["StabilityFactor"]),
        ("label:", ["(tons)"]),
        ("sizes:", [sizes["SuggestedWeb"], sizes["SuggestedBarrier"]]),
        ("curve:", [depth["CurvePoints"], depth["CurveData"][0][0], depth["CurveData"][1][0]]),
        ("widths:", [web["CurvePoints"], web["CurveData"][1][0]]),
        ("refused:", ["Invalid entry height"]),
        ("error:", ["9 Subscript out of range"]),
        ("study:", None),
        *[("row:", [row["DepthCover"], row["WebsOnly"]]) for row in rows],
        ("risk:", [risk["factors"]["WebsOnly"]["below"][0]["probability"]]),
        ("parts:", [risk["factors"]["WebsOnly"]["below"][0]["probability"]]),
    ]


def numbers(text):
    return [float(word) for word in text.replace(",", " ").split() if word != "points"]


def faults_of(printed, lines):
    if len(printed) != len(lines):
        yield f"{len(printed)} lines, expected {len(lines)}: {printed}"
    for line, (key, values) in zip(printed, lines):
        name, _, rest = line.partition(" ")
        if name != key:
            yield f"{line}: expected {key}"
        elif values and isinstance(values[0], str):
            if rest != values[0]:
                yield f"{line}: expected {values[0]}"
        elif values is not None and numbers(rest) != values:
            yield f"{line}: expected {values}"


def programs(source, folder, libraries):
    """The consumer, built in each way: its path and how it was made."""
    where = source / "tests" / "consumer"
    for compiler in COMPILERS:
        made = folder / f"cmake-{compiler}"
        run(["cmake", "-S", where, "-B", made, "-G", "Ninja", f"-DCMAKE_PREFIX_PATH={folder / 'installed'}",
             f"-DCMAKE_CXX_COMPILER={compiler}", "-DCMAKE_BUILD_TYPE=None"])
        run(["cmake", "--build", made])
        yield made / "consumer", f"CMake and {compiler}"
        flags = run(["pkg-config", "--cflags", "--libs", "tarvokol-engine"],
                    env={**os.environ, "PKG_CONFIG_PATH": str(libraries / "pkgconfig")})
        program = folder / f"pkg-config-{compiler}"
        run([compiler, *WARNINGS, where / "consumer.cpp", *shlex.split(flags), "-o", program])
        yield program, f"pkg-config and {compiler}"


def interface_faults(source, library):
    listed = (source / "library" / "abi.symbols").read_text().split()
    shown = [line.split()[-1] for line in run(["nm", "-D", "--defined-only", library]).splitlines()]
    versioned = [name.split("@@")[0] for name in shown if "@@TARVOKOL_1" in name]
    others = [name for name in shown if "@@" not in name and name != "TARVOKOL_1"]
    yield from (f"{name} has no version" for name in others)
    yield from (f"{name} is shown and not listed" for name in sorted(set(versioned) - set(listed)))
    yield from (f"{name} is listed and not shown" for name in sorted(set(listed) - set(versioned)))
    if "[libtarvokol-engine.so.1]" not in run(["readelf", "-dW", library]):
        yield "the soname is not libtarvokol-engine.so.1"


def main():
    build, source, cli, library = (pathlib.Path(word).resolve() for word in sys.argv[1:5])
    project = source / "examples" / "Ridge_Point_Narrow_Webs.TKL"
    faults = list(interface_faults(source, library))
    lines = expected(cli, project)
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        libraries = install(build, folder / "installed")
        for program, made in programs(source, folder, libraries):
            printed = run([program, project], env={**os.environ, "LD_LIBRARY_PATH": str(libraries)}).splitlines()
            faults += [f"{made}: {fault}" for fault in faults_of(printed, lines)]
    for fault in faults:
        print(fault)
    print(f"{2 * len(COMPILERS)} programs, {len(faults)} faults")
    return 1 if faults or not COMPILERS else 0


if __name__ == "__main__":
    sys.exit(main())
