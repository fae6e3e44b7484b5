# SPDX-License-Identifier: GPL-3.0-or-later
"""What must hold between panels, whatever the figures: each invariant over random panels of its own. A check returns its
findings and stops at nothing; `Breach` counts what does not hold and keeps the first panel."""

import steps
from comparison import Largest, random_blocks
from panels import (ENGLISH, FEET_PER_METRE, METRIC, PCF_PER_KILONEWTON, PSI_PER_MEGAPASCAL, RADIANS_PER_DEGREE)

OVERALL, WEBS, BARRIER = range(3)


class Breach:
    """Panels at which something that must hold does not."""

    def __init__(self):
        self.count, self.panel = 0, None

    def unless(self, holds, panel):
        if not holds:
            self.count += 1
            self.panel = self.panel or panel.line()

    def record(self):
        return {"breaches": self.count, "panel": self.panel}


def english(source):
    return source.next(ENGLISH)


def to_metric(panel):
    """The same panel in Metric units, by the program's conversion figures, nothing rounded to two decimals."""
    feet = FEET_PER_METRE
    return panel._replace(units=METRIC, height=panel.height / feet, depth=panel.depth / feet, hole=panel.hole / feet,
                          length=panel.length / feet, web=panel.web / feet, barrier=panel.barrier / feet,
                          strength=panel.strength / PSI_PER_MEGAPASCAL, weight=panel.weight / PCF_PER_KILONEWTON)


# What all three factors of a panel gain when it is given in Metric units: the four conversion figures do not quite agree.
METRIC_OVER_ENGLISH = 1000.0 / PSI_PER_MEGAPASCAL / 144.0 * PCF_PER_KILONEWTON * FEET_PER_METRE


def unit_systems(program, count):
    """A panel in English and in Metric units: with its length converted, and with 1,000,000 ft against 1,000,000 m."""
    converted, explained, endless = Largest(), Largest(), Largest()
    for panels in random_blocks("unit systems", count, english):
        metric = [to_metric(panel) for panel in panels]
        long_ones = [panel._replace(length=1000000.0) for panel in panels]
        long_metric = [panel._replace(length=1000000.0) for panel in metric]
        answers = zip(panels, *(program.ask("factors", some) for some in (panels, metric, long_ones, long_metric)))
        for panel, first, second, long_first, long_second in answers:
            ratios = [b / a for a, b in zip(first, second)]
            converted.see(max(abs(ratio - 1.0) for ratio in ratios), panel)
            explained.see(max(abs(ratio / METRIC_OVER_ENGLISH - 1.0) for ratio in ratios), panel)
            endless.see(max(abs(b / a / METRIC_OVER_ENGLISH - 1.0) for a, b in zip(long_first, long_second)), panel)
    return {"panels": count, "factor of the conversion figures": METRIC_OVER_ENGLISH - 1.0,
            "converted": converted.record(), "unexplained": explained.record(),
            "length 1000000 in both": endless.record()}


def at_span_limit(source):
    """Two holes whose span is exactly twice the reach of the wedge, and how far to go to each side: holes and web are chosen
    so that no operation on the way to the span rounds."""
    panel = source.next()._replace(holes=2, angle=source.uniform(1.0, 80.0))
    span = 2.0 * (panel.depth * steps.tangent(panel.angle * RADIANS_PER_DEGREE))
    hole = 1.0
    while hole * 16.0 > span:
        hole /= 2.0
    while hole * 32.0 <= span:
        hole *= 2.0
    return panel._replace(hole=hole, web=span - 2.0 * hole), 2.0 ** -(4 + source.choice(40))


def _web_for_span(panel, factor):
    return panel._replace(web=(panel.web + 2.0 * panel.hole) * factor - 2.0 * panel.hole)


def span_limit(program, count):
    """Side loads at the limit between cut-off and wide span, and a little below and above it. Below it by a part d the load
    is less by d squared, above it is the same: the two formulas touch."""
    taken, bits, below, above = Breach(), Largest(), Largest(), Breach()
    for block in random_blocks("span limit", count, at_span_limit):
        panels = [panel for panel, _ in block]
        answers = [program.ask("analysis", some) for some in (
            panels,
            [_web_for_span(panel, 1.0 - part) for panel, part in block],
            [_web_for_span(panel, 1.0 + part) for panel, part in block])]
        for (panel, _), limit, under, over in zip(block, *answers):
            side, full = limit[12], over[12]
            found = steps.analyse(panel)
            taken.unless(found.span / 2.0 == found.reach and side == found.side, panel)
            bits.see(abs(side / full - 1.0), panel)
            part = (limit[13] - under[13]) / limit[13]
            below.see(abs(under[12] / full - (1.0 - part * part)), panel)
            above.unless(full == panel.depth * panel.depth * steps.tangent(panel.angle * RADIANS_PER_DEGREE)
                         * (panel.weight / 2.0), panel)
    return {"panels": count, "cut-off formula at equality": taken.record(), "formulas at equality": bits.record(),
            "below, beside 1 - d squared": below.record(), "above, beside the full wedge": above.record()}


