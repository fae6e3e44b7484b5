# SPDX-License-Identifier: GPL-3.0-or-later
"""The validation report: docs/validation.md and the help topic that the manual holds, too. The words stand in
report_template.md; here are the figures for its places."""

import csv
import math
from pathlib import Path
from types import SimpleNamespace

from comparison import GROUPS
from figure_texts import count, part, percent
from pages import table, topic
from panels import RANGES
from report_examples import example_values
from report_oddities import oddity_values
from report_uncertainty import uncertainty_values

TEMPLATE = Path(__file__).with_name("report_template.md")
COVERAGE = Path(__file__).with_name("recorded_coverage.csv")
SEE_ALSO = (("model.htm", "The model: formulas and units"), ("sizing.htm", "The sizing solver"),
            ("curves.htm", "Curves: what is varied and how"), ("things_to_know.htm", "Things to know"))

# Inputs in the table of ranges: name, its range, unit.
INPUTS = (("extraction height", "height", "ft"), ("depth of cover", "depth", "ft"), ("hole width", "hole", "ft"),
          ("web thickness", "web", "ft"), ("barrier width", "barrier", "ft"), ("coal strength", "strength", "psi"),
          ("unit weight", "weight", "pcf"), ("abutment angle", "angle", "degrees"),
          ("target for webs", "sf_web", ""), ("target for barriers", "sf_barrier", ""))


def _bits(found):
    other = found["other bits"]["count"]
    return "every figure is the same to the last bit" if other == 0 else f"{count(other)} differ in the last digits"


def _held(breach):
    return "no breach" if breach["breaches"] == 0 else f"{count(breach['breaches'])} breaches"


def _value(found, key):
    return part(found[key]["value"])


def _ranges():
    return SimpleNamespace(table=table(("Input", "#from", "#to", "Unit"), [
        (name, f"{RANGES[key][0]:,g}", f"{RANGES[key][1]:,g}", unit) for name, key, unit in INPUTS]))


def _analysis(found):
    errors = {name: found["largest relative error"][name]["value"] for name in GROUPS}
    largest = max(errors[name] for name in ("Overall", "Webs ONLY", "Barrier Pillar"))
    return SimpleNamespace(
        panels=count(found["panels"]), metric=count(found["metric"]), wide=count(found["wide"]), bits=_bits(found),
        factors=part(largest), digits=math.floor(-math.log10(largest)),
        table=table(("Figure", "#Largest relative error"), [(name, part(error)) for name, error in errors.items()]))


def _sizes(found):
    errors = found["largest error"]
    return SimpleNamespace(
        panels=count(found["panels"]), bits=_bits(found), web=_value(errors, "web"), barrier=_value(errors, "barrier"),
        barrier_inches=_value(errors, "barrier, inches"), webs_lost=count(found["webs not found"]),
        barriers_lost=count(found["barriers not found"]))


def _curves(found):
    return SimpleNamespace(
        curves=count(found["curves"]), points=count(found["points"]), bits=_bits(found),
        short=count(found["curves of 50 points"]), otherwise=count(found["other bits"]["count"]))


def _units(found):
    return SimpleNamespace(
        panels=count(found["panels"]), converted=_value(found, "converted"), unexplained=_value(found, "unexplained"),
        endless=_value(found, "length 1000000 in both"), factor=part(found["factor of the conversion figures"]))


def _span(found):
    return SimpleNamespace(
        taken=_held(found["cut-off formula at equality"]), formulas=_value(found, "formulas at equality"),
        below=_value(found, "below, beside 1 - d squared"), above=_held(found["above, beside the full wedge"]))


def _fed(found):
    return SimpleNamespace(
        webs=count(found["webs"]), barriers=count(found["barriers"]), web_left=_value(found, "web, unexplained"),
        web_off=_value(found, "web, from the target"), barrier_left=_value(found, "barrier, unexplained"),
        below=_held(found["barrier below its target but for the length term"]))


def _monotony(found):
    held = {name: _held(found[name]) for name in ("height", "depth", "strength", "web")}
    return SimpleNamespace(falls=percent(found["Overall falls with a thicker web"] / found["panels"]), **held)


def _scaling(found):
    return SimpleNamespace(
        larger=_held(found["larger panel, powers of two"]), stronger=_held(found["stronger coal, powers of two"]),
        any=_value(found, "larger panel, any k"))


def _holes(found):
    return SimpleNamespace(
        wide=count(found["wide both times"]), webs=_held(found["Webs ONLY"]), barriers=_held(found["Barrier Pillar"]),
        sized_webs=_held(found["suggested web"]), sized_barriers=_held(found["suggested barrier"]))


def _coverage():
    with COVERAGE.open(encoding="utf-8", newline="") as text:
        rows = list(csv.DictReader(text))
    return SimpleNamespace(
        seeds=count(1000), samples=count(2003), least=94, lowest=min(float(row["coverage"]) for row in rows),
        table=table(("Draws", "Weights", "#Fields", "#Probability", "#Held, %", "#Width, samples", "#Asked for"), [
            (row["draws"], row["weights"], row["fields"], row["probability"], row["coverage"], row["width"], row["asked"])
            for row in rows]))


def page(record, program):
    """The report in Markdown."""
    full = record["full"]
    return TEMPLATE.read_text(encoding="utf-8").format(
        record=SimpleNamespace(panels=count(record["panels"])), ranges=_ranges(), analysis=_analysis(full["analysis"]),
        sizes=_sizes(full["sizes"]), curves=_curves(full["curves"]), units=_units(full["unit systems"]),
        span=_span(full["span limit"]), fed=_fed(full["sizes fed back"]), monotony=_monotony(full["monotony"]),
        scaling=_scaling(full["scaling"]), holes=_holes(full["number of holes"]),
        coverage=_coverage(), uncertain=uncertainty_values(), odd=oddity_values(full["oddities"], program), examples=example_values(program))


def files(record, program):
    """Path in the project and text of each file."""
    markdown = page(record, program)
    return {"docs/validation.md": markdown, "resources/help/validation.htm": topic(markdown, SEE_ALSO)}
