# SPDX-License-Identifier: GPL-3.0-or-later
"""Worked examples as parts of the report."""

from types import SimpleNamespace

import examples
from exact import relative_error
from figure_texts import all_digits, part
from pages import table


def _panel_part(number, example):
    rows = [(line.quantity, line.working, f"{examples.hand_text(line.hand)} {line.unit}".strip(),
             "" if line.program is None else all_digits(line.program)) for line in example.lines]
    return "\n\n".join([
        f"### 7.{number} {example.title}", example.given,
        table(("Quantity", "By hand", "#Result", "#Program"), rows),
        f"Largest relative difference of a line: {part(example.largest_difference())}."])


def _newton_part(number, example):
    rows = [(str(step.step), f"{step.width:,.6f}", f"{step.value:.6E}", f"{step.slope:.6E}") for step in example.steps]
    return "\n\n".join([
        f"### 7.{number} {example.title} (note \"Sizing equations and their iteration\", section 3)",
        table(("#Step", "#B (in)", "#f(B)", "#f'(B)"), rows),
        f"Root by the quadratic formula: {examples.hand_text(example.root)} in. Program: {example.program!r} in after "
        f"{example.steps[-1].step} steps, a relative difference of {part(relative_error(example.program, example.root))}; "
        "the result is a single."])


def _size_table(program):
    rows = [(row.case, f"{row.hand[0]:.6f}", f"{row.program[0]:.6f}", f"{row.hand[1]:.6f}", f"{row.program[1]:.6f}")
            for row in examples.size_rows(program)]
    return table(("Case", "#Web by hand (in)", "#Program (in)", "#Barrier by hand (in)", "#Program (in)"), rows)


def _factor_row(row):
    differences = map(relative_error, row.program, row.hand)
    return (row.case, *(f"{factor:.10f}" for factor in row.hand), part(max(differences)))


def _curve_row(row):
    figures = [f"{value:.6f}" for value in row.hand] + ["", ""]
    largest = max(relative_error(*pair) for pair in zip(row.program[1:], row.hand))
    return (row.curve, str(row.point), f"{row.x.normalize():f}", *figures[:3], part(largest))


def example_values(program):
    worked = examples.panel_examples(program)
    sized = examples.sizing_examples(program)
    return SimpleNamespace(
        count=len(worked), largest=part(max(example.largest_difference() for example in worked)),
        panels="\n\n".join(_panel_part(*entry) for entry in enumerate(worked, 1)),
        newton="\n\n".join(_newton_part(*entry) for entry in enumerate(sized, len(worked) + 1)),
        sizes=_size_table(program),
        factors=table(("Panel", "#Overall", "#Webs ONLY", "#Barrier Pillar", "#Largest relative difference"),
                      [_factor_row(row) for row in examples.factor_rows(program)]),
        curves=table(("Curve", "#Point", "#x (ft)", "#Overall, or width (ft)", "#Webs ONLY", "#Barrier Pillar",
                      "#Largest relative difference"), [_curve_row(row) for row in examples.curve_rows(program)]))
