# SPDX-License-Identifier: GPL-3.0-or-later
"""Worked examples, line by line: what an engineer gets by hand, in exact decimal arithmetic from the figures as typed, beside
the program's figure."""

from decimal import Decimal
from pathlib import Path
from typing import NamedTuple, Optional

import exact
import steps
from panels import ENGLISH, METRIC, Panel
from reference_rows import FIGURES, WORKED

ROOT = Path(__file__).resolve().parents[2]


class Line(NamedTuple):
    quantity: str
    working: str
    hand: Decimal
    unit: str
    program: Optional[float] = None


class Example(NamedTuple):
    title: str
    given: str
    lines: list

    def largest_difference(self):
        return max(exact.relative_error(line.program, line.hand) for line in self.lines if line.program is not None)


def typed(value):
    """A figure as it is typed."""
    return Decimal(repr(value))


def grouped(value):
    """An input as it is written in a calculation: 1,000,000 or 4.5."""
    return f"{typed(value).normalize():,f}"


def hand_text(value, digits=10):
    """A hand figure rounded to `digits` significant digits, with thousands set apart."""
    shown = value.normalize() if value.normalize().adjusted() >= digits else +value
    places = max(digits - 1 - value.adjusted(), 0)
    rounded = shown.quantize(Decimal(1).scaleb(-places)) if places else shown.to_integral_value()
    return f"{rounded:,f}".rstrip("0").rstrip(".") if places else f"{rounded:,f}"


UNITS = {
    ENGLISH: {"length": "ft", "area": "sq ft", "strength": "psi", "stress": "psf", "weight": "pcf", "force": "lbs",
              "line": "lbs/ft", "to stress": 144},
    METRIC: {"length": "m", "area": "m2", "strength": "MPa", "stress": "kPa", "weight": "kN/m3", "force": "kN",
             "line": "kN/m", "to stress": 1000},
}


def given_text(panel):
    unit = UNITS[panel.units]
    return (f"h = {grouped(panel.height)}, H = {grouped(panel.depth)}, e = {grouped(panel.hole)}, "
            f"web {grouped(panel.web)}, barrier {grouped(panel.barrier)}, L = {grouped(panel.length)} {unit['length']}; "
            f"n = {panel.holes}; {grouped(panel.strength)} {unit['strength']}; γ = {grouped(panel.weight)} "
            f"{unit['weight']}; β = {grouped(panel.angle)}°")


class Hand:
    """The quantities of one panel by hand."""

    def __init__(self, panel):
        self.panel, self.unit = panel, UNITS[panel.units]
        self.h, self.depth, self.e, self.length = map(typed, (panel.height, panel.depth, panel.hole, panel.length))
        self.web, self.barrier, self.g = map(typed, (panel.web, panel.barrier, panel.weight))
        self.n, self.tan = panel.holes, exact.tangent(panel.angle)
        self.in_situ = typed(panel.strength) * self.unit["to stress"]
        self.span = (self.n - 1) * self.web + self.n * self.e
        self.side, self.wide = exact.side_load(self.depth, self.span, self.tan, self.g)

    def strength(self, width):
        return self.in_situ * exact.strength_factor(width, self.h, self.length)

    def factors(self):
        capacity = [self.strength(width) * width for width in (self.barrier, self.web)]
        column = self.g * self.depth
        return ((capacity[0] + (self.n - 1) * capacity[1]) / (column * (self.span + self.barrier)),
                capacity[1] / (column * (self.e + self.web)),
                capacity[0] / (column * self.barrier + 2 * self.side))


