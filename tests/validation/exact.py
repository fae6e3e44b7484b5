# SPDX-License-Identifier: GPL-3.0-or-later
"""The model without rounding: decimal arithmetic of 40 digits from the very inputs, tangent by mpmath. What the program's
figures would be if a computer had no last digit. Written from the formulas of the help topic "The model: formulas and
units" and of the reference notes; shares nothing with steps.py but the panels."""

from decimal import Context, Decimal, ROUND_HALF_EVEN, setcontext

from mpmath.libmp import from_float, from_rational, mpf_mul, mpf_tan

setcontext(Context(prec=40, rounding=ROUND_HALF_EVEN, Emin=-999999, Emax=999999))

_BITS = 150
_RADIANS = from_rational(17453292519943278, 10**18, _BITS)
_TWO = {}


def _decimal_of(value):
    """A binary figure of mpmath as a decimal."""
    sign, mantissa, exponent, _ = value
    if exponent not in _TWO:
        _TWO[exponent] = Decimal(2) ** exponent
    found = Decimal(mantissa) * _TWO[exponent]
    return -found if sign else found


def tangent(degrees):
    """Tangent of an angle (a double, degrees), with the program's figure for degrees to radians."""
    return _decimal_of(mpf_tan(mpf_mul(from_float(degrees), _RADIANS, _BITS), _BITS, "n"))


C054, C018, C064, C108 = map(Decimal, ("0.54", "0.18", "0.64", "1.08"))
TWELVE, GROSS = Decimal(12), Decimal(144)
SIZING_LENGTH = Decimal(1000000)
FEET, PSI, PCF = map(Decimal, ("3.280839895013123", "145.0377", "6.3663022639200495"))


def side_load(depth, span, tan, weight):
    """Abutment load of one side, force per unit length, and whether the span is wide."""
    if span / 2 > depth * tan:
        return depth * depth * tan * weight / 2, True
    return (depth * span / 2 - span * span / (8 * tan)) * weight, False


def strength_factor(width, height, length):
    return C064 + C054 * width / height - C018 * width * width / (height * length)


def analyse(panel):
    """Figures in the order of steps.Analysis.figures()."""
    h, depth, e, length = map(Decimal, (panel.height, panel.depth, panel.hole, panel.length))
    web, barrier, g = Decimal(panel.web), Decimal(panel.barrier), Decimal(panel.weight)
    n, t = panel.holes, tangent(panel.angle)
    in_situ = Decimal(panel.strength) * (144 if panel.units == 0 else 1000)
    strength = [in_situ * strength_factor(width, h, length) for width in (barrier, web)]
    area = [length * width for width in (barrier, web)]
    carries = [a * s for a, s in zip(area, strength)]
    span = (n - 1) * web + n * e
    side, _ = side_load(depth, span, t, g)
    capacity = (carries[0] + (n - 1) * carries[1], carries[1], carries[0] / length)
    development = (g * depth * length * (span + barrier), g * depth * length * (e + web), g * depth * barrier)
    total = (development[0], development[1], development[2] + 2 * side)
    factors = [c / l for c, l in zip(capacity, total)]
    return [*factors, *capacity, *development, *total, side, span, barrier, web, *strength, *area, *carries]


def _root(a, b, c):
    """The positive root of a B^2 + b B + c, a above 0 and c below 0."""
    discriminant = (b * b - 4 * a * c).sqrt()
    return (discriminant - b) / (2 * a) if b < 0 else 2 * c / (-b - discriminant)


def web_root(height, hole, strength, stress, target):
    """Web thickness (in) whose capacity is `target` times its load."""
    carried = strength / (target * stress) * SIZING_LENGTH
    load = SIZING_LENGTH + hole
    return _root(C054 * carried / height, C064 * carried - load, -hole * load)


def barrier_root(height, strength, stress, gradient, depth, span, tan, target, wide):
    """Barrier width (in) whose capacity is `target` times its load."""
    if wide:
        hung = stress * depth * tan
    else:
        hung = stress * span - 2 * span * span / (8 * tan) * gradient
    return _root(C054 * strength / height, C064 * strength - target * stress, -target * hung)


def block_roots(web, barrier, wide):
    """Both roots for the singles that stand in the solver's blocks (steps.button_blocks)."""
    d = Decimal
    return (web_root(d(web.height), d(web.hole), d(web.strength), d(web.stress), d(web.target)),
            barrier_root(d(barrier.height), d(barrier.strength), d(barrier.stress), d(barrier.gradient),
                         d(barrier.depth), d(barrier.span), d(barrier.tan), d(barrier.target), wide))


def sizes(panel):
    """Web and barrier (in) for the panel's own figures: nothing rounded on the way in."""
    d = Decimal
    feet, psi, pcf = (FEET, PSI, PCF) if panel.units == 1 else (1, 1, 1)
    height, hole, web, depth = (d(x) * feet * TWELVE for x in (panel.height, panel.hole, panel.web, panel.depth))
    strength, gradient = d(panel.strength) * psi, d(panel.weight) * pcf / GROSS / TWELVE
    stress, tan, span = gradient * depth, tangent(panel.angle), panel.holes * (hole + web)
    wide = span / 2 > depth * tan
    return (web_root(height, hole, strength, stress, d(panel.sf_web)),
            barrier_root(height, strength, stress, gradient, depth, span, tan, d(panel.sf_barrier), wide))


def relative_error(figure, true):
    return float(abs(Decimal(figure) - true) / abs(true))
