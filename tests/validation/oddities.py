# SPDX-License-Identifier: GPL-3.0-or-later
"""How much the known oddities of the model matter, over panels as they are mined."""

from decimal import Decimal

import exact
import steps
from comparison import random_blocks
from invariants import OVERALL, to_metric
from panels import ENGLISH, Panel

# Usual panels, English units.
USUAL = {
    "height": (3.0, 12.0),
    "depth": (50.0, 600.0),
    "hole": (8.0, 12.0),
    "web": (3.0, 12.0),
    "barrier": (8.0, 60.0),
    "strength": (500.0, 1500.0),
    "weight": (150.0, 170.0),
    "angle": (15.0, 30.0),
    "sf_web": (1.3, 2.0),
    "sf_barrier": (1.5, 2.5),
}
ENDLESS = 1000000.0


def usual_panel(source):
    """An English panel in usual ranges, figures with two decimals, and one point of each curve, at its own depth."""
    figures = {name: round(source.uniform(low, high), 2) for name, (low, high) in USUAL.items()}
    return Panel(units=ENGLISH, length=ENDLESS, holes=2 + source.choice(19), range_min=100.0, range_max=0.0, **figures)


def usual_metric_panel(source):
    """The same in Metric units, lengths rounded to two decimals as they would be entered."""
    panel = to_metric(usual_panel(source))
    lengths = {name: round(getattr(panel, name), 2) for name in ("height", "depth", "hole", "web", "barrier")}
    return panel._replace(length=ENDLESS, **lengths)


class Spread:
    """Smallest, middle and largest of many ratios."""

    def __init__(self):
        self._values = []

    def see(self, value):
        self._values.append(value)

    def record(self):
        ordered = sorted(self._values)
        return {"count": len(ordered), "smallest": ordered[0], "middle": ordered[len(ordered) // 2],
                "largest": ordered[-1]}


def sizing_roads(program, count, make):
    """Button and curves beside the width that the project's own figures ask for, all in inches."""
    spreads = {road: Spread() for road in ("web by the button", "barrier by the button", "web by the curve",
                                           "barrier by the curve")}
    lost = dict.fromkeys(spreads, 0)
    for panels in random_blocks("roads", count, make):
        answers = zip(panels, *(program.ask(request, panels) for request in ("sizes", "web", "barrier")))
        for panel, button, web_curve, barrier_curve in answers:
            inches = 12.0 if panel.units == ENGLISH else 1.0
            found = (*button, web_curve[1] * inches, barrier_curve[1] * inches)
            for road, width, true in zip(spreads, found, exact.sizes(panel) * 2):
                if width < 0.0:
                    lost[road] += 1
                else:
                    spreads[road].see(float(Decimal(width) / true))
    return {"panels": count, "not found": lost,
            "part of the true width": {road: seen.record() for road, seen in spreads.items()}}


def one_web_more(count):
    """The barrier for the solver's span of n webs beside the one for the panel's n - 1."""
    spread = Spread()
    for panels in random_blocks("one web more", count, usual_panel):
        for panel in panels:
            fewer = panel._replace(web=panel.web * (panel.holes - 1) / panel.holes)
            spread.see(float(exact.sizes(panel)[1] / exact.sizes(fewer)[1]))
    return {"panels": count, "barrier": spread.record()}


def shown_decimals(count):
    """Web sized from the two decimals of strength and unit weight that the dialog shows, beside the stored figures."""
    spread = {"English": Spread(), "Metric": Spread()}
    for panels in random_blocks("shown decimals", count, usual_panel):
        for panel in panels:
            for name, stored in (("English", panel), ("Metric", to_metric(panel))):
                shown = stored._replace(strength=steps.as_shown(stored.strength), weight=steps.as_shown(stored.weight))
                spread[name].see(float(exact.sizes(shown)[0] / exact.sizes(stored)[0]))
    return {"panels": count, **{name: seen.record() for name, seen in spread.items()}}


def thicker_webs(program, count):
    """How often a web of one foot more lowers the overall factor, and the largest fall."""
    falls, largest = 0, 0.0
    for panels in random_blocks("thicker webs", count, usual_panel):
        thicker = [panel._replace(web=panel.web + 1.0) for panel in panels]
        for before, after in zip(program.ask("factors", panels), program.ask("factors", thicker)):
            falls += after[OVERALL] < before[OVERALL]
            largest = max(largest, 1.0 - after[OVERALL] / before[OVERALL])
    return {"panels": count, "falls": falls, "largest fall": largest}


def measure(program, count):
    return {
        "English sizes": sizing_roads(program, count, usual_panel),
        "Metric sizes": sizing_roads(program, count, usual_metric_panel),
        "one web more": one_web_more(count),
        "shown decimals": shown_decimals(count),
        "thicker webs": thicker_webs(program, count),
    }