def two_decimals(source):
    """A panel of endless pillars whose strength and unit weight the dialog shows in full."""
    panel = source.next()
    return panel._replace(length=1000000.0, strength=max(round(panel.strength, 2), 0.01),
                          weight=max(round(panel.weight, 2), 0.01))


def _side(panel, span):
    tan = steps.tangent(panel.angle * RADIANS_PER_DEGREE)
    if span / 2.0 > panel.depth * tan:
        return panel.depth * panel.depth * tan / 2.0
    return panel.depth * span / 2.0 - span * span / (8.0 * tan)


def _length_term(panel, width):
    """What the 0.18 term, which the solver leaves out, takes from the strength."""
    return 1.0 - 0.18 * width * width / (panel.height * panel.length) / (0.54 * width / panel.height + 0.64)


def expected_web_factor(panel, web):
    """Webs ONLY of the suggested web: the target, times what solver and analysis see differently. The solver lets a hole
    reach around the web's end; the analysis has the length term."""
    hole = panel.hole * 12.0 * (FEET_PER_METRE if panel.units == METRIC else 1.0)
    units = METRIC_OVER_ENGLISH if panel.units == METRIC else 1.0
    return steps.single(panel.sf_web) * units * (1.0 + hole / 1000000.0) * _length_term(panel, web)


def expected_barrier_factor(panel, barrier):
    """Barrier Pillar of the suggested barrier: the solver's span has one web more."""
    mined = panel.holes * panel.hole
    sized = panel.depth * barrier + 2.0 * _side(panel, mined + panel.holes * panel.web)
    analysed = panel.depth * barrier + 2.0 * _side(panel, mined + (panel.holes - 1) * panel.web)
    units = METRIC_OVER_ENGLISH if panel.units == METRIC else 1.0
    return steps.single(panel.sf_barrier) * units * sized / analysed * _length_term(panel, barrier)


def sizes_fed_back(program, count):
    """Suggested sizes entered as widths: the analysis must give the target, but for the stated differences."""
    web_left, barrier_left = Largest(), Largest()
    web_off, barrier_off = Largest(), Largest()
    below_target = Breach()
    solved = [0, 0]
    for panels in random_blocks("sizes fed back", count, two_decimals):
        fed = []
        for panel, (web, barrier) in zip(panels, program.ask("sizes", panels)):
            scale = 0.0254 if panel.units == METRIC else 1.0 / 12.0
            if web > 0.0:
                fed.append((WEBS, panel, panel._replace(web=web * scale)))
            # A barrier of a fraction of an inch is lost in the solver's tolerance.
            if barrier > 1.0:
                fed.append((BARRIER, panel, panel._replace(barrier=barrier * scale)))
        for (case, panel, sized), factors in zip(fed, program.ask("factors", [entry[2] for entry in fed])):
            if case == WEBS:
                solved[0] += 1
                web_left.see(abs(factors[WEBS] / expected_web_factor(sized, sized.web) - 1.0), panel)
                web_off.see(abs(factors[WEBS] / panel.sf_web - 1.0), panel)
            else:
                solved[1] += 1
                expected = expected_barrier_factor(sized, sized.barrier)
                barrier_left.see(abs(factors[BARRIER] / expected - 1.0), panel)
                barrier_off.see(factors[BARRIER] / panel.sf_barrier - 1.0, panel)
                below_target.unless(expected / _length_term(sized, sized.barrier) >= panel.sf_barrier * (1.0 - 1e-6),
                                    panel)
    return {"panels": count, "webs": solved[0], "barriers": solved[1],
            "web, unexplained": web_left.record(), "web, from the target": web_off.record(),
            "barrier, unexplained": barrier_left.record(), "barrier, above the target": barrier_off.record(),
            "barrier below its target but for the length term": below_target.record()}


def long_pillars(source):
    """A panel whose pillars are not wider than long, and the part by which an input grows."""
    panel = source.next()
    # The widest pillar is twice the barrier or the web of the panel.
    return (panel._replace(length=max(panel.length, 2.0 * panel.web, 2.0 * panel.barrier)),
            source.uniform(1.0 / 1048576.0, 1.0))


def _grown(block, name):
    return [panel._replace(**{name: getattr(panel, name) * (1.0 + part)}) for panel, part in block]


