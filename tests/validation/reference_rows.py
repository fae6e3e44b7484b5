# SPDX-License-Identifier: GPL-3.0-or-later
"""The reference rows of tests/reference: panels over the whole range with their figures to 17 significant digits."""

import steps
from comparison import CURVES
from invariants import at_span_limit, to_metric
from oddities import usual_panel
from panels import ENGLISH, METRIC, Panel, RandomPanels

INPUTS = ("UnitSystem", "Height", "DepthCover", "HoleWidth", "CrosscutSpacing", "WebThickness", "BarrierPillarWidth",
          "NumberHoles", "CoalStrength", "UnitWeight", "AbutmentAngle", "SFWeb", "SFBarrier", "PlotRangeMin",
          "PlotRangeMax")


def _numbered(name, count):
    return [f"{name}{i}" for i in range(1, count + 1)]


FIGURES = (*_numbered("StabilityFactor", 3), *_numbered("CapacityTotal", 3), *_numbered("DevelopmentLoad", 3),
           *_numbered("TotalLoad", 3), "SideAbutmentLoad2", "PanelSpan2", *_numbered("PillarWidth", 2),
           *_numbered("PillarStrength", 2), *_numbered("PillarArea", 2), *_numbered("PillarCapacity", 2),
           "SuggestedWeb", "SuggestedBarrier")

HOLES = (2, 3, 5, 10, 15, 20)
A_STRATUM = 8

# The worked panels of the reference notes.
WORKED = [
    Panel(ENGLISH, 10.0, 100.0, 10.0, 1e6, 10.0, 20.0, 5, 900.0, 162.0, 21.0, 1.6, 2.0),
    Panel(ENGLISH, 10.0, 300.0, 10.0, 1e6, 10.0, 40.0, 10, 900.0, 162.0, 21.0, 1.6, 2.0),
    Panel(ENGLISH, 10.0, 100.0, 10.0, 1e6, 10.0, 10.0, 2, 900.0, 162.0, 21.0, 1.6, 2.0),
    Panel(ENGLISH, 4.5, 240.0, 9.5, 1e6, 6.0, 22.0, 10, 900.0, 162.0, 21.0, 1.6, 2.0),
    Panel(METRIC, 1.37, 73.15, 2.9, 304800.0, 1.83, 6.71, 10, 6.21, 25.45, 21.0, 1.6, 2.0),
    Panel(METRIC, 3.05, 30.48, 3.05, 1e6, 3.05, 6.1, 5, 6.21, 25.45, 21.0, 1.6, 2.0),
]


def _in_stratum(panel, deep, wide):
    feet = panel.depth * (3.25 if panel.units == METRIC else 1.0)
    return (feet > 400.0) == deep and steps.analyse(panel).wide == wide


def _stratum(units, holes, deep, wide):
    """Panels of one kind: odd ones from the whole range, even ones as they are mined."""
    source = RandomPanels(f"reference panels/{units}/{holes}/{deep}/{wide}")
    chosen = []
    while len(chosen) < A_STRATUM:
        if len(chosen) % 2:
            panel = source.next(units)
        else:
            panel = usual_panel(source)._replace(range_min=50.0, range_max=100.0)
            # Deep panels are wide only if the wedge is slim.
            if wide:
                panel = panel._replace(angle=round(source.uniform(2.0, 15.0), 2))
            panel = to_metric(panel) if units == METRIC else panel
        panel = panel._replace(holes=holes)
        # With few holes a wide span under deep cover does not come by chance.
        if wide and deep and holes < 10:
            panel = panel._replace(angle=source.uniform(0.1, 2.0))
        if _in_stratum(panel, deep, wide):
            chosen.append(panel)
    return chosen


def panels():
    chosen = list(WORKED)
    limit = RandomPanels("reference panels/span limit")
    chosen += [at_span_limit(limit)[0] for _ in range(10)]
    ranges = RandomPanels("reference panels/ranges")
    chosen += [WORKED[k % len(WORKED)]._replace(range_min=float(1 + ranges.choice(100)),
                                                range_max=float(ranges.choice(300))) for k in range(12)]
    for units in (ENGLISH, METRIC):
        for holes in HOLES:
            for deep in (False, True):
                for wide in (False, True):
                    chosen += _stratum(units, holes, deep, wide)
    whole_range = RandomPanels("reference panels/whole range")
    while len(chosen) < 500:
        chosen.append(whole_range.next())
    return chosen


def _digits(value):
    return str(value) if isinstance(value, int) else f"{value:.17g}"


def _csv(header, rows):
    return "\n".join([",".join(header), *(",".join(row) for row in rows)]) + "\n"


def _panel_row(number, panel):
    figures = (*steps.analyse(panel).figures(), *steps.sizes(panel))
    return [str(number), *map(_digits, panel), *map(_digits, figures)]


def _curve_rows(number, panel):
    """First, second, middle and last point of the five curves."""
    for kind, model in CURVES.items():
        rows = model(panel, kind)
        for point in sorted({1, 2, (len(rows) + 1) // 2, len(rows)} & set(range(1, len(rows) + 1))):
            values = [_digits(value) for value in rows[point - 1]]
            yield [str(number), kind, str(len(rows)), str(point), *(values + ["0", "0"])[:4]]


def files():
    """Path in the project and text of each file."""
    numbered = list(enumerate(panels(), 1))
    curves = [row for number, panel in numbered if number <= 28 or number % 8 == 0
              for row in _curve_rows(number, panel)]
    return {
        "tests/reference/panels.csv": _csv(("Panel", *INPUTS, *FIGURES), [_panel_row(*entry) for entry in numbered]),
        "tests/reference/curves.csv": _csv(("Panel", "Curve", "Points", "Point", "X", "Y1", "Y2", "Y3"), curves),
    }
