# SPDX-License-Identifier: GPL-3.0-or-later
"""The sections of a run, each with its own random panels."""

import comparison
import invariants
import oddities
from program import Program

# Oddities are spreads, not largest values: a tenth of the panels shows them.
SECTIONS = {
    "analysis": comparison.compare_analysis,
    "sizes": comparison.compare_sizes,
    "curves": comparison.compare_curves,
    **invariants.CHECKS,
    "oddities": lambda program, count: oddities.measure(program, max(count // 10, 1)),
}


def measure(name, program_path, count):
    return SECTIONS[name](Program(program_path), count)