def monotony(program, count):
    """Higher seam, deeper cover: every factor falls. Stronger coal: every factor rises. Thicker web: Webs ONLY rises and
    Barrier Pillar does not; Overall may go either way, which is counted."""
    names = ("height", "depth", "strength", "web")
    breaches = {name: Breach() for name in names}
    fallen = 0
    for block in random_blocks("monotony", count, long_pillars):
        answers = [program.ask("factors", [panel for panel, _ in block])]
        answers += [program.ask("factors", _grown(block, name)) for name in names]
        for (panel, _), base, height, depth, strength, web in zip(block, *answers):
            breaches["height"].unless(all(a < b for a, b in zip(height, base)), panel)
            breaches["depth"].unless(all(a < b for a, b in zip(depth, base)), panel)
            breaches["strength"].unless(all(a > b for a, b in zip(strength, base)), panel)
            breaches["web"].unless(web[WEBS] > base[WEBS] and web[BARRIER] <= base[BARRIER] * (1.0 + 1e-15), panel)
            fallen += web[OVERALL] < base[OVERALL]
    return {"panels": count, **{name: seen.record() for name, seen in breaches.items()},
            "Overall falls with a thicker web": fallen}


LENGTHS = ("height", "depth", "hole", "length", "web", "barrier")


def _scaled(panel, lengths=1.0, weight=1.0, strength=1.0):
    return panel._replace(weight=panel.weight * weight, strength=panel.strength * strength,
                          **{name: getattr(panel, name) * lengths for name in LENGTHS})


def with_scale(source):
    return source.next(), source.choice(9) - 4, source.uniform(0.25, 4.0)


def scaling(program, count):
    """A model k times as large under rock of a k-th of the weight stands as well; coal k times as strong gives k times the
    factors. With k a power of two not a bit may change."""
    exactly, stronger, nearly = Breach(), Breach(), Largest()
    for block in random_blocks("scaling", count, with_scale):
        answers = [program.ask("factors", some) for some in (
            [panel for panel, _, _ in block],
            [_scaled(panel, 2.0**power, 2.0**-power) for panel, power, _ in block],
            [_scaled(panel, strength=2.0**power) for panel, power, _ in block],
            [_scaled(panel, k, 1.0 / k) for panel, _, k in block])]
        for (panel, power, _), base, larger, strong, by_k in zip(block, *answers):
            exactly.unless(larger == base, panel)
            stronger.unless(strong == [factor * 2.0**power for factor in base], panel)
            nearly.see(max(abs(a / b - 1.0) for a, b in zip(by_k, base)), panel)
    return {"panels": count, "larger panel, powers of two": exactly.record(),
            "stronger coal, powers of two": stronger.record(), "larger panel, any k": nearly.record()}


def other_holes(source):
    return source.next(), 2 + source.choice(19)


def _wide(panel, webs):
    """Whether the span with `webs` webs is wide, with a margin that no rounding crosses."""
    span = webs * panel.web + panel.holes * panel.hole
    return span / 2.0 > panel.depth * steps.tangent(panel.angle * RADIANS_PER_DEGREE) * (1.0 + 1e-6)


def number_of_holes(program, count):
    """Another number of holes: nothing of a web changes, and in a wide panel nothing of the barrier."""
    webs, barriers, sized_webs, sized_barriers = Breach(), Breach(), Breach(), Breach()
    wide = 0
    for block in random_blocks("number of holes", count, other_holes):
        first = [panel for panel, _ in block]
        second = [panel._replace(holes=holes) for panel, holes in block]
        answers = zip(first, second, *(program.ask(request, panels) for request in ("factors", "sizes")
                                       for panels in (first, second)))
        for panel, other, factors, other_factors, sizes, other_sizes in answers:
            webs.unless(factors[WEBS] == other_factors[WEBS], panel)
            sized_webs.unless(sizes[0] == other_sizes[0], panel)
            if _wide(panel, panel.holes - 1) and _wide(other, other.holes - 1):
                wide += 1
                barriers.unless(factors[BARRIER] == other_factors[BARRIER], panel)
                sized_barriers.unless(sizes[1] == other_sizes[1], panel)
    return {"panels": count, "wide both times": wide, "Webs ONLY": webs.record(), "Barrier Pillar": barriers.record(),
            "suggested web": sized_webs.record(), "suggested barrier": sized_barriers.record()}


CHECKS = {
    "unit systems": unit_systems,
    "span limit": span_limit,
    "sizes fed back": sizes_fed_back,
    "monotony": monotony,
    "scaling": scaling,
    "number of holes": number_of_holes,
}
