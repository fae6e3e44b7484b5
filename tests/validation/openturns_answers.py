# SPDX-License-Identifier: GPL-3.0-or-later
"""OpenTURNS's answers to the questions of uncertainty.py, with their standard errors."""

import math

import numpy
import openturns

from uncertainty import FIELDS, MEASURED, QUESTIONS, column, project_figures

DRAWS = 1000000
AROUND = 100000  # draws around a design point
BASE = 1 << 15  # of the Sobol' indices
BLOCK = 10000


def factor(name, f):
    """A factor of many panels; English units: ft, psi, pcf, degrees. NumberHoles holes between a barrier on each side."""
    square_foot = 144.0
    height, depth, hole, holes = f["Height"], f["DepthCover"], f["HoleWidth"], f["NumberHoles"]
    length, weight = f["CrosscutSpacing"], f["UnitWeight"]
    tan = numpy.tan(numpy.radians(f["AbutmentAngle"]))

    def capacity(width):
        return f["CoalStrength"] * square_foot * (0.64 + 0.54 * width / height - 0.18 * width**2 / (height * length)) * width

    web, barrier = f["WebThickness"], f["BarrierPillarWidth"]
    span = (holes - 1) * web + holes * hole
    if name == "WebsOnly":
        return capacity(web) / (weight * depth * (web + hole))
    if name == "Overall":
        return (capacity(barrier) + (holes - 1) * capacity(web)) / (weight * depth * (span + barrier))
    wide = span / 2 > depth * tan
    side = numpy.where(wide, weight / 2 * depth**2 * tan, weight * (depth * span / 2 - span**2 / (8 * tan)))
    return capacity(barrier) / (weight * depth * barrier + 2 * side)


def _lognormal(mean, deviation):
    spread = math.log1p((deviation / mean)**2)
    return openturns.LogNormal(math.log(mean) - spread / 2, math.sqrt(spread), 0.0)


def _pert(low, mode, high):
    return openturns.Beta(1 + 4 * (mode - low) / (high - low), 1 + 4 * (high - mode) / (high - low), low, high)


_KINDS = {
    "normal": openturns.Normal, "lognormal": _lognormal, "uniform": openturns.Uniform, "triangular": openturns.Triangular,
    "truncnormal": openturns.TruncatedNormal, "pert": _pert, "beta": openturns.Beta,
    "weibull": lambda scale, shape: openturns.WeibullMin(scale, shape, 0.0),
    "gumbel": lambda mode, scale: openturns.Gumbel(scale, mode),
    "gamma": lambda scale, shape: openturns.Gamma(shape, 1.0 / scale, 0.0),
}


def distribution_of(question):
    names = list(question.random)
    parts = []
    for text in question.random.values():
        kind, *figures = text.split(":")
        parts.append(_KINDS[kind](*map(float, figures)))
    matrix = openturns.CorrelationMatrix(len(names))
    for (one, other), value in question.correlate.items():
        matrix[names.index(one), names.index(other)] = value
    copula = openturns.NormalCopula(matrix) if question.correlate else openturns.IndependentCopula(len(names))
    return openturns.ComposedDistribution(parts, copula)


def function_of(examples, question):
    fixed = {name: value for name, value in project_figures(examples / question.project).items() if name in FIELDS}

    def many(sample):
        figures = dict(fixed)
        figures.update(zip(question.random, numpy.asarray(sample).T))
        return factor(question.factor, figures)[:, numpy.newaxis]

    return openturns.PythonFunction(len(question.random), 1, func=lambda one: many([one])[0], func_sample=many)


