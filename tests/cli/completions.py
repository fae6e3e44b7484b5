#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""What the completions offer, in bash as it runs, in zsh and fish where they are installed.

    tests/cli/completions.py TARVOKOL_CLI SOURCE
"""
import pathlib
import shutil
import subprocess
import sys
import tempfile

FIELDS = ("Height DepthCover HoleWidth WebThickness BarrierPillarWidth NumberHoles CoalStrength UnitWeight AbutmentAngle "
          "SFWeb SFBarrier").split()
FIGURES = "Overall WebsOnly BarrierPillar ExtractionRatio SuggestedWeb SuggestedBarrier".split()
DISTRIBUTIONS = ("normal: lognormal: truncnormal: uniform: triangular: pert: beta: weibull: gumbel: gamma: list: data:").split()
IN_BASH = """
. "$1"; shift
COMP_WORDS=(tarvokol-cli "$@"); COMP_CWORD=$#
_tarvokol_cli
printf '%s\\n' "${COMPREPLY[@]}"
"""

# The words up to the one that is completed, as bash hands them over, and what it offers.
CASES = [
    (["con"], ["convert"]),
    (["hel"], ["help"]),
    (["help", "un"], ["units"]),
    (["curve", "sf-"], ["sf-height", "sf-depth", "sf-hole"]),
    (["curve", "web", "pan"], ["panel.TKL"]),
    (["results", "pan"], ["panel.TKL"]),
    (["results", "--format", ""], ["txt", "pdf", "json", "jsonl"]),
    (["results", "--format", "=", "js"], ["json", "jsonl"]),
    (["results", "--format", "="], ["txt", "pdf", "json", "jsonl"]),
    (["results", "--format=js"], ["--format=json", "--format=jsonl"]),
    (["plan", "--mode", "str"], ["strength"]),
    (["plan", "--mo"], ["--mode"]),
    (["results", "-o", "pan"], ["panel.TKL"]),
    (["sweep", "panel.TKL", "--vary", ""], [field + "=" for field in FIELDS]),
    (["sweep", "panel.TKL", "--vary", "Height", "=", "5", "--vary", "Dep"], ["DepthCover="]),
    (["sweep", "panel.TKL", "--vary", "Height", "="], []),
    (["sweep", "panel.TKL", "--vary", "Height", "=", "p"], []),
    (["sweep", "panel.TKL", "--of", ""], FIGURES),
    (["sweep", "panel.TKL", "--threads", "p"], []),
    (["risk", "panel.TKL", "--correlate", "Hei"], ["Height,"]),
    (["risk", "panel.TKL", "--random", "Hei"], ["Height="]),
    (["risk", "panel.TKL", "--random", "Height", "="], DISTRIBUTIONS),
    (["risk", "panel.TKL", "--random", "Height", "=", "t"], ["truncnormal:", "triangular:"]),
    (["sweep", "panel.TKL", "--vary", "Height", "=", "5", "--random", "DepthCover", "=", "gu"], ["gumbel:"]),
    (["table", "panel.TKL", "rows.csv", "--random", "Height", "=", "b"], ["beta:"]),
    (["design", "panel.TKL", "--random", "Height", "=", "norm"], ["normal:"]),
    (["risk", "panel.TKL", "--samples", ""], []),
    (["fit", "values.csv", "--field", ""], FIELDS),
    (["fit", "values.csv", "--column", ""], []),
    (["units", "str"], ["stress", "stress-grad"]),
    (["units", "stress", ""], ["psi", "ksi", "psf", "Pa", "MPa"]),
    (["units", "length", ""], ["in", "ft", "cm", "m"]),
    (["units", "length", "ft", ""], []),
]
# Typed in fish, and what it offers.
FISH = [
    ("plan --mode str", ["strength"]),
    ("results --format=js", ["--format=json", "--format=jsonl"]),
    ("sweep panel.TKL --vary Height=5 --vary Dep", ["DepthCover="]),
    ("sweep panel.TKL --of Bar", ["BarrierPillar"]),
    ("risk panel.TKL --random Height=tr", ["Height=triangular:", "Height=truncnormal:"]),
    ("fit values.csv --field Coal", ["CoalStrength"]),
    ("units stress Pa", ["Pa"]),
    ("help un", ["units"]),
]
# Lines of the completion for zsh, which needs a terminal to complete.
ZSH = [
    "'*--vary=[",
    "'--of=[",
    '{compadd -S "" -- Height= DepthCover= ',
    '{if compset -P "*="; then compadd -S "" -- normal\\: lognormal\\: truncnormal\\: ',
    "(stress) compadd -- psi ksi psf Pa MPa ;;",
    "'--format=[",
    "help)",
]


def made(cli, source, folder):
    man = folder / "man"
    man.mkdir()
    for part in ["head", "tail"]:
        (man / f"tarvokol-cli.1.{part}").write_text("")
    subprocess.run([source / "packaging/cli/make_documents.sh", cli, man, folder / "made"], check=True)
    return folder / "made"


def offered(shell_words, folder):
    answer = subprocess.run(shell_words, cwd=folder, capture_output=True, text=True, check=True)
    if answer.stderr:
        sys.exit(answer.stderr)
    return [line.split("\t")[0] for line in answer.stdout.splitlines() if line]


def faults(made_of, folder):
    for words, expected in CASES:
        told = offered(["bash", "-c", IN_BASH, "bash", made_of / "tarvokol-cli", *words], folder)
        if told != expected:
            yield f"bash {words}: {told}, expected {expected}"
    zsh = (made_of / "_tarvokol-cli").read_text()
    yield from (f"zsh: no {line}" for line in ZSH if line not in zsh)
    if shutil.which("zsh"):
        yield from offered(["zsh", "-n", made_of / "_tarvokol-cli"], folder)
    if not shutil.which("fish"):
        return
    for typed, expected in FISH:
        told = offered(["fish", "--no-config", "-c", f"source {made_of}/tarvokol-cli.fish; complete -C 'tarvokol-cli {typed}'"], folder)
        if told != expected:
            yield f"fish {typed!r}: {told}, expected {expected}"


def main():
    cli, source = pathlib.Path(sys.argv[1]).resolve(), pathlib.Path(sys.argv[2]).resolve()
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        work = folder / "work"
        work.mkdir()
        (work / "panel.TKL").write_text("")
        found = list(faults(made(cli, source, folder), work))
    for fault in found:
        print(fault)
    print(f"{len(CASES)} completions, {len(found)} faults")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
