# SPDX-License-Identifier: GPL-3.0-or-later
"""Panels: the inputs of one calculation, and seeded random ones that are the same on every machine."""

import random
from typing import NamedTuple

ENGLISH, METRIC = 0, 1

# The program's own conversion figures (reference note "Units and conversions", section 2).
FEET_PER_METRE = 3.280839895013123
PSI_PER_MEGAPASCAL = 145.0377
PCF_PER_KILONEWTON = 6.3663022639200495
RADIANS_PER_DEGREE = 0.017453292519943278


class Panel(NamedTuple):
    """Lengths in ft or m, strength in psi or MPa, unit weight in pcf or kN/m3, angle in degrees."""

    units: int
    height: float
    depth: float
    hole: float
    length: float
    web: float
    barrier: float
    holes: int
    strength: float
    weight: float
    angle: float
    sf_web: float
    sf_barrier: float
    range_min: float = 50.0
    range_max: float = 100.0

    def line(self):
        """All figures, with blanks between them."""
        return " ".join(map(repr, self))


# Lowest and highest value of each input, English units. Far beyond what is mined on both sides.
RANGES = {
    "height": (1.0, 32.0),
    "depth": (8.0, 4096.0),
    "hole": (2.0, 32.0),
    "web": (0.5, 64.0),
    "barrier": (1.0, 512.0),
    "strength": (64.0, 8192.0),
    "weight": (64.0, 256.0),
    "angle": (0.5, 89.5),
    "sf_web": (1.0, 10.0),
    "sf_barrier": (0.5, 6.0),
    "length": (32.0, 1048576.0),
}


_POWERS = [2.0**power for power in range(16)]
_OCTAVES = {name: (low, next((power for power, factor in enumerate(_POWERS) if low * factor >= high), 0))
            for name, (low, high) in RANGES.items()}


class RandomPanels:
    """Random panels from a seed. Only the generator's uniform numbers and exact arithmetic are used, no
    logarithm or power of the machine's library, so that the panels are the same everywhere."""

    def __init__(self, seed):
        self._random = random.Random(seed).random

    def uniform(self, low, high):
        return low + (high - low) * self._random()

    def choice(self, count):
        return int(self._random() * count)

    def by_octaves(self, name):
        """Evenly spread over the powers of two in the range of an input, whose ends are a power of two apart."""
        low, octaves = _OCTAVES[name]
        return low * _POWERS[self.choice(octaves)] * (1.0 + self._random())

    def next(self, units=None):
        """Half of all panels hold figures as typed, with up to three decimals, half hold all digits of a double; every
        tenth has a pillar length of its own."""
        if units is None:
            units = self.choice(2)
        length_scale, strength_scale, weight_scale = SCALES[units]
        decimals = self.choice(4) if self._random() < 0.5 else None

        def value(name, scale):
            drawn = self.by_octaves(name) / scale
            if decimals is None:
                return drawn
            rounded = round(drawn, decimals)
            return rounded if rounded > 0.0 else drawn

        def flat(name):
            drawn = self.uniform(*RANGES[name])
            return drawn if decimals is None else max(round(drawn, decimals), RANGES[name][0])

        return Panel(
            units,
            value("height", length_scale),
            value("depth", length_scale),
            value("hole", length_scale),
            value("length", length_scale) if self._random() < 0.1 else 1000000.0,
            value("web", length_scale),
            value("barrier", length_scale),
            2 + self.choice(19),
            value("strength", strength_scale),
            value("weight", weight_scale),
            flat("angle"),
            round(flat("sf_web"), 3),
            round(flat("sf_barrier"), 3),
        )


# English figures divided by these are the Metric ones, about; whole enough to keep the ranges readable.
SCALES = {ENGLISH: (1.0, 1.0, 1.0), METRIC: (3.25, 145.0, 6.375)}


def blocks(seed, count, size, make):
    """`count` items in blocks of `size`, block k drawn from its own seed: a short run has the first blocks of a long
    one. Yields lists."""
    for first in range(0, count, size):
        source = RandomPanels(f"{seed}/{first // size}")
        yield [make(source) for _ in range(min(size, count - first))]
