# SPDX-License-Identifier: GPL-3.0-or-later
"""Figures of section 6 of the report: limits and known oddities of the model."""

import math
from types import SimpleNamespace

import exact
from figure_texts import count, part, percent
from oddities import USUAL
from pages import table
from panels import RADIANS_PER_DEGREE
from reference_rows import FIGURES, WORKED

NAMES = (("height", "extraction height", "ft"), ("depth", "depth of cover", "ft"), ("hole", "hole width", "ft"),
         ("web", "web", "ft"), ("barrier", "barrier", "ft"), ("strength", "strength", "psi"),
         ("weight", "unit weight", "pcf"), ("angle", "abutment angle", "degrees"), ("sf_web", "target for webs", ""),
         ("sf_barrier", "target for barriers", ""))


def _ranges():
    return ", ".join(f"{name} {USUAL[key][0]:g} to {USUAL[key][1]:g} {unit}".strip() for key, name, unit in NAMES)


def _road_table(found):
    rows = []
    for road, spread in found["part of the true width"].items():
        digits = 3 if road.endswith("button") else 0
        rows.append((road, *(percent(spread[key], digits) for key in ("smallest", "middle", "largest")),
                     f"{count(found['not found'][road])} of {count(found['panels'])}"))
    return table(("Width", "#smallest", "#middle", "#largest", "#not found"), rows)


def _over_90(program):
    """Side load and Barrier Pillar of the first example, and with an abutment angle of 120 degrees."""
    panel = WORKED[0]
    side, factor = FIGURES.index("SideAbutmentLoad2"), FIGURES.index("StabilityFactor3")
    usual, over = program.ask("analysis", [panel, panel._replace(angle=120.0)])
    return {"side": f"{usual[side]:,.0f}", "over_side": f"{over[side]:,.0f}", "factor": f"{usual[factor]:.2f}",
            "over_factor": f"{over[factor]:.2f}"}


def _first_example():
    figures = dict(zip(FIGURES, exact.analyse(WORKED[0])))
    deeper = dict(zip(FIGURES, exact.analyse(WORKED[0]._replace(depth=WORKED[0].depth * 1.001))))
    change = float(deeper["StabilityFactor3"] / figures["StabilityFactor3"] - 1)
    return {"abutment_part": percent(float(2 * figures["SideAbutmentLoad2"] / figures["TotalLoad3"]), 0),
            "one_per_mille": percent(change, 2)}


def oddity_values(found, program):
    more, shown, webs = found["one web more"]["barrier"], found["shown decimals"]["Metric"], found["thicker webs"]
    return SimpleNamespace(
        panels=count(found["English sizes"]["panels"]), ranges=_ranges(), english=_road_table(found["English sizes"]),
        metric=_road_table(found["Metric sizes"]), more_largest=percent(more["largest"] - 1),
        more_middle=percent(more["middle"] - 1), shown_smallest=percent(shown["smallest"] - 1, 2),
        shown_largest=percent(shown["largest"] - 1, 2), falls=percent(webs["falls"] / webs["panels"]),
        largest_fall=percent(webs["largest fall"]), length_term=part(0.18 * 200.0 / 1e6 / 0.54),
        degree=part(1.0 - 180.0 * RADIANS_PER_DEGREE / math.pi), **_first_example(), **_over_90(program))
