# SPDX-License-Identifier: GPL-3.0-or-later
"""What a run must not exceed."""

# Section, path in its figures, largest value allowed.
LIMITS = [
    ("analysis", ("other bits", "count"), 0),
    ("analysis", ("largest relative error", "Overall", "value"), 1e-11),
    ("analysis", ("largest relative error", "Webs ONLY", "value"), 1e-13),
    ("analysis", ("largest relative error", "Barrier Pillar", "value"), 1e-11),
    ("sizes", ("other bits", "count"), 0),
    ("sizes", ("largest error", "web", "value"), 1e-6),
    ("sizes", ("largest error", "barrier, inches", "value"), 0.05),
    ("curves", ("other bits", "count"), 0),
    ("unit systems", ("converted", "value"), 1e-4),
    ("unit systems", ("unexplained", "value"), 1e-12),
    ("span limit", ("formulas at equality", "value"), 1e-14),
    ("span limit", ("below, beside 1 - d squared", "value"), 1e-14),
    ("span limit", ("cut-off formula at equality", "breaches"), 0),
    ("span limit", ("above, beside the full wedge", "breaches"), 0),
    ("sizes fed back", ("web, unexplained", "value"), 1e-6),
    ("sizes fed back", ("barrier, unexplained", "value"), 1e-3),
    ("sizes fed back", ("barrier below its target but for the length term", "breaches"), 0),
    ("monotony", ("height", "breaches"), 0),
    ("monotony", ("depth", "breaches"), 0),
    ("monotony", ("strength", "breaches"), 0),
    ("monotony", ("web", "breaches"), 0),
    ("scaling", ("larger panel, powers of two", "breaches"), 0),
    ("scaling", ("stronger coal, powers of two", "breaches"), 0),
    ("scaling", ("larger panel, any k", "value"), 1e-11),
    ("number of holes", ("Webs ONLY", "breaches"), 0),
    ("number of holes", ("Barrier Pillar", "breaches"), 0),
    ("number of holes", ("suggested web", "breaches"), 0),
    ("number of holes", ("suggested barrier", "breaches"), 0),
]


def _at(figures, path):
    for key in path:
        figures = figures[key]
    return figures


def breaches(found):
    """A line for every figure beyond its limit."""
    return [f"{section}: {', '.join(path)} is {_at(found[section], path)}, the limit is {limit}"
            for section, path, limit in LIMITS if _at(found[section], path) > limit]