def panel_lines(panel, figures):
    """All steps of the analysis; `figures` are the program's, by name. Forces of panel and web stand for the length L."""
    hand, unit = Hand(panel), UNITS[panel.units]
    h, depth, e, length, web, barrier, g = (hand_text(x) for x in (
        hand.h, hand.depth, hand.e, hand.length, hand.web, hand.barrier, hand.g))
    n, shown = hand.n, lambda value: hand_text(value, 8)
    lines = []

    def add(quantity, working, value, unit_name, name=None):
        lines.append(Line(quantity, working, value, unit_name, figures[name] if name else None))
        return value

    add("In situ strength S", f"{grouped(panel.strength)} × {unit['to stress']}", hand.in_situ, unit["stress"])
    in_situ = hand_text(hand.in_situ)
    strengths, capacities = {}, {}
    for name, width, index in (("web", hand.web, 2), ("barrier", hand.barrier, 1)):
        w = hand_text(width)
        strengths[name] = add(
            f"Strength of {'a web' if name == 'web' else 'the barrier'}",
            f"{in_situ} × (0.64 + 0.54 × {w} / {h} − 0.18 × {w}² / ({h} × {length}))", hand.strength(width),
            unit["stress"], f"PillarStrength{index}")
        capacities[name] = add(
            f"Capacity of {'a web' if name == 'web' else 'the barrier'}",
            f"{shown(strengths[name])} × {w} × {length}", strengths[name] * width * hand.length, unit["force"],
            f"PillarCapacity{index}")
    per_length = add("Capacity of the barrier per unit length", f"{shown(strengths['barrier'])} × {barrier}",
                     strengths["barrier"] * hand.barrier, unit["line"], "CapacityTotal3")
    panel_capacity = add("Capacity of the panel", f"{shown(capacities['barrier'])} + {n - 1} × {shown(capacities['web'])}",
                         capacities["barrier"] + (n - 1) * capacities["web"], unit["force"], "CapacityTotal1")
    span = add("Panel width P", f"({n} − 1) × {web} + {n} × {e}", hand.span, unit["length"], "PanelSpan2")
    panel_load = add("Load of the panel", f"{g} × {depth} × {length} × ({shown(span)} + {barrier})",
                     hand.g * hand.depth * hand.length * (span + hand.barrier), unit["force"], "TotalLoad1")
    web_load = add("Load of a web", f"{g} × {depth} × {length} × ({e} + {web})",
                   hand.g * hand.depth * hand.length * (hand.e + hand.web), unit["force"], "TotalLoad2")
    add("Reach of the wedge, H × tan β", f"{depth} × tan {grouped(panel.angle)}°", hand.depth * hand.tan, unit["length"])
    tan = shown(hand.tan)
    if hand.wide:
        working = f"wide, since {shown(span / 2)} is greater: {depth}² × {tan} × {g} / 2"
    else:
        working = (f"cut off, since {shown(span / 2)} is not greater: ({depth} × {shown(span)} / 2 − {shown(span)}² "
                   f"/ (8 × {tan})) × {g}")
    add("Side load", working, hand.side, unit["line"], "SideAbutmentLoad2")
    own = add("Own load of the barrier", f"{g} × {depth} × {barrier}", hand.g * hand.depth * hand.barrier, unit["line"],
              "DevelopmentLoad3")
    load = add("Load of the barrier", f"{shown(own)} + 2 × {shown(hand.side)}", own + 2 * hand.side, unit["line"],
               "TotalLoad3")
    overall, webs_only, barrier_pillar = hand.factors()
    add("Overall", f"{shown(panel_capacity)} / {shown(panel_load)}", overall, "", "StabilityFactor1")
    add("Webs ONLY", f"{shown(capacities['web'])} / {shown(web_load)}", webs_only, "", "StabilityFactor2")
    add("Barrier Pillar", f"{shown(per_length)} / {shown(load)}", barrier_pillar, "", "StabilityFactor3")
    return lines


def figures_of(program, panels):
    """The program's figures of each panel, by name."""
    names = [name for name in FIGURES if not name.startswith("Suggested")]
    return [dict(zip(names, figures)) for figures in program.ask("analysis", panels)]


TITLES = (
    "A wide span (notes \"Pillar strength and load model\", section 5, and \"Abutment load\", section 3)",
    "A cut-off span (note \"Abutment load\", section 4)",
    "Two holes with a barrier no wider than the web",
    "The worked design (note \"A worked design\", section 5)",
    "The same in Metric units (note \"Units and conversions\", section 3)",
)


def panel_examples(program):
    panels = WORKED[:len(TITLES)]
    return [Example(title, given_text(panel), panel_lines(panel, figures))
            for title, panel, figures in zip(TITLES, panels, figures_of(program, panels))]


class NewtonStep(NamedTuple):
    step: int
    width: Decimal
    value: Decimal
    slope: Decimal


def newton_by_hand(value_of, slope_of, start, count):
    """Steps of Newton's method in exact arithmetic."""
    rows, width = [], start
    for step in range(count + 1):
        value, slope = value_of(width), slope_of(width)
        rows.append(NewtonStep(step, width, value, slope))
        width = width - value / slope
    return rows


class SizingExample(NamedTuple):
    title: str
    steps: list
    root: Decimal
    program: float


SIZED = WORKED[0]


def sizing_examples(program):
    """The example of the note "Sizing equations and their iteration": both iterations, their roots, the program's sizes."""
    d = Decimal
    length, e, h, strength, stress, depth = exact.SIZING_LENGTH, d(120), d(120), d(900), d("112.5"), d(1200)
    tan, span = exact.tangent(SIZED.angle), 5 * d(240)
    web_target, barrier_target = typed(SIZED.sf_web), typed(SIZED.sf_barrier)
    carried = strength / (web_target * stress)
    hung = stress * depth * tan
    assert span / 2 > depth * tan
    web, barrier = program.ask("sizes", [SIZED])[0]
    _, web_steps = steps.solve(steps.web_balance, steps.button_blocks(SIZED)[0], 1200.0)
    _, barrier_steps = steps.solve(steps.barrier_balance, steps.button_blocks(SIZED)[1], 1200.0)
    return [
        SizingExample("Newton's method for a web, target 1.6", newton_by_hand(
            lambda b: (length + e) * (b + e) - carried * (exact.C054 * b / h + exact.C064) * b * length,
            lambda b: (length + e) - carried * (exact.C108 * b / h + exact.C064) * length, depth, web_steps),
            exact.web_root(h, e, strength, stress, web_target), web),
        SizingExample("Newton's method for a barrier, target 2.0", newton_by_hand(
            lambda b: barrier_target * (stress * b + hung) - strength * (exact.C054 * b / h + exact.C064) * b,
            lambda b: barrier_target * stress - strength * (exact.C108 * b / h + exact.C064), depth, barrier_steps),
            exact.barrier_root(h, strength, stress, None, depth, span, tan, barrier_target, True), barrier),
    ]


