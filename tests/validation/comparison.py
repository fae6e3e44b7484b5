# SPDX-License-Identifier: GPL-3.0-or-later
"""The program beside the two models: every bit beside steps.py, the relative error beside exact.py."""

from decimal import Decimal

import exact
import steps
from panels import RandomPanels, blocks

BLOCK = 1000
CURVES_PER_BLOCK = 10
EVERY_TENTH = 10

# Which of the analysis' figures belong together: first and one after the last.
GROUPS = {
    "Overall": (0, 1),
    "Webs ONLY": (1, 2),
    "Barrier Pillar": (2, 3),
    "capacities": (3, 6),
    "development loads": (6, 9),
    "total loads": (9, 12),
    "side load": (12, 13),
    "span and pillar widths": (13, 16),
    "strengths, areas, pillar capacities": (16, 22),
}


class Largest:
    """The largest value seen and the panel that it was seen at."""

    def __init__(self):
        self.value, self.panel = 0.0, None

    def see(self, value, panel):
        if value > self.value:
            self.value, self.panel = value, panel

    def record(self):
        return {"value": self.value, "panel": self.panel and self.panel.line()}


def random_blocks(seed, count, make=RandomPanels.next):
    return blocks(seed, count, BLOCK, make)


class OtherBits:
    """Figures that are not the model's to the last bit; the first such panel."""

    def __init__(self):
        self.count, self.panel = 0, None

    def see(self, panel, figures, expected):
        if figures != expected:
            self.count += 1
            self.panel = self.panel or panel.line()

    def record(self):
        return {"count": self.count, "panel": self.panel}


def compare_analysis(program, count):
    """Stability analysis of `count` random panels."""
    other_bits = OtherBits()
    largest = {name: Largest() for name in GROUPS}
    wide = metric = 0
    for panels in random_blocks("analysis", count):
        for panel, figures in zip(panels, program.ask("analysis", panels)):
            found = steps.analyse(panel)
            other_bits.see(panel, figures, found.figures())
            wide += found.wide
            metric += panel.units
            true = exact.analyse(panel)
            errors = [abs(float(Decimal(figure) - value) / figure) for figure, value in zip(figures, true)]
            for name, (first, end) in GROUPS.items():
                largest[name].see(max(errors[first:end]), panel)
    return {"panels": count, "metric": metric, "wide": wide, "other bits": other_bits.record(),
            "largest relative error": {name: seen.record() for name, seen in largest.items()}}


def _see_sizes(largest, panel, figures, roots, ways):
    for figure, root, way in zip(figures, roots, ways):
        if figure > 0.0:
            largest[way].see(exact.relative_error(figure, root), panel)


def compare_sizes(program, count):
    """Suggested sizes of `count` random panels; the exact roots of the solver's own equations for all, the roots for inputs
    that nothing has rounded for every tenth."""
    other_bits = OtherBits()
    largest = {way: Largest() for way in ("web", "barrier", "barrier, inches", "web, own inputs", "barrier, own inputs")}
    failed = [0, 0]
    for panels in random_blocks("sizes", count):
        for number, (panel, figures) in enumerate(zip(panels, program.ask("sizes", panels))):
            web, barrier, start = steps.button_blocks(panel)
            expected = [steps.solve(steps.web_balance, web, start)[0], steps.solve(steps.barrier_balance, barrier, start)[0]]
            other_bits.see(panel, figures, expected)
            roots = exact.block_roots(web, barrier, steps.is_wide(barrier))
            _see_sizes(largest, panel, figures, roots, ("web", "barrier"))
            if figures[1] > 0.0:
                largest["barrier, inches"].see(float(abs(Decimal(figures[1]) - roots[1])), panel)
            if number % EVERY_TENTH == 0:
                _see_sizes(largest, panel, figures, exact.sizes(panel), ("web, own inputs", "barrier, own inputs"))
            failed = [lost + (figure < 0.0) for lost, figure in zip(failed, figures)]
    return {"panels": count, "other bits": other_bits.record(), "webs not found": failed[0], "barriers not found": failed[1],
            "largest error": {way: seen.record() for way, seen in largest.items()}}


def curve_panels(count):
    """Ten of every thousand panels, with a range of their own for every other one."""
    for panels in random_blocks("curves", count):
        source = RandomPanels(f"ranges/{panels[0].line()}")
        yield [panel if number % 2 else panel._replace(range_min=float(1 + source.choice(100)),
                                                       range_max=float(source.choice(301)))
               for number, panel in enumerate(panels[:CURVES_PER_BLOCK])]


CURVES = {
    steps.HEIGHT: steps.stability_curve,
    steps.DEPTH: steps.stability_curve,
    steps.HOLE: steps.stability_curve,
    steps.WEB: steps.sizing_curve,
    steps.BARRIER: steps.sizing_curve,
}


def _points(rows):
    return [value for row in rows for value in row]


def compare_curves(program, count):
    """All five curves of ten in a thousand panels, each point."""
    other_bits = OtherBits()
    points = curves = short = 0
    for panels in curve_panels(count):
        for kind, model in CURVES.items():
            for panel, figures in zip(panels, program.ask(kind, panels)):
                other_bits.see(panel, figures, _points(model(panel, kind)))
                rows = len(figures) // (4 if model is steps.stability_curve else 2)
                points += rows
                curves += 1
                short += rows == 50
    return {"other bits": other_bits.record(), "curves": curves, "points": points, "curves of 50 points": short}
