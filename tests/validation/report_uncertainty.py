# SPDX-License-Identifier: GPL-3.0-or-later
"""The figures of the report's chapter on uncertainty, from what both programs were recorded to say."""

import json
from pathlib import Path
from types import SimpleNamespace

from figure_texts import count, part
from pages import table
from uncertainty import MEASURED, QUESTIONS, SAMPLES
from uncertainty_comparison import comparisons, fit_comparisons, is_estimated

RECORD = Path(__file__).with_name("recorded_uncertainty.json")
PROJECTS = {"Contour_Bench_Shallow.TKL": "bench", "Deep_Cover_20_Holes.TKL": "deep"}


def _words(question):
    fields = [f"{field} {distribution}" for field, distribution in question.random.items()]
    pairs = [f"{one} and {other} correlated by {value:g}" for (one, other), value in question.correlate.items()]
    return f"{PROJECTS[question.project]}: {question.factor} < {question.target:g}; " + ", ".join(fields + pairs)


def _share(value):
    return f"{value:.4g}"


def _largest(found, beginning):
    return max(difference for what, difference, _ in found if what.startswith(beginning))


def uncertainty_values():
    record = json.loads(RECORD.read_text(encoding="utf-8"))
    ours, theirs = record["program"], record["openturns"]
    found, plain, rare, indices = [], [], [], []
    for name, question in QUESTIONS.items():
        one, other = ours["questions"][name], theirs["questions"][name]
        compared = list(comparisons(question, one, other))
        found += compared
        errors = _largest(compared, "probability")
        plain.append((name, _words(question), _share(one["probability"]), _share(other["probability"]), f"{errors:.1f}"))
        if is_estimated(one):
            rare.append((name, f"{one['rare']['reliability_index']:.4f}", f"{other['rare']['reliability_index']:.4f}",
                         _share(one["rare"]["probability"]), _share(other["rare"]["probability"]),
                         f"{_largest(compared, 'rare probability'):.1f}"))
        for field in question.random if question.sobol else ():
            indices.append((name, field, *(f"{who['sobol'][field][kind]['index']:.3f}"
                                           for kind in ("first", "total") for who in (one, other))))
    fits = []
    for name in MEASURED:
        compared = list(fit_comparisons(ours["fits"][name], theirs["fits"][name]))
        largest = [max(difference for what, difference, _ in compared if what.endswith(kind))
                   for kind in ("parameters", "likelihood")]
        fits.append((name, ", ".join(theirs["fits"][name]), *map(part, largest)))
    return SimpleNamespace(
        questions=count(len(QUESTIONS)), samples=count(SAMPLES), version=theirs["version"],
        probability=f"{_largest(found, 'probability'):.1f}", rare=f"{_largest(found, 'rare probability'):.1f}",
        index=part(_largest(found, "reliability index")), importance=part(_largest(found, "importance")),
        sobol=f"{max(_largest(found, 'first'), _largest(found, 'total')):.1f}",
        plain_table=table(("#No.", "Question", "#Program", "#OpenTURNS", "#Standard errors"), plain),
        rare_table=table(("#No.", "#Index", "#OpenTURNS", "#Probability", "#OpenTURNS", "#Standard errors"), rare),
        sobol_table=table(("#No.", "Field", "#First-order", "#OpenTURNS", "#Total", "#OpenTURNS"), indices),
        fit_table=table(("Values", "Fitted", "#Parameters, largest relative difference", "#Likelihood, largest difference"), fits))