class FactorRow(NamedTuple):
    case: str
    hand: tuple
    program: tuple


def _variants():
    base, cut = WORKED[0], WORKED[3]
    for holes in (2, 3, 4, 5, 10):
        yield f"note \"Abutment load\", table 1: n = {holes}", base._replace(holes=holes)
    for angle in (15.0, 21.0, 25.0, 30.0):
        yield f"note \"Abutment load\", table 2: β = {angle:g}°", base._replace(angle=angle)
    yield "note \"A worked design\", first trial", cut._replace(web=4.0, barrier=16.0)
    yield "note \"A worked design\", deeper cover", cut._replace(depth=264.0)
    yield "note \"A worked design\", thicker seam", cut._replace(height=5.0)
    yield "note \"A worked design\", wider holes", cut._replace(hole=10.0, web=5.5, barrier=21.5)
    yield "note \"A worked design\", weaker coal", cut._replace(strength=800.0)
    yield "note \"A worked design\", hole off line", cut._replace(web=5.0)


def read_project(path):
    """An example project: the mark, the unit system, title and description, then one figure on each line."""
    lines = path.read_text(encoding="cp1252").splitlines()
    values = lines[lines.index("##EndDesc##") + 1:]
    (height, depth, hole, web, barrier, holes, _, length, strength, weight, angle, sf_web,
     sf_barrier) = map(float, values[:13])
    return Panel(int(lines[1]), height, depth, hole, length, web, barrier, int(holes), strength, weight, angle, sf_web,
                 sf_barrier)


def factor_rows(program):
    """Other panels of the notes and the example projects: the three factors by hand and by the program."""
    cases = list(_variants())
    cases += [(f"example project {path.name}", read_project(path))
              for path in sorted((ROOT / "examples").glob("*.TKL"))]
    answers = program.ask("factors", [panel for _, panel in cases])
    return [FactorRow(case, Hand(panel).factors(), tuple(factors)) for (case, panel), factors in zip(cases, answers)]


class SizeRow(NamedTuple):
    case: str
    hand: tuple
    program: tuple
    inches: bool


def size_rows(program):
    """Suggested sizes of the notes: the roots for the figures as typed beside the button's, inches."""
    cases = [("note \"Sizing equations\", example", WORKED[0]),
             ("note \"Sizing equations\", Metric panel", WORKED[5]),
             ("note \"A worked design\", web 4 ft in the dialog", WORKED[3]._replace(web=4.0, barrier=16.0)),
             ("note \"A worked design\", web 6 ft in the dialog", WORKED[3]._replace(web=6.0, barrier=16.0))]
    answers = program.ask("sizes", [panel for _, panel in cases])
    return [SizeRow(case, exact.sizes(panel), tuple(sizes), panel.units == METRIC)
            for (case, panel), sizes in zip(cases, answers)]


class CurveRow(NamedTuple):
    curve: str
    point: int
    x: Decimal
    hand: tuple
    program: tuple


def _required_width(kind, depth):
    """Width (ft) of a sizing curve of the first example: stress by the point's depth, wedge by the project's, the target
    for webs, hole in inches and web in feet added up in the span."""
    d = Decimal
    stress, gradient, e = depth * 162 / exact.GROSS, d(162) / exact.GROSS / exact.TWELVE, d(120)
    if kind == steps.WEB:
        return exact.web_root(e, e, d(900), stress, typed(SIZED.sf_web)) / exact.TWELVE
    span, reach = 5 * (e + 10), d(1200) * exact.tangent(SIZED.angle)
    return exact.barrier_root(e, d(900), stress, gradient, d(1200), span, exact.tangent(SIZED.angle), typed(SIZED.sf_web),
                              span / 2 > reach) / exact.TWELVE


# First value and step of the curves of the first example, with the built-in range of 50 and 100 percent.
_CURVE_STARTS = {
    steps.HEIGHT: ("height", Decimal(3), Decimal(1)),
    steps.DEPTH: ("depth", Decimal(50), Decimal(3)),
    steps.HOLE: ("hole", Decimal(5), Decimal("0.3")),
    steps.WEB: (None, Decimal(50), Decimal(3)),
    steps.BARRIER: (None, Decimal(50), Decimal(3)),
}


def curve_rows(program):
    """First, middle and last point of the five curves of the first example."""
    for kind, (name, first, step) in _CURVE_STARTS.items():
        figures = program.ask(kind, [SIZED])[0]
        columns = 4 if name else 2
        count = len(figures) // columns
        for point in (1, (count + 1) // 2, count):
            x = first + (point - 1) * step
            hand = Hand(SIZED._replace(**{name: float(x)})).factors() if name else (_required_width(kind, x),)
            yield CurveRow(kind, point, x, hand, tuple(figures[(point - 1) * columns:point * columns]))
