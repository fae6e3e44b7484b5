# SPDX-License-Identifier: GPL-3.0-or-later
"""The model in the program's own arithmetic: IEEE doubles, singles where a value is kept in single precision, one
rounding for each operation, left to right. What comes out here is what the program must show, to the last bit.

Written from the reference notes "Pillar strength and load model", "Abutment load and its two cases" and "Sizing
equations and their iteration"; the order of operations is that of tests/reference/README.md."""

import struct
from decimal import ROUND_HALF_UP, Decimal
from functools import lru_cache

from mpmath.libmp import from_float, mpf_tan, to_float

from panels import (ENGLISH, FEET_PER_METRE, METRIC, PCF_PER_KILONEWTON, PSI_PER_MEGAPASCAL, RADIANS_PER_DEGREE)

_CENT = Decimal("0.01")
_SINGLE = struct.Struct("f")


def single(value):
    """Rounded to the nearest single, as a double."""
    return _SINGLE.unpack(_SINGLE.pack(value))[0]


@lru_cache(maxsize=4096)
def tangent(radians):
    """The correctly rounded tangent of a double: worked out to 160 bits, then rounded once."""
    return to_float(mpf_tan(from_float(radians), 160, "n"), rnd="n")


def through_text(value):
    """A value after a trip through its text of 15 significant digits."""
    return float(f"{value:.15g}")


def as_shown(value):
    """Strength and unit weight as their boxes show them: two decimals of the 15-digit text, halves away from zero."""
    return float(Decimal(f"{value:.15g}").quantize(_CENT, ROUND_HALF_UP))


def single_through_text(value):
    """A single after a trip through its text of 7 significant digits."""
    return single(float(f"{value:.7g}"))


class Analysis:
    """Figures of the stability analysis. Lengths, strengths (psf, kPa) and forces (lbs, kN) in the panel's units;
    barrier capacity and loads are per unit length, the others for the length of a pillar."""

    __slots__ = ("factors", "capacity", "development", "total", "side", "span", "width", "strength", "area",
                 "pillar_capacity", "wide", "reach")

    def figures(self):
        """In the order of panel_figures analysis."""
        return [*self.factors, *self.capacity, *self.development, *self.total, self.side, self.span, *self.width,
                *self.strength, *self.area, *self.pillar_capacity]


class Loads:
    """A panel as the analysis takes it: what does not change along a curve is worked out once."""

    def __init__(self, panel):
        self.height, self.depth, self.hole = panel.height, panel.depth, panel.hole
        self.length, self.weight, self.holes = panel.length, panel.weight, panel.holes
        self.strength = panel.strength * (144.0 if panel.units == ENGLISH else 1000.0)
        # Pillar widths go through the center distance, a sum and a difference.
        self.width = ((panel.barrier + panel.hole) - panel.hole, (panel.web + panel.hole) - panel.hole)
        self.tan = tangent(panel.angle * RADIANS_PER_DEGREE)

    def analyse(self):
        found = Analysis()
        h, depth, e, length, g = self.height, self.depth, self.hole, self.length, self.weight
        n, width, t = self.holes, self.width, self.tan
        strength = [self.strength * (0.54 * w / h - 0.18 * (w * w) / (h * length) + 0.64) for w in width]
        area = [length * w for w in width]
        capacity = [a * s for a, s in zip(area, strength)]
        panel_capacity = 0.0 + capacity[0]
        for _ in range(n - 1):
            panel_capacity += capacity[1]
        barrier, web = width
        span = (n - 1) * web + n * e
        column = g * depth * length
        development = (((n - 1) * web + n * e + barrier) * column, column * (e + web), g * depth * barrier)
        reach = depth * t
        found.wide = span / 2.0 > reach
        if found.wide:
            side = depth * depth * t * (g / 2.0)
        else:
            side = (depth * span / 2.0 - span * span / (8.0 * t)) * g
        found.capacity = (panel_capacity, capacity[1], capacity[0] / length)
        found.development = development
        found.total = (development[0], development[1], 2.0 * side + development[2])
        found.factors = tuple(c / l for c, l in zip(found.capacity, found.total))
        found.side, found.span, found.reach = side, span, reach
        found.width, found.strength, found.area, found.pillar_capacity = width, strength, area, capacity
        return found


def analyse(panel):
    return Loads(panel).analyse()


class Block:
    """Inputs of the solver, all singles: inches, psi, psi per inch."""

    __slots__ = ("height", "hole", "strength", "length", "depth", "span", "tan", "stress", "gradient", "target",
                 "weight", "web")


def _converted(panel):
    """Figures to feet, psi and pcf: one multiplication each in a Metric project."""
    if panel.units == METRIC:
        return FEET_PER_METRE, PSI_PER_MEGAPASCAL, PCF_PER_KILONEWTON
    return None


