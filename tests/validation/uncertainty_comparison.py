# SPDX-License-Identifier: GPL-3.0-or-later
"""How far the answers of two programs lie apart: in standard errors where both sample, else as they are."""

import math

# Of the difference, where both sample: one of a hundred comparisons would pass 2.6 by chance.
MOST_ERRORS = 4.0
# Where neither does.
INDEX, IMPORTANCE, PARAMETER, LIKELIHOOD = 1e-4, 1e-3, 1e-3, 1e-5
QUANTILE = 1.959963984540054


def error_of(interval):
    return (interval["high"] - interval["low"]) / (2 * QUANTILE)


def errors_between(ours, our_error, theirs, their_error):
    """A difference in its own standard errors; half a sample of ours counts as none."""
    error = math.hypot(our_error, their_error)
    return abs(ours - theirs) / error if error > 0 else 0.0 if ours == theirs else math.inf


def is_estimated(answer):
    return answer.get("rare", {}).get("outcome") == "estimated"


def comparisons(question, ours, theirs):
    """(what, difference, most) of one question."""
    yield "probability", errors_between(ours["probability"], error_of(ours), theirs["probability"],
                                        theirs["standard_error"]), MOST_ERRORS
    if is_estimated(ours):
        one, other = ours["rare"], theirs["rare"]
        yield "reliability index", abs(one["reliability_index"] / other["reliability_index"] - 1), INDEX
        yield "rare probability", errors_between(one["probability"], error_of(one), other["probability"],
                                                 other["standard_error"]), MOST_ERRORS
        # With correlations both speak of axes that differ.
        if not question.correlate:
            yield "importance", max(abs(one["importance"][name] - other["importance"][name])
                                    for name in question.random), IMPORTANCE
    for name in question.random if question.sobol else ():
        for kind in ("first", "total"):
            one, other = ours["sobol"][name][kind], theirs["sobol"][name][kind]
            yield f"{kind} index of {name}", errors_between(one["index"], error_of(one), other["index"],
                                                            error_of(other)), MOST_ERRORS


def fit_comparisons(ours, theirs):
    for kind, other in theirs.items():
        one = ours[kind]
        yield f"{kind}, parameters", max(abs(a / b - 1) for a, b in zip(one["parameters"], other["parameters"])), PARAMETER
        # No place is likelier than the most likely one.
        yield f"{kind}, likelihood", abs(one["log_likelihood"] - other["log_likelihood"]), LIKELIHOOD