def _rare(function, distribution, question):
    """The design point by the first-order reliability method, and importance sampling around it."""
    random = openturns.RandomVector(distribution)
    event = openturns.ThresholdEvent(openturns.CompositeRandomVector(function, random), openturns.Less(), question.target)
    solver = openturns.AbdoRackwitz()
    solver.setMaximumIterationNumber(1000)
    solver.setMaximumAbsoluteError(1e-10)
    solver.setMaximumRelativeError(1e-10)
    solver.setMaximumResidualError(1e-10)
    solver.setMaximumConstraintError(1e-10)
    start = [distribution.getMarginal(i).computeQuantile(0.5)[0] for i in range(distribution.getDimension())]
    form = openturns.FORM(solver, event, start)
    form.run()
    found = form.getResult()
    around = openturns.PostAnalyticalImportanceSampling(found)
    around.setBlockSize(BLOCK)
    around.setMaximumOuterSampling(AROUND // BLOCK)
    around.setMaximumCoefficientOfVariation(0.0)
    around.run()
    estimate = around.getResult()
    return {"reliability_index": found.getHasoferReliabilityIndex(),
            "importance": dict(zip(question.random, found.getImportanceFactors())),
            "probability": estimate.getProbabilityEstimate(),
            "standard_error": math.sqrt(estimate.getVarianceEstimate())}


def _sobol(function, distribution, question):
    inputs = openturns.SobolIndicesExperiment(distribution, BASE).generate()
    indices = openturns.JansenSensitivityAlgorithm(inputs, function(inputs), BASE)
    indices.setUseAsymptoticDistribution(True)
    found = {}
    for kind, values, interval in (
            ("first", indices.getFirstOrderIndices(), indices.getFirstOrderIndicesInterval()),
            ("total", indices.getTotalOrderIndices(), indices.getTotalOrderIndicesInterval())):
        low, high = interval.getLowerBound(), interval.getUpperBound()
        for i, field in enumerate(question.random):
            found.setdefault(field, {})[kind] = {"index": values[i], "low": low[i], "high": high[i]}
    return found


def answer(examples, question, is_rare):
    openturns.RandomGenerator.SetSeed(1)
    function, distribution = function_of(examples, question), distribution_of(question)
    below = numpy.asarray(function(distribution.getSample(DRAWS)))[:, 0] < question.target
    share = below.mean()
    found = {"probability": float(share), "standard_error": math.sqrt(share * (1 - share) / DRAWS)}
    if is_rare:
        found["rare"] = _rare(function, distribution, question)
    if question.sobol:
        found["sobol"] = _sobol(function, distribution, question)
    return found


# The parameters as the program writes them.
_FITTED = {
    "normal": (openturns.Normal(), lambda p: [p[0], p[1]]),
    "lognormal": (openturns.LogNormal(), lambda p: [math.exp(p[0] + p[1]**2 / 2),
                                                   math.exp(p[0] + p[1]**2 / 2) * math.sqrt(math.expm1(p[1]**2))]),
    "weibull": (openturns.WeibullMin(), lambda p: [p[0], p[1]]),
    "gumbel": (openturns.Gumbel(), lambda p: [p[1], p[0]]),
    "gamma": (openturns.Gamma(), lambda p: [1.0 / p[1], p[0]]),
}


def _start(kind, values):
    """Near the most likely parameters, by moments."""
    mean, deviation = numpy.mean(values), numpy.std(values)
    spread = math.sqrt(math.log1p((deviation / mean)**2))
    return {"normal": [mean, deviation], "lognormal": [math.log(mean) - spread**2 / 2, spread],
            "weibull": [mean + deviation / 2, 1.2 * mean / deviation],
            "gumbel": [0.78 * deviation, mean - 0.45 * deviation],
            "gamma": [(mean / deviation)**2, mean / deviation**2]}[kind]


def fits(values):
    """By the maximum of the likelihood, its place looked for by a general optimiser."""
    sample = openturns.Sample([[value] for value in values])
    found = {}
    for kind, (distribution, written) in _FITTED.items():
        start = _start(kind, values)
        factory = openturns.MaximumLikelihoodFactory(distribution)
        if kind in ("lognormal", "weibull", "gamma"):
            factory.setKnownParameter([0.0], [2])  # the place where the figures begin
        solver = openturns.NLopt("LN_SBPLX")
        solver.setMaximumEvaluationNumber(100000)
        for limit in (solver.setMaximumRelativeError, solver.setMaximumAbsoluteError, solver.setMaximumResidualError):
            limit(1e-12)
        solver.setStartingPoint(start)
        factory.setOptimizationAlgorithm(solver)
        factory.setOptimizationBounds(openturns.Interval([0.2 * one for one in start], [5 * one for one in start]))
        fitted = factory.build(sample)
        parameters = list(fitted.getParameter())
        found[kind] = {"parameters": written(parameters),
                       "log_likelihood": float(numpy.sum(numpy.asarray(fitted.computeLogPDF(sample))))}
    return found


def answers(examples, folder, rare):
    """Of all questions and measured sets; `rare` names the questions with a design point."""
    return {"version": openturns.__version__,
            "questions": {name: answer(examples, question, name in rare) for name, question in QUESTIONS.items()},
            "fits": {name: fits(column(examples, values, folder)[0]) for name, values in MEASURED.items()}}