def _fill(panel, material):
    """What button and curves fill alike. Every value arrives through its text, strength and unit weight through
    `material`."""
    block = Block()
    scale = _converted(panel)
    height, hole, depth = through_text(panel.height), through_text(panel.hole), through_text(panel.depth)
    strength, weight = material(panel.strength), material(panel.weight)
    if scale:
        height, hole, depth = height * scale[0], hole * scale[0], depth * scale[0]
        strength, weight = strength * scale[1], weight * scale[2]
    depth, weight = single(depth), single(weight)
    block.height = single(height * 12.0)
    block.hole = single(hole * 12.0)
    block.strength = single(strength)
    block.length = 1000000.0
    block.depth = single(depth * 12.0)
    block.stress = single(depth * weight / 144.0)
    block.gradient = single(weight / 144.0 / 12.0)
    block.tan = single(tangent(through_text(panel.angle) * RADIANS_PER_DEGREE))
    block.weight = weight
    return block


def web_balance(block, width):
    """Tributary area of a web less the area that it carries at the target, square inches; and its slope."""
    if width <= 0.0:
        return -1.0, -1.0
    length, e = block.length, block.hole
    carried = block.strength / (block.target * block.stress)
    value = (length * width + e * width + e * length + e * e) - carried * (
        0.54 * width / block.height + 0.64) * width * length
    slope = (length + e) - carried * (1.08 * width / block.height + 0.64) * length
    return value, slope


def is_wide(block):
    """Whether the solver takes the barrier's span for wide: both sides of the comparison are singles."""
    return single(block.span / 2.0) > single(block.depth * block.tan)


def barrier_balance(block, width):
    """Load of the barrier at the target less its capacity, lb per inch; and its slope."""
    if width <= 0.0:
        return -1.0, -1.0
    target, stress, span, t = block.target, block.stress, block.span, block.tan
    capacity = block.strength * (0.54 * width / block.height + 0.64) * width
    if is_wide(block):
        value = target * (stress * width + stress * block.depth * t) - capacity
    else:
        value = (target * stress * width + target * stress * span) - (
            2.0 * target * (span * span) / (8.0 * t)) * block.gradient - capacity
    slope = target * stress - block.strength * (1.08 * width / block.height + 0.64)
    return value, slope


FAILED = -1.0


def solve(balance, block, start):
    """Newton's method, at most 15 steps. The width in inches as a single, or FAILED; and the number of steps."""
    width, steps = start, 0
    value, slope = balance(block, width)
    while abs(value) > 0.001 and steps < 15:
        width = width - value / slope
        steps += 1
        if width < 0.0:
            return FAILED, steps
        value, slope = balance(block, width)
    if abs(value) >= 0.001 or width <= 0.0:
        return FAILED, steps
    return single(width), steps


def button_blocks(panel):
    """The solver's inputs as the button Size pillars fills them: web, barrier and the start width."""
    web = _fill(panel, as_shown)
    thickness = through_text(panel.web)
    thickness = single(thickness * FEET_PER_METRE * 12.0 if panel.units == METRIC else thickness * 12.0)
    web.span = single(panel.holes * (web.hole + thickness))
    web.target = single_through_text(single(panel.sf_web))
    barrier = Block()
    for name in Block.__slots__:
        if hasattr(web, name):
            setattr(barrier, name, getattr(web, name))
    barrier.target = single_through_text(single(panel.sf_barrier))
    start = through_text(panel.depth)
    return web, barrier, single(start * 12.0 if panel.units == ENGLISH else start)


def sizes(panel):
    """Suggested web and barrier, inches or FAILED."""
    web, barrier, start = button_blocks(panel)
    return solve(web_balance, web, start)[0], solve(barrier_balance, barrier, start)[0]


def curve_range(panel, base):
    """First, last and step of a curve around the panel's own value, singles."""
    low, high = single(panel.range_min), single(panel.range_max)
    step = single((high / 100.0 + 1.0 - low / 100.0) / 50.0)
    first, last, step = single(low / 100.0 * base), single((high / 100.0 + 1.0) * base), single(step * base)
    return first, last, step if step != 0.0 else 1.0


HEIGHT, DEPTH, HOLE = "sf-height", "sf-depth", "sf-hole"
_VARIED = {HEIGHT: "height", DEPTH: "depth", HOLE: "hole"}


def stability_curve(panel, kind):
    """Rows of x and the three factors, singles."""
    loads = Loads(panel)
    name = _VARIED[kind]
    first, last, step = curve_range(panel, getattr(panel, name))
    if kind == HEIGHT and panel.units == ENGLISH:
        first, last, step = 3.0, 12.0, 1.0
    rows, x = [], first
    while x <= last:
        setattr(loads, name, x)
        rows.append((single(x), *map(single, loads.analyse().factors)))
        x += step
    return rows


WEB, BARRIER = "web", "barrier"


def curve_block(panel):
    """The solver's inputs of the sizing curves: both follow the target of the webs, and the span adds the hole in inches
    to the web in the project's unit."""
    block = _fill(panel, through_text)
    block.span = single(panel.holes * (block.hole + through_text(panel.web)))
    block.target = single_through_text(single(panel.sf_web))
    return block


def sizing_curve(panel, kind):
    """Rows of depth and required width (feet in an English project, inches in a Metric one), singles."""
    block = curve_block(panel)
    balance = web_balance if kind == WEB else barrier_balance
    first, last, step = curve_range(panel, panel.depth)
    rows, depth = [], first
    while depth <= last:
        block.stress = single(depth * block.weight / 144.0)
        width = solve(balance, block, depth)[0]
        rows.append((depth, single(width / 12.0) if panel.units == ENGLISH else width))
        depth = single(depth + step)
    return rows
